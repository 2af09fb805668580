#pragma once

#include "master/master_kind.h"
#include "master/record.h"
#include "ui/formats.h"

#include <QAbstractTableModel>
#include <functional>

namespace jxc {

/// Records under edit as the rows of a table; the last line is blank and becomes a new record when
/// something is typed there.
class RecordRows : public QAbstractTableModel {
    Q_OBJECT
public:
    /// `makeNew` gives the record that the blank line becomes.
    RecordRows(std::vector<MasterField> fields, Formats formats, std::function<Record()> makeNew,
               QObject *parent);

    void setRecords(std::vector<Record> records);
    [[nodiscard]] const std::vector<Record> &records() const { return m_records; }
    [[nodiscard]] const MasterField &field(int column) const {
        return m_fields[static_cast<size_t>(column)];
    }
    [[nodiscard]] const std::vector<MasterField> &fields() const { return m_fields; }
    [[nodiscard]] int columnOf(QStringView column) const;

    [[nodiscard]] bool isBlank(int row) const {
        return row < 0 || row >= static_cast<int>(m_records.size());
    }
    [[nodiscard]] bool isEditable(int row, int column) const;
    /// Of the blank line a new record, which is in no row yet.
    [[nodiscard]] Record record(int row) const;
    /// Puts it there; for the blank line a row comes about unless it says nothing.
    void setRecord(int row, const Record &record);
    void removeRecord(int row);
    /// Cells that are shown in the colour of danger, for example what has expired.
    void setDanger(std::function<bool(const Record &, const MasterField &)> danger) {
        m_danger = std::move(danger);
    }

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;
    [[nodiscard]] QString cellText(int row, int column) const;

Q_SIGNALS:
    void edited(int row);

private:
    std::vector<MasterField> m_fields;
    Formats m_formats;
    std::function<Record()> m_makeNew;
    std::vector<Record> m_records;
    std::function<bool(const Record &, const MasterField &)> m_danger;
};

} // namespace jxc
