#pragma once

#include <QStyledItemDelegate>

namespace jxc {

class FieldInput;
class RecordTable;

/// The fields of a record table's cells, and what the keys do in them.
class RecordDelegate : public QStyledItemDelegate {
    Q_OBJECT
public:
    explicit RecordDelegate(RecordTable *table);

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    void setModelData(QWidget *editor, QAbstractItemModel *model,
                      const QModelIndex &index) const override;

    /// Takes what was typed into the record and closes the field; false while it means nothing.
    bool finish(QWidget *editor);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    RecordTable *m_table;
};

} // namespace jxc
