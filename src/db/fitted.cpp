#include "db/fitted.h"

#include "db/schema.h"

namespace jxc {

QString fitted(QStringView tableName, QStringView columnName, const QString &text) {
    const Column *description = column(tableName, columnName);
    if (description == nullptr || description->length == 0 || text.size() <= description->length)
        return text;
    // The engines count characters; one outside the basic plane takes two of Qt's units.
    const auto characters = text.toUcs4();
    if (characters.size() <= description->length)
        return text;
    return QString::fromUcs4(reinterpret_cast<const char32_t *>(characters.constData()),
                             description->length);
}

} // namespace jxc
