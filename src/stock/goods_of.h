#pragma once

#include "db/value.h"

#include <QString>

namespace jxc {

struct DocumentKind;

/// The goods that a document names, for "g_sn in %1". The engine reads them first and as a whole:
/// left to itself a server may look every goods of the shop up among all lines ever written.
struct GoodsOf {
    GoodsOf(const DocumentKind &kind, const QString &number);

    QString set;   ///< with its brackets
    Values values; ///< what it binds

    /// The values of a statement that binds these before the set.
    [[nodiscard]] Values after(Values first) const;
};

} // namespace jxc
