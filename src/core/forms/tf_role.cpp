#include "core/forms/tf_role.h"

#include "core/forms/tf_role_add.h"
#include "core/prompter.h"
#include "core/session.h"
#include "ui/row_list.h"

#include <QLineEdit>
#include <algorithm>

namespace jxc {

namespace {

/// How many rights of each group a role has: "采购管理 12/17".
QString summary(const Role &role) {
    QStringList parts;
    for (size_t i = 0; i < rightsTree().size(); ++i) {
        const auto granted = std::ranges::count(role.rights[i], true);
        if (granted > 0)
            parts << QStringLiteral("%1 %2/%3")
                         .arg(rightsTree()[i].caption)
                         .arg(granted)
                         .arg(role.rights[i].size());
    }
    return parts.join(QStringLiteral("，"));
}

} // namespace

TF_Role::TF_Role(const FormContext &context, QWidget *parent)
    : ListForm(context, QStringLiteral("TF_Role"), QStringLiteral("角色权限"), parent) {
    searchBox().setPlaceholderText(QStringLiteral("查找 F3：编号、角色、权限"));
    setColumns({text(u"r_sn", u"角色编号", 112), text(u"r_name", u"所属角色", 176),
                text(u"rights", u"权限", 560)},
               QStringLiteral("id"));
    addAction(QStringLiteral("btnAdd"), QStringLiteral("增加"), Qt::Key_Insert,
              [this] { btnAddClick(); });
    addAction(
        QStringLiteral("btnModi"), QStringLiteral("修改"), Qt::Key_F4, [this] { btnModiClick(); },
        true);
    addAction(
        QStringLiteral("btnDele"), QStringLiteral("删除"), Qt::Key_Delete,
        [this] { btnDeleClick(); }, true);
    addCommonActions();
    connect(&grid(), &Grid::activated, this, &TF_Role::btnModiClick);
    resize(1024, 560);
}

Rows TF_Role::read(const QString &search) {
    m_roles = listRoles(session());
    RowList list({u"id", u"r_sn", u"r_name", u"rights"});
    for (const Role &role : m_roles)
        list.add({role.id, role.number, role.name,
                  role.number == administratorNo ? QStringLiteral("全部") : summary(role)});
    return list.takeMatching(search);
}

void TF_Role::edit(const Role *role) {
    auto *editor = new TF_Role_Add(context(), role, this);
    editor->setAttribute(Qt::WA_DeleteOnClose);
    connect(editor, &QDialog::accepted, this, &TF_Role::refresh);
    editor->showModal();
}

void TF_Role::btnAddClick() {
    edit(nullptr);
}

void TF_Role::btnModiClick() {
    const qint64 id = grid().currentText(u"id").toLongLong();
    const auto role = std::ranges::find(m_roles, id, &Role::id);
    if (role == m_roles.end())
        tellNoRow(prompter());
    else if (role->number == administratorNo)
        prompter().inform(QStringLiteral("系统管理员角色不能修改或删除！"), informCaption);
    else
        edit(&*role);
}

void TF_Role::btnDeleClick() {
    if (show(deleteRole(session(), prompter(), grid().currentText(u"r_sn"))))
        refresh();
}

} // namespace jxc
