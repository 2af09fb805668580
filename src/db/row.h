#pragma once

#include "base/decimal.h"

#include <QString>
#include <memory>
#include <variant>
#include <vector>

namespace jxc {

/// A field as the engine gave it: null, whole number, number or text; or a figure that a query
/// computed from what it read.
using Cell = std::variant<std::monostate, qint64, double, QString, Decimal>;

/// The column names of one result, shared by its rows.
class Columns {
public:
    explicit Columns(std::vector<QString> names)
        : m_names(std::move(names)) {}
    /// Throws std::logic_error for a column that the statement does not select.
    [[nodiscard]] size_t indexOf(QStringView name) const;
    [[nodiscard]] const std::vector<QString> &names() const { return m_names; }

private:
    std::vector<QString> m_names;
};

/// One row of a result. Nulls read as empty text and 0, as the books take them.
class Row {
public:
    Row(std::shared_ptr<const Columns> columns, std::vector<Cell> cells)
        : m_columns(std::move(columns))
        , m_cells(std::move(cells)) {}

    [[nodiscard]] QString text(QStringView column) const {
        return text(m_columns->indexOf(column));
    }
    /// Throws NumberError when the field holds text that is no number.
    [[nodiscard]] Decimal decimal(QStringView column) const {
        return decimal(m_columns->indexOf(column));
    }
    [[nodiscard]] qint64 integer(QStringView column) const {
        return integer(m_columns->indexOf(column));
    }
    [[nodiscard]] bool flag(QStringView column) const { return integer(column) != 0; }
    [[nodiscard]] bool isNull(QStringView column) const {
        return isNull(m_columns->indexOf(column));
    }

    // By position in the select list, for the few loops where the look-up of a name would count.
    [[nodiscard]] QString text(size_t index) const;
    [[nodiscard]] Decimal decimal(size_t index) const;
    [[nodiscard]] qint64 integer(size_t index) const;
    [[nodiscard]] bool isNull(size_t index) const {
        return std::holds_alternative<std::monostate>(m_cells[index]);
    }
    [[nodiscard]] const Cell &cell(size_t index) const { return m_cells[index]; }

    [[nodiscard]] const Columns &columns() const { return *m_columns; }

private:
    std::shared_ptr<const Columns> m_columns;
    std::vector<Cell> m_cells;
};

using Rows = std::vector<Row>;

} // namespace jxc
