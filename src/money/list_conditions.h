#pragma once

#include "db/like.h"
#include "db/where.h"

namespace jxc {

// What narrows every list of the money ledgers.

/// Days from one to another, both included; an empty one bounds nothing.
inline void addPeriod(Where &where, const QString &column, const QString &from, const QString &to) {
    if (!from.isEmpty())
        where.add(column + QStringLiteral(">=?"), {from});
    if (!to.isEmpty())
        where.add(column + QStringLiteral("<=?"), {to});
}

/// One of the columns contains the text; an empty text narrows nothing.
inline void addSearch(Where &where, const QStringList &columns, const QString &text) {
    if (text.isEmpty())
        return;
    QStringList conditions;
    for (const QString &column : columns)
        conditions << contains(column);
    where.add(u'(' + conditions.join(QStringLiteral(" or ")) + u')',
              Values(static_cast<size_t>(columns.size()), Value(containsPattern(text))));
}

} // namespace jxc
