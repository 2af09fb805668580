#pragma once

#include "db/value.h"

#include <QStringList>

namespace jxc {

/// The values of "column in (…)". Lists of like lengths make the same statement, the last value
/// again where one is short, so that an engine keeps a few of them and not one for every length.
struct InList {
    explicit InList(const QStringList &choices) {
        qsizetype length = 1;
        while (length < choices.size())
            length *= 2;
        const QStringList all(length, QStringLiteral("?"));
        marks = u'(' + all.join(u',') + u')';
        for (qsizetype i = 0; i < length; ++i)
            values.emplace_back(choices.isEmpty() ? QString()
                                                  : choices[std::min(i, choices.size() - 1)]);
    }

    QString marks; ///< "(?,?,?,?)"
    Values values;
};

} // namespace jxc
