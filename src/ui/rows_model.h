#pragma once

#include "db/row.h"
#include "ui/formats.h"

#include <QAbstractTableModel>
#include <functional>
#include <optional>

namespace jxc {

/// How a cell should strike the eye.
enum class Tone { plain, quiet, danger, warning, good };

/// Rows of a query as a table: formatted, sorted and filtered in memory, so that typing in the
/// filter answers at once.
class RowsModel : public QAbstractTableModel {
    Q_OBJECT
public:
    RowsModel(ColumnSpecs columns, Formats formats, QObject *parent = nullptr);

    void setColumns(ColumnSpecs columns);
    void setFormats(Formats formats) { m_formats = std::move(formats); }
    /// Keeps sort order and filter.
    void setRows(Rows rows);
    /// Further rows of the same query. While the view is sorted or filtered they show only after
    /// rearrange().
    void appendRows(Rows rows);
    /// Sorts and filters what was appended; the row of `line` is answered by its new line.
    int rearrange(int line);
    /// Sorted or filtered.
    [[nodiscard]] bool isArranged() const { return m_sortColumn >= 0 || !m_words.isEmpty(); }
    [[nodiscard]] const Rows &rows() const { return m_rows; }

    [[nodiscard]] const ColumnSpecs &columns() const { return m_columns; }
    /// The row behind a line of the view.
    [[nodiscard]] const Row &at(int line) const {
        return m_rows[m_shown[static_cast<size_t>(line)]];
    }
    /// The first line whose field has the text; -1 without any.
    [[nodiscard]] int find(QStringView field, const QString &text) const;

    /// Shows only rows that contain every blank-separated word in some shown column.
    void setFilter(const QString &text);
    /// Over the rows that are shown; nothing for a column without a sum.
    [[nodiscard]] std::optional<Decimal> sum(int column) const;
    [[nodiscard]] QString cellText(int line, int column) const;

    void setTone(std::function<Tone(const Row &, const ColumnSpec &)> tone) {
        m_tone = std::move(tone);
    }

    // Ticks in front of the rows, for lists that are chosen from.
    void setTickable(bool on);
    [[nodiscard]] bool isTickable() const { return m_tickable; }
    [[nodiscard]] bool isTicked(int line) const;
    void tick(int line, bool on);
    void tickAll(bool on);
    [[nodiscard]] std::vector<const Row *> tickedRows() const;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;
    void sort(int column, Qt::SortOrder order) override;

Q_SIGNALS:
    void ticksChanged();

private:
    void resolveColumns();
    void arrange();
    void order();
    [[nodiscard]] const QString &haystack(size_t row) const;

    ColumnSpecs m_columns;
    Formats m_formats;
    Rows m_rows;
    std::vector<size_t> m_cells;              ///< position of each column in a row
    std::vector<size_t> m_shown;              ///< rows in the order of the view
    mutable std::vector<QString> m_haystacks; ///< made at the first filter
    std::vector<bool> m_ticks;
    QStringList m_words;
    std::function<Tone(const Row &, const ColumnSpec &)> m_tone;
    int m_sortColumn = -1;
    Qt::SortOrder m_sortOrder = Qt::AscendingOrder;
    bool m_tickable = false;
};

} // namespace jxc
