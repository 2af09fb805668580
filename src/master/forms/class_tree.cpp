#include "master/forms/class_tree.h"

#include "core/prompter.h"
#include "core/session.h"
#include "ui/grid_msg.h"
#include "ui/list_form.h"
#include "ui/row_list.h"

#include <QDropEvent>
#include <QHeaderView>
#include <QInputDialog>
#include <QKeyEvent>
#include <QToolButton>

namespace jxc {

namespace {

constexpr int idRole = Qt::UserRole;
/// What the column holds.
constexpr int longestName = 50;

bool isOwnKey(const QKeyEvent *key) {
    switch (key->key()) {
    case Qt::Key_Insert:
    case Qt::Key_F2:
    case Qt::Key_F4:
    case Qt::Key_F7:
    case Qt::Key_Delete:
        return key->modifiers() == Qt::NoModifier;
    default:
        return false;
    }
}

} // namespace

ClassBranches::ClassBranches(QWidget *parent)
    : QTreeWidget(parent) {
    setHeaderHidden(true);
    setDragDropMode(InternalMove);
    setDefaultDropAction(Qt::MoveAction);
    setIndentation(16);
}

bool ClassBranches::event(QEvent *event) {
    if (event->type() == QEvent::ShortcutOverride && isOwnKey(static_cast<QKeyEvent *>(event))) {
        event->accept();
        return true;
    }
    return QTreeWidget::event(event);
}

void ClassBranches::keyPressEvent(QKeyEvent *event) {
    if (!isOwnKey(event)) {
        QTreeWidget::keyPressEvent(event);
        return;
    }
    switch (event->key()) {
    case Qt::Key_Insert:
        Q_EMIT addAsked();
        break;
    case Qt::Key_Delete:
        Q_EMIT deleteAsked();
        break;
    case Qt::Key_F7:
        Q_EMIT moveAsked();
        break;
    default:
        Q_EMIT renameAsked();
    }
}

/// Nothing moves in the tree by itself: the books are asked, and the tree is read anew.
void ClassBranches::dropEvent(QDropEvent *event) {
    QTreeWidgetItem *target = itemAt(event->position().toPoint());
    QTreeWidgetItem *branch = currentItem();
    event->setDropAction(Qt::IgnoreAction);
    event->accept();
    if (target != nullptr && branch != nullptr && target != branch)
        Q_EMIT dropped(branch, target);
}

ClassTree::ClassTree(Form *form)
    : QWidget(form)
    , m_form(form)
    , m_tree(new ClassBranches(this)) {
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(4);
    addButtons(column);
    column->addWidget(m_tree, 1);
    connect(m_tree, &QTreeWidget::currentItemChanged, this, &ClassTree::chosen);
    connect(m_tree, &ClassBranches::addAsked, this, &ClassTree::btnAddClassClick);
    connect(m_tree, &ClassBranches::renameAsked, this, &ClassTree::btnRenameClassClick);
    connect(m_tree, &ClassBranches::moveAsked, this, &ClassTree::btnMoveClassClick);
    connect(m_tree, &ClassBranches::deleteAsked, this, &ClassTree::btnDeleClassClick);
    // Dropping is still under way; the tree may be read anew only after it.
    connect(
        m_tree, &ClassBranches::dropped, this,
        [this](QTreeWidgetItem *branch, QTreeWidgetItem *target) {
            const qint64 onto = target->data(0, idRole).toLongLong();
            for (const GoodsClass &goodsClass : m_classes)
                if (goodsClass.id == onto)
                    move(branch->data(0, idRole).toLongLong(), goodsClass.key);
        },
        Qt::QueuedConnection);
}

void ClassTree::addButtons(QBoxLayout *column) {
    auto *row = new QHBoxLayout;
    row->setSpacing(0);
    const auto add = [&](const char16_t *name, const char16_t *caption, const char16_t *hint,
                         void (ClassTree::*slot)()) {
        auto *button = new QToolButton(this);
        button->setObjectName(QString::fromUtf16(name));
        button->setText(QString::fromUtf16(caption));
        button->setToolTip(QString::fromUtf16(hint));
        button->setFocusPolicy(Qt::NoFocus);
        connect(button, &QToolButton::clicked, this, slot);
        row->addWidget(button);
    };
    add(u"btnAddClass", u"增加", u"增加下级类别 (Ins)", &ClassTree::btnAddClassClick);
    add(u"btnRenameClass", u"改名", u"修改类别名称 (F2)", &ClassTree::btnRenameClassClick);
    add(u"btnMoveClass", u"移动", u"移动到其他类别下 (F7，也可用鼠标拖动)",
        &ClassTree::btnMoveClassClick);
    add(u"btnDeleClass", u"删除", u"删除类别 (Del)", &ClassTree::btnDeleClassClick);
    row->addStretch();
    column->addLayout(row);
}

void ClassTree::load() {
    const GoodsClass *before = current();
    reload(before != nullptr ? before->id : 0);
}

void ClassTree::reload(qint64 chosenId) {
    {
        const QSignalBlocker quiet(m_tree);
        m_tree->clear();
        m_classes = loadGoodsClasses(m_form->session());
        QHash<qint64, QTreeWidgetItem *> byKey;
        for (const GoodsClass &goodsClass : m_classes) {
            QTreeWidgetItem *parent = byKey.value(goodsClass.parentKey);
            auto *item =
                parent != nullptr ? new QTreeWidgetItem(parent) : new QTreeWidgetItem(m_tree);
            item->setText(0, goodsClass.name);
            item->setToolTip(0, goodsClass.name);
            item->setData(0, idRole, goodsClass.id);
            byKey.insert(goodsClass.key, item);
        }
        m_tree->expandAll();
        QTreeWidgetItem *chosenItem = itemOf(chosenId);
        m_tree->setCurrentItem(chosenItem != nullptr ? chosenItem : m_tree->topLevelItem(0));
    }
    Q_EMIT chosen();
}

QTreeWidgetItem *ClassTree::itemOf(qint64 id) const {
    for (QTreeWidgetItemIterator it(m_tree); *it != nullptr; ++it)
        if ((*it)->data(0, idRole).toLongLong() == id)
            return *it;
    return nullptr;
}

const GoodsClass *ClassTree::current() const {
    const QTreeWidgetItem *item = m_tree->currentItem();
    if (item != nullptr)
        for (const GoodsClass &goodsClass : m_classes)
            if (goodsClass.id == item->data(0, idRole).toLongLong())
                return &goodsClass;
    return nullptr;
}

QString ClassTree::branch() const {
    const GoodsClass *goodsClass = current();
    return goodsClass != nullptr ? goodsClass->code : QString();
}

qint64 ClassTree::classNumber() const {
    const GoodsClass *goodsClass = current();
    return goodsClass != nullptr && !goodsClass->isRoot() ? goodsClass->number : 0;
}

QString ClassTree::askName(const QString &title, const QString &before) {
    QInputDialog dialog(m_form);
    dialog.setWindowTitle(title);
    dialog.setLabelText(QStringLiteral("类别名称"));
    dialog.setTextValue(before);
    dialog.setOkButtonText(QStringLiteral("确定"));
    dialog.setCancelButtonText(QStringLiteral("取消"));
    if (auto *line = dialog.findChild<QLineEdit *>())
        line->setMaxLength(longestName);
    dialog.resize(360, dialog.sizeHint().height());
    return dialog.exec() == QDialog::Accepted ? dialog.textValue() : QString();
}

void ClassTree::btnAddClassClick() {
    const GoodsClass *parent = current();
    if (parent == nullptr)
        return;
    const qint64 key = parent->key;
    const QString name = askName(QStringLiteral("增加“%1”的下级类别").arg(parent->name), {});
    if (name.isEmpty())
        return;
    qint64 added = 0;
    if (m_form->show(addGoodsClass(m_form->session(), m_form->prompter(), key, name, &added)))
        reload(added);
}

void ClassTree::btnRenameClassClick() {
    const GoodsClass *goodsClass = current();
    if (goodsClass == nullptr)
        return;
    const qint64 id = goodsClass->id;
    const QString name = askName(QStringLiteral("修改类别名称"), goodsClass->name);
    if (name.isEmpty() || name == goodsClass->name)
        return;
    if (m_form->show(renameGoodsClass(m_form->session(), m_form->prompter(), id, name)))
        reload(id);
}

/// The same as dragging, by keys: the new place is chosen from a list.
void ClassTree::btnMoveClassClick() {
    const GoodsClass *goodsClass = current();
    if (goodsClass == nullptr)
        return;
    RowList list({u"key", u"name"});
    for (const GoodsClass &other : m_classes)
        if (other.id != goodsClass->id &&
            !(other.code.startsWith(goodsClass->code) && !goodsClass->isRoot()))
            list.add(
                {other.key, QString(static_cast<int>(other.code.size()) / 2, u'　') + other.name});
    TF_GridMsg dialog(m_form->context(), QStringLiteral("TF_Spxxgl_Lbyd"),
                      QStringLiteral("将“%1”移动到").arg(goodsClass->name),
                      {text(u"name", u"类别", 320)}, list.take(), m_form);
    dialog.resize(420, 420);
    const qint64 id = goodsClass->id;
    if (dialog.choose())
        move(id, dialog.grid().current()->integer(u"key"));
}

void ClassTree::move(qint64 id, qint64 newParentKey) {
    m_form->show(moveGoodsClass(m_form->session(), m_form->prompter(), id, newParentKey));
    reload(id);
}

void ClassTree::btnDeleClassClick() {
    const GoodsClass *goodsClass = current();
    if (goodsClass == nullptr)
        return;
    const qint64 parentKey = goodsClass->parentKey;
    qint64 next = 0;
    for (const GoodsClass &other : m_classes)
        if (other.key == parentKey)
            next = other.id;
    if (m_form->show(deleteGoodsClass(m_form->session(), m_form->prompter(), goodsClass->id)))
        reload(next);
}

} // namespace jxc
