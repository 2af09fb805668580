#pragma once

#include <QStyledItemDelegate>

namespace jxc {

class LineTable;

/// Whether a cell's field lost the focus only because a dialog opened above its window: to add what
/// is missing, or to tell something. The cell stays open then.
[[nodiscard]] bool isBehindDialog(const QWidget &editor, const QEvent &event);

/// The editors of a document line's cells, and what the keys do in them.
class LineDelegate : public QStyledItemDelegate {
    Q_OBJECT
public:
    explicit LineDelegate(LineTable *table);

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    void updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                              const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    void setModelData(QWidget *editor, QAbstractItemModel *model,
                      const QModelIndex &index) const override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    [[nodiscard]] QWidget *goodsEditor(QWidget *parent, int row) const;
    [[nodiscard]] QWidget *unitEditor(QWidget *parent, int row) const;
    bool take(QWidget *editor);
    [[nodiscard]] bool isOpen(QWidget *editor) const;
    void leave(QWidget *editor);
    bool enter(QWidget *editor, int direction);

    LineTable *m_table;
};

} // namespace jxc
