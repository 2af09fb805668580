#pragma once

#include "base/numberformat.h"
#include "ui/column.h"

namespace jxc {

struct Parameters;
class Row;

/// How figures are shown and typed, by the parameters in force.
class Formats {
public:
    explicit Formats(const Parameters &parameters);

    /// Grouped, as grids show it.
    [[nodiscard]] QString text(ValueKind kind, Decimal value) const;
    /// Without grouping, as it is typed; 0 is empty.
    [[nodiscard]] QString typed(ValueKind kind, Decimal value) const;
    /// With the currency sign, as totals show it.
    [[nodiscard]] QString money(Decimal value) const;
    [[nodiscard]] int decimals(ValueKind kind) const;

    /// A field of a row as a column shows it.
    [[nodiscard]] QString cell(const ColumnSpec &column, const Row &row, size_t index) const;

private:
    struct Shape {
        int decimals;
        NumberFormat grouped;
    };
    [[nodiscard]] const Shape &shape(ValueKind kind) const;

    std::vector<Shape> m_shapes; ///< from quantity to percent
    NumberFormat m_money;
};

} // namespace jxc
