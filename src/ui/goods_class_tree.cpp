#include "ui/goods_class_tree.h"

#include "master/goods_class.h"

#include <QHeaderView>
#include <QKeyEvent>

namespace jxc {

namespace {

constexpr int codeRole = Qt::UserRole;

} // namespace

GoodsClassTree::GoodsClassTree(QWidget *parent)
    : QTreeWidget(parent) {
    setObjectName(QStringLiteral("goodsClasses"));
    setHeaderHidden(true);
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setIndentation(16);
    connect(this, &QTreeWidget::currentItemChanged, this, &GoodsClassTree::classChosen);
}

void GoodsClassTree::load(const Session &session) {
    const QString chosen = classCode();
    const QSignalBlocker quiet(this);
    clear();
    auto *root = new QTreeWidgetItem(this, {QStringLiteral("全部商品")});
    QHash<qint64, QTreeWidgetItem *> items;
    // Parents come before their children.
    for (const GoodsClass &c : loadGoodsClasses(session)) {
        auto *item =
            c.isRoot() ? root : new QTreeWidgetItem(items.value(c.parentKey, root), {c.name});
        if (!c.isRoot())
            item->setData(0, codeRole, c.code);
        items.insert(c.key, item);
    }
    root->setExpanded(true);
    setCurrentItem(root);
    chooseClass(chosen);
}

QString GoodsClassTree::classCode() const {
    return currentItem() == nullptr ? QString() : currentItem()->data(0, codeRole).toString();
}

void GoodsClassTree::chooseClass(const QString &code) {
    for (QTreeWidgetItemIterator item(this); *item != nullptr; ++item)
        if ((*item)->data(0, codeRole).toString() == code) {
            setCurrentItem(*item);
            return;
        }
}

void GoodsClassTree::keyPressEvent(QKeyEvent *event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        Q_EMIT left();
    else
        QTreeWidget::keyPressEvent(event);
}

} // namespace jxc
