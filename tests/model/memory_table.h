#pragma once

#include "base/decimal.h"

#include <QString>
#include <algorithm>
#include <map>
#include <stdexcept>
#include <variant>
#include <vector>

namespace jxc::test {

/// A field of a row: a figure (also whole numbers and flags) or a text.
using Cell = std::variant<QString, Decimal>;
using Cells = std::map<QString, Cell, std::less<>>;

/// A row of a table that is kept in memory. Every column is there from the start; asking for one
/// that is not is a mistake of the test.
class Record {
public:
    Record(qint64 id, Cells cells)
        : m_id(id)
        , m_cells(std::move(cells)) {}

    [[nodiscard]] qint64 id() const { return m_id; }
    [[nodiscard]] const QString &text(QStringView column) const {
        return std::get<QString>(cell(column));
    }
    [[nodiscard]] Decimal number(QStringView column) const {
        return std::get<Decimal>(cell(column));
    }
    [[nodiscard]] const Cell &cell(QStringView column) const {
        const auto found = m_cells.find(column);
        if (found == m_cells.end())
            throw std::logic_error("no column " + column.toString().toStdString());
        return found->second;
    }
    void set(QStringView column, Cell value) {
        if (cell(column).index() != value.index())
            throw std::logic_error("wrong type for " + column.toString().toStdString());
        m_cells.find(column)->second = std::move(value);
    }
    void add(QStringView column, Decimal change) { set(column, number(column) + change); }

private:
    qint64 m_id;
    Cells m_cells;
};

/// A table in memory: its rows in the order of their ids, which are never used twice.
class MemoryTable {
public:
    /// A row without values: "" and 0.
    void setBlank(Cells blank) { m_blank = std::move(blank); }

    /// Columns that are not named stay blank. Without an id the next one is taken.
    Record &insert(const Cells &cells, qint64 id = 0) {
        if (id == 0)
            id = m_nextId;
        m_nextId = std::max(m_nextId, id + 1);
        Record &row = m_rows.emplace_back(id, m_blank);
        for (const auto &[column, value] : cells)
            row.set(column, value);
        return row;
    }

    template<typename Condition>
    [[nodiscard]] std::vector<Record *> where(Condition condition) {
        std::vector<Record *> found;
        for (Record &row : m_rows)
            if (condition(row))
                found.push_back(&row);
        return found;
    }
    [[nodiscard]] std::vector<Record *> where(QStringView column, const QString &value) {
        return where([&](const Record &row) { return row.text(column) == value; });
    }
    /// The first such row; null without one.
    [[nodiscard]] Record *first(QStringView column, const QString &value) {
        const auto found = where(column, value);
        return found.empty() ? nullptr : found.front();
    }
    template<typename Condition>
    void erase(Condition condition) {
        std::erase_if(m_rows, condition);
    }
    void erase(QStringView column, const QString &value) {
        erase([&](const Record &row) { return row.text(column) == value; });
    }
    [[nodiscard]] const std::vector<Record> &rows() const { return m_rows; }

private:
    Cells m_blank;
    std::vector<Record> m_rows;
    qint64 m_nextId = 1;
};

} // namespace jxc::test
