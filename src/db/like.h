#pragma once

#include <QString>

namespace jxc {

/// Condition that a text column contains what a user typed, capital or small letters alike, as it
/// stands: its % and _ are no wildcards. One value is bound, containsPattern(text).
[[nodiscard]] inline QString contains(const QString &column) {
    return QStringLiteral("lower(%1) like lower(?) escape '!'").arg(column);
}

[[nodiscard]] inline QString containsPattern(QString text) {
    for (const QChar special : {u'!', u'%', u'_'})
        text.replace(special, QString(u'!') + special);
    return u'%' + text + u'%';
}

} // namespace jxc
