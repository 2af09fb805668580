#pragma once

#include "master/goods_class.h"
#include "ui/form.h"

#include <QTreeWidget>

class QBoxLayout;

namespace jxc {

/// The tree itself: branches are dragged onto another one, and its keys do not reach the list's.
class ClassBranches : public QTreeWidget {
    Q_OBJECT
public:
    explicit ClassBranches(QWidget *parent);

Q_SIGNALS:
    void addAsked();
    void renameAsked();
    void moveAsked();
    void deleteAsked();
    void dropped(QTreeWidgetItem *branch, QTreeWidgetItem *target);

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void dropEvent(QDropEvent *event) override;
};

/// The classes of goods beside their list, with buttons to keep them. The class that is chosen
/// narrows the list.
class ClassTree : public QWidget {
    Q_OBJECT
public:
    ClassTree(Form *form);

    void load();
    /// The code that all goods of the chosen branch begin with; empty for all.
    [[nodiscard]] QString branch() const;
    /// Of the chosen class; 0 for the root.
    [[nodiscard]] qint64 classNumber() const;
    [[nodiscard]] QTreeWidget &tree() const { return *m_tree; }

public Q_SLOTS:
    void btnAddClassClick();
    void btnRenameClassClick();
    void btnMoveClassClick();
    void btnDeleClassClick();

Q_SIGNALS:
    void chosen();

private:
    [[nodiscard]] const GoodsClass *current() const;
    [[nodiscard]] QTreeWidgetItem *itemOf(qint64 id) const;
    void addButtons(QBoxLayout *column);
    void reload(qint64 chosenId);
    void move(qint64 id, qint64 newParentKey);
    [[nodiscard]] QString askName(const QString &title, const QString &before);

    Form *m_form;
    ClassBranches *m_tree;
    std::vector<GoodsClass> m_classes;
};

} // namespace jxc
