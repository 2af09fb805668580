#include "ui/record_rows.h"

#include "ui/theme.h"

namespace jxc {

RecordRows::RecordRows(std::vector<MasterField> fields, Formats formats,
                       std::function<Record()> makeNew, QObject *parent)
    : QAbstractTableModel(parent)
    , m_fields(std::move(fields))
    , m_formats(std::move(formats))
    , m_makeNew(std::move(makeNew)) {}

void RecordRows::setRecords(std::vector<Record> records) {
    beginResetModel();
    m_records = std::move(records);
    endResetModel();
}

int RecordRows::columnOf(QStringView column) const {
    for (size_t i = 0; i < m_fields.size(); ++i)
        if (m_fields[i].column == column)
            return static_cast<int>(i);
    return -1;
}

bool RecordRows::isEditable(int row, int column) const {
    const MasterField &described = field(column);
    return !described.readOnly &&
           (!described.fixedOnceStored || isBlank(row) || record(row).isNew());
}

Record RecordRows::record(int row) const {
    return isBlank(row) ? m_makeNew() : m_records[static_cast<size_t>(row)];
}

void RecordRows::setRecord(int row, const Record &record) {
    if (!isBlank(row)) {
        m_records[static_cast<size_t>(row)] = record;
    } else if (record.isChanged()) {
        // The blank line itself becomes the record, so that the cursor stays in it; a new blank one
        // comes below.
        row = static_cast<int>(m_records.size());
        beginInsertRows({}, row + 1, row + 1);
        m_records.push_back(record);
        endInsertRows();
    } else {
        return;
    }
    Q_EMIT dataChanged(index(row, 0), index(row, columnCount() - 1));
    Q_EMIT edited(row);
}

void RecordRows::removeRecord(int row) {
    if (isBlank(row))
        return;
    beginRemoveRows({}, row, row);
    m_records.erase(m_records.begin() + row);
    endRemoveRows();
    Q_EMIT edited(row);
}

int RecordRows::rowCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_records.size()) + 1;
}

int RecordRows::columnCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_fields.size());
}

QString RecordRows::cellText(int row, int column) const {
    if (isBlank(row))
        return {};
    const Record &shown = m_records[static_cast<size_t>(row)];
    const MasterField &described = field(column);
    const QString text =
        shown.text(described.pick.shownAs.isEmpty() ? described.column : described.pick.shownAs);
    if (described.kind == ValueKind::choice) {
        for (const Choice &choice : described.choices)
            if (choice.value == text)
                return choice.caption;
        return text;
    }
    if (described.kind == ValueKind::flag)
        return text == u"1" ? QStringLiteral("√") : QString();
    if (!isNumber(described.kind) || text.isEmpty())
        return text;
    const Decimal figure = Decimal::fromText(text);
    return figure.isZero() ? QString() : m_formats.text(described.kind, figure);
}

QVariant RecordRows::data(const QModelIndex &index, int role) const {
    if (!index.isValid())
        return {};
    const MasterField &described = field(index.column());
    switch (role) {
    case Qt::DisplayRole:
        return described.kind == ValueKind::flag ? QString()
                                                 : cellText(index.row(), index.column());
    case Qt::CheckStateRole:
        if (described.kind != ValueKind::flag)
            return {};
        return !isBlank(index.row()) && record(index.row()).flag(described.column) ? Qt::Checked
                                                                                   : Qt::Unchecked;
    case Qt::TextAlignmentRole:
        return int(Qt::AlignVCenter | (isNumber(described.kind) ? Qt::AlignRight : Qt::AlignLeft));
    case Qt::ForegroundRole:
        if (m_danger && !isBlank(index.row()) && m_danger(record(index.row()), described))
            return Theme::current().danger;
        return described.readOnly ? QVariant(Theme::current().textQuiet) : QVariant();
    default:
        return {};
    }
}

QVariant RecordRows::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation == Qt::Vertical)
        return role == Qt::DisplayRole
                   ? QVariant(isBlank(section) ? QStringLiteral("*") : QString::number(section + 1))
                   : QVariant();
    if (role == Qt::DisplayRole)
        return field(section).caption;
    if (role == Qt::TextAlignmentRole)
        return int(Qt::AlignVCenter |
                   (isNumber(field(section).kind) ? Qt::AlignRight : Qt::AlignLeft));
    return {};
}

Qt::ItemFlags RecordRows::flags(const QModelIndex &index) const {
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    if (!index.isValid() || !isEditable(index.row(), index.column()))
        return flags;
    return flags | (field(index.column()).kind == ValueKind::flag ? Qt::ItemIsUserCheckable
                                                                  : Qt::ItemIsEditable);
}

/// Ticks only; all else is written by the cell's own field.
bool RecordRows::setData(const QModelIndex &index, const QVariant &value, int role) {
    if (role != Qt::CheckStateRole)
        return false;
    Record changed = record(index.row());
    changed.set(field(index.column()).column,
                value.toInt() == Qt::Checked ? QStringLiteral("1") : QStringLiteral("0"));
    setRecord(index.row(), changed);
    return true;
}

} // namespace jxc
