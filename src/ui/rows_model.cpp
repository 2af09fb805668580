#include "ui/rows_model.h"

#include "ui/theme.h"

#include <QCollator>
#include <QColor>
#include <algorithm>
#include <numeric>

namespace jxc {

namespace {

QColor colourOf(Tone tone) {
    const Theme &theme = Theme::current();
    switch (tone) {
    case Tone::quiet:
        return theme.textQuiet;
    case Tone::danger:
        return theme.danger;
    case Tone::warning:
        return theme.warning;
    case Tone::good:
        return theme.good;
    case Tone::plain:
        break;
    }
    return theme.text;
}

int alignmentOf(ValueKind kind) {
    if (isNumber(kind))
        return int(Qt::AlignRight | Qt::AlignVCenter);
    if (kind == ValueKind::flag || kind == ValueKind::status)
        return int(Qt::AlignCenter);
    return int(Qt::AlignLeft | Qt::AlignVCenter);
}

/// Chinese by pinyin, as users look things up; figures inside texts by value.
const QCollator &collator() {
    static const QCollator chinese = [] {
        QCollator c(QLocale(QLocale::Chinese, QLocale::China));
        c.setNumericMode(true);
        return c;
    }();
    return chinese;
}

template<typename Key>
void sortByKeys(std::vector<size_t> &order, std::vector<Key> keys, Qt::SortOrder direction) {
    std::vector<size_t> places(order.size());
    std::iota(places.begin(), places.end(), size_t(0));
    std::stable_sort(places.begin(), places.end(), [&](size_t a, size_t b) {
        return direction == Qt::AscendingOrder ? keys[a] < keys[b] : keys[b] < keys[a];
    });
    std::vector<size_t> sorted;
    sorted.reserve(order.size());
    for (const size_t place : places)
        sorted.push_back(order[place]);
    order = std::move(sorted);
}

/// QCollatorSortKey has no default, and compares by compare().
struct TextKey {
    QCollatorSortKey key;
    friend bool operator<(const TextKey &a, const TextKey &b) { return a.key.compare(b.key) < 0; }
};

} // namespace

RowsModel::RowsModel(ColumnSpecs columns, Formats formats, QObject *parent)
    : QAbstractTableModel(parent)
    , m_columns(std::move(columns))
    , m_formats(std::move(formats)) {}

void RowsModel::setColumns(ColumnSpecs columns) {
    beginResetModel();
    m_columns = std::move(columns);
    m_rows.clear();
    m_shown.clear();
    m_cells.clear();
    m_sortColumn = -1;
    endResetModel();
}

void RowsModel::setRows(Rows rows) {
    beginResetModel();
    m_rows = std::move(rows);
    m_haystacks.clear();
    m_ticks.assign(m_rows.size(), false);
    resolveColumns();
    arrange();
    endResetModel();
}

void RowsModel::appendRows(Rows rows) {
    if (rows.empty())
        return;
    const bool plain = !isArranged();
    const size_t before = m_rows.size();
    if (plain)
        beginInsertRows({}, rowCount(), rowCount() + static_cast<int>(rows.size()) - 1);
    m_rows.insert(m_rows.end(), std::make_move_iterator(rows.begin()),
                  std::make_move_iterator(rows.end()));
    m_ticks.resize(m_rows.size(), false);
    if (!m_haystacks.empty())
        m_haystacks.resize(m_rows.size());
    if (m_cells.empty())
        resolveColumns();
    if (!plain)
        return;
    for (size_t i = before; i < m_rows.size(); ++i)
        m_shown.push_back(i);
    endInsertRows();
}

int RowsModel::rearrange(int line) {
    const bool hadRow = line >= 0 && line < rowCount();
    const size_t row = hadRow ? m_shown[static_cast<size_t>(line)] : 0;
    beginResetModel();
    arrange();
    endResetModel();
    const auto found = std::find(m_shown.begin(), m_shown.end(), row);
    return hadRow && found != m_shown.end() ? static_cast<int>(found - m_shown.begin()) : 0;
}

void RowsModel::resolveColumns() {
    m_cells.clear();
    if (m_rows.empty())
        return;
    for (const ColumnSpec &column : m_columns)
        m_cells.push_back(m_rows.front().columns().indexOf(column.field));
}

void RowsModel::setFilter(const QString &text) {
    const QStringList words = text.simplified().toLower().split(u' ', Qt::SkipEmptyParts);
    if (words == m_words)
        return;
    beginResetModel();
    m_words = words;
    arrange();
    endResetModel();
}

/// Which rows are shown, and in which order.
void RowsModel::arrange() {
    m_shown.clear();
    for (size_t i = 0; i < m_rows.size(); ++i)
        if (std::all_of(m_words.begin(), m_words.end(),
                        [&](const QString &word) { return haystack(i).contains(word); }))
            m_shown.push_back(i);
    order();
}

const QString &RowsModel::haystack(size_t row) const {
    if (m_haystacks.empty())
        m_haystacks.resize(m_rows.size());
    QString &text = m_haystacks[row];
    if (text.isEmpty()) {
        for (size_t c = 0; c < m_columns.size(); ++c)
            text += m_formats.cell(m_columns[c], m_rows[row], m_cells[c]).toLower() + u'\n';
    }
    return text;
}

void RowsModel::order() {
    if (m_sortColumn < 0 || m_sortColumn >= columnCount() || m_cells.empty())
        return;
    const size_t cell = m_cells[static_cast<size_t>(m_sortColumn)];
    const ColumnSpec &column = m_columns[static_cast<size_t>(m_sortColumn)];
    if (isNumber(column.kind)) {
        std::vector<Decimal> keys;
        for (const size_t row : m_shown)
            keys.push_back(m_rows[row].decimal(cell));
        sortByKeys(m_shown, std::move(keys), m_sortOrder);
    } else {
        std::vector<TextKey> keys;
        for (const size_t row : m_shown)
            keys.push_back({collator().sortKey(m_formats.cell(column, m_rows[row], cell))});
        sortByKeys(m_shown, std::move(keys), m_sortOrder);
    }
}

void RowsModel::sort(int column, Qt::SortOrder order) {
    beginResetModel();
    m_sortColumn = column;
    m_sortOrder = order;
    if (column < 0)
        arrange();
    else
        this->order();
    endResetModel();
}

int RowsModel::find(QStringView field, const QString &text) const {
    if (m_rows.empty())
        return -1;
    const size_t cell = m_rows.front().columns().indexOf(field);
    for (size_t line = 0; line < m_shown.size(); ++line)
        if (m_rows[m_shown[line]].text(cell) == text)
            return static_cast<int>(line);
    return -1;
}

std::optional<Decimal> RowsModel::sum(int column) const {
    const ColumnSpec &spec = m_columns[static_cast<size_t>(column)];
    if (!spec.sum)
        return {};
    Decimal total;
    if (!m_cells.empty())
        for (const size_t row : m_shown)
            total += m_rows[row].decimal(m_cells[static_cast<size_t>(column)]);
    return total;
}

QString RowsModel::cellText(int line, int column) const {
    const auto c = static_cast<size_t>(column);
    return m_formats.cell(m_columns[c], at(line), m_cells[c]);
}

void RowsModel::setTickable(bool on) {
    m_tickable = on;
}

bool RowsModel::isTicked(int line) const {
    return m_ticks[m_shown[static_cast<size_t>(line)]];
}

void RowsModel::tick(int line, bool on) {
    m_ticks[m_shown[static_cast<size_t>(line)]] = on;
    Q_EMIT dataChanged(index(line, 0), index(line, 0), {Qt::CheckStateRole});
    Q_EMIT ticksChanged();
}

void RowsModel::tickAll(bool on) {
    for (const size_t row : m_shown)
        m_ticks[row] = on;
    if (rowCount() > 0)
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, 0), {Qt::CheckStateRole});
    Q_EMIT ticksChanged();
}

