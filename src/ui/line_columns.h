#pragma once

#include "ui/column.h"

namespace jxc {

struct Parameters;
struct CachedRights;

/// What a cell of a document line is.
enum class LineField {
    goods,
    name,
    commonName,
    dosageForm,
    specification,
    unit,
    maker,
    licence,
    quantity,
    price,    ///< as typed: with tax while prices include tax
    discount, ///< factor
    discounted,
    taxRate,
    tax,
    total, ///< with tax and discount
    gift,
    batch,
    produced,
    expiry,
    stock,
    retailPrice,
    cost,
    profit,
    source, ///< the document that the line follows
    note
};

/// A column of the lines of a document.
struct LineColumn {
    LineField field;
    ColumnSpec spec; ///< `field` there is the key under which layouts are kept
    bool editable = false;
    bool isStop = false; ///< Enter stops here at first
};

/// The columns of a kind of document (CJ, CT, RK, XS, XT, CK) under the parameters and rights in
/// force; what the operator may not see is left out.
[[nodiscard]] std::vector<LineColumn> lineColumns(const QString &code, const Parameters &parameters,
                                                  const CachedRights &rights);

} // namespace jxc
