#include "core/forms/tf_role_add.h"

#include "core/prompter.h"
#include "core/session.h"
#include "ui/action_bar.h"

#include <QFormLayout>
#include <QLineEdit>
#include <QTreeWidget>

namespace jxc {

namespace {

QTreeWidgetItem *groupItem(const RightsGroup &group, const std::vector<bool> &granted) {
    auto *parent = new QTreeWidgetItem({group.caption});
    parent->setFlags(parent->flags() | Qt::ItemIsUserCheckable | Qt::ItemIsAutoTristate);
    parent->setToolTip(0, QStringLiteral("全选"));
    for (qsizetype i = 0; i < group.rights.size(); ++i) {
        auto *child = new QTreeWidgetItem(parent, {group.rights[i]});
        child->setFlags(child->flags() | Qt::ItemIsUserCheckable);
        child->setCheckState(0, granted[static_cast<size_t>(i)] ? Qt::Checked : Qt::Unchecked);
    }
    return parent;
}

} // namespace

TF_Role_Add::TF_Role_Add(const FormContext &context, const Role *role, QWidget *parent)
    : PlainEditor(context, QStringLiteral("TF_Role_Add"),
                  role == nullptr ? QStringLiteral("增加角色") : QStringLiteral("修改角色"), parent)
    , m_id(role == nullptr ? 0 : role->id)
    , m_name(new QLineEdit(role == nullptr ? QString() : role->name))
    , m_tree(new QTreeWidget) {
    m_name->setObjectName(QStringLiteral("r_name"));
    m_name->setMaxLength(32);
    m_tree->setObjectName(QStringLiteral("treeRights"));
    m_tree->setHeaderHidden(true);
    fields()->addRow(QStringLiteral("角色名称"), m_name);
    auto *box = new QWidget;
    auto *column = new QVBoxLayout(box);
    column->setContentsMargins(0, 0, 0, 0);
    auto *bar = new ActionBar(box);
    bar->add(QStringLiteral("btnAll"), QStringLiteral("全选本组"), Qt::Key_F7,
             [this] { setGroup(Qt::Checked); });
    bar->add(QStringLiteral("btnNone"), QStringLiteral("全不选本组"), Qt::Key_F8,
             [this] { setGroup(Qt::Unchecked); });
    column->addWidget(bar);
    column->addWidget(m_tree);
    box->setFocusPolicy(Qt::TabFocus);
    box->setFocusProxy(m_tree);
    addBelowFields(box);
    fillTree(role == nullptr ? noRights() : role->rights);
    resize(480, 600);
}

void TF_Role_Add::fillTree(const GrantedRights &rights) {
    const auto &groups = rightsTree();
    for (size_t i = 0; i < groups.size(); ++i)
        m_tree->addTopLevelItem(groupItem(groups[i], rights[i]));
    m_tree->setCurrentItem(m_tree->topLevelItem(0));
}

void TF_Role_Add::setGroup(Qt::CheckState state) {
    QTreeWidgetItem *item = m_tree->currentItem();
    if (item == nullptr)
        return;
    if (item->parent() != nullptr)
        item = item->parent();
    item->setCheckState(0, state);
    item->setExpanded(true);
}

GrantedRights TF_Role_Add::rights() const {
    GrantedRights rights = noRights();
    for (int i = 0; i < m_tree->topLevelItemCount(); ++i) {
        const QTreeWidgetItem *group = m_tree->topLevelItem(i);
        for (int k = 0; k < group->childCount(); ++k)
            rights[static_cast<size_t>(i)][static_cast<size_t>(k)] =
                group->child(k)->checkState(0) == Qt::Checked;
    }
    return rights;
}

QStringList TF_Role_Add::content() const {
    QString flags;
    for (const auto &group : rights())
        for (const bool granted : group)
            flags += granted ? u'1' : u'0';
    return {m_name->text(), flags};
}

bool TF_Role_Add::save() {
    return show(m_id == 0 ? addRole(session(), prompter(), m_name->text(), rights())
                          : modifyRole(session(), prompter(), m_id, m_name->text(), rights()));
}

} // namespace jxc