std::vector<const Row *> RowsModel::tickedRows() const {
    std::vector<const Row *> ticked;
    for (size_t i = 0; i < m_rows.size(); ++i)
        if (m_ticks[i])
            ticked.push_back(&m_rows[i]);
    return ticked;
}

int RowsModel::rowCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_shown.size());
}

int RowsModel::columnCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_columns.size());
}

QVariant RowsModel::data(const QModelIndex &index, int role) const {
    if (!index.isValid())
        return {};
    const ColumnSpec &column = m_columns[static_cast<size_t>(index.column())];
    switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
        return cellText(index.row(), index.column());
    case Qt::TextAlignmentRole:
        return alignmentOf(column.kind);
    case Qt::ForegroundRole:
        if (m_tone)
            if (const Tone tone = m_tone(at(index.row()), column); tone != Tone::plain)
                return colourOf(tone);
        if (column.kind == ValueKind::status &&
            at(index.row()).text(m_cells[static_cast<size_t>(index.column())]) ==
                QLatin1String("1"))
            return colourOf(Tone::good);
        return {};
    case Qt::CheckStateRole:
        if (m_tickable && index.column() == 0)
            return isTicked(index.row()) ? Qt::Checked : Qt::Unchecked;
        return {};
    default:
        return {};
    }
}

QVariant RowsModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation == Qt::Vertical)
        return role == Qt::DisplayRole ? QVariant(section + 1) : QVariant();
    const ColumnSpec &column = m_columns[static_cast<size_t>(section)];
    if (role == Qt::DisplayRole)
        return column.caption;
    if (role == Qt::TextAlignmentRole)
        return alignmentOf(column.kind);
    return {};
}

Qt::ItemFlags RowsModel::flags(const QModelIndex &index) const {
    Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    if (m_tickable && index.column() == 0)
        flags |= Qt::ItemIsUserCheckable;
    return flags;
}

bool RowsModel::setData(const QModelIndex &index, const QVariant &value, int role) {
    if (role != Qt::CheckStateRole || !m_tickable || index.column() != 0)
        return false;
    tick(index.row(), value.toInt() == Qt::Checked);
    return true;
}

} // namespace jxc
