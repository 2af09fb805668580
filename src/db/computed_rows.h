#pragma once

#include "db/row.h"

#include <QStringList>

namespace jxc {

/// Rows for a list whose fields are partly computed: they read like rows of a statement.
class ComputedRows {
public:
    /// The fields that a statement selected come first, the computed ones behind them.
    ComputedRows(const std::vector<QString> &selected, const QStringList &computed) {
        std::vector<QString> names = selected;
        names.insert(names.end(), computed.begin(), computed.end());
        m_columns = std::make_shared<const Columns>(std::move(names));
    }

    void add(const Row &selected, std::initializer_list<Cell> computed) {
        std::vector<Cell> cells;
        const size_t count = selected.columns().names().size();
        cells.reserve(count + computed.size());
        for (size_t i = 0; i < count; ++i)
            cells.push_back(selected.cell(i));
        cells.insert(cells.end(), computed.begin(), computed.end());
        m_rows.emplace_back(m_columns, std::move(cells));
    }
    /// A row of which only some fields have a value.
    void add(const std::vector<std::pair<QStringView, Cell>> &fields) {
        std::vector<Cell> cells(m_columns->names().size());
        for (const auto &[name, cell] : fields)
            cells[m_columns->indexOf(name)] = cell;
        m_rows.emplace_back(m_columns, std::move(cells));
    }
    [[nodiscard]] Rows take() { return std::exchange(m_rows, {}); }

private:
    std::shared_ptr<const Columns> m_columns;
    Rows m_rows;
};

/// A figure as a field carries it: exactly.
[[nodiscard]] inline Cell cellOf(Decimal figure) {
    return figure.toText();
}

} // namespace jxc
