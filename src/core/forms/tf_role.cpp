#include "core/forms/tf_role.h"

#include "core/forms/tf_role_add.h"
#include "core/prompter.h"
#include "core/session.h"
#include "ui/command_bar.h"
#include "ui/plain_table.h"

#include <QToolButton>

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
    : Form(context, QStringLiteral("TF_Role"), QStringLiteral("角色权限"), parent)
    , m_table(new PlainTable({{QStringLiteral("角色编号"), 112},
                              {QStringLiteral("所属角色"), 176},
                              {QStringLiteral("权限"), 400}})) {
    auto *bar = new CommandBar;
    bar->add(QStringLiteral("增加"), Qt::Key_Insert, {}, [this] { btnAddClick(); });
    bar->add(QStringLiteral("修改"), Qt::Key_F4, {}, [this] { btnModiClick(); });
    bar->add(QStringLiteral("删除"), Qt::Key_Delete, {}, [this] { btnDeleClick(); });
    bar->addStretch();
    bar->add(QStringLiteral("退出"), {}, {}, [this] { reject(); })
        ->setToolTip(QStringLiteral("Esc"));
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(16, 12, 16, 16);
    column->addWidget(bar);
    column->addWidget(m_table);
    resize(840, 440);
    connect(m_table, &QTableWidget::cellActivated, this, &TF_Role::btnModiClick);
}

void TF_Role::FormActivate() {
    m_roles = listRoles(session());
    QList<PlainTable::Line> lines;
    for (const Role &role : m_roles)
        lines.append({role.id,
                      {role.number, role.name,
                       role.number == administratorNo ? QStringLiteral("全部") : summary(role)}});
    m_table->setLines(lines);
    m_table->setFocus();
}

const Role *TF_Role::current() const {
    for (const Role &role : m_roles)
        if (role.id == m_table->currentId())
            return &role;
    prompter().inform(QStringLiteral("请先选择一条记录！"), informCaption);
    return nullptr;
}

void TF_Role::edit(const Role *role) {
    auto *editor = new TF_Role_Add(context(), role, this);
    editor->setAttribute(Qt::WA_DeleteOnClose);
    connect(editor, &QDialog::accepted, this, &TF_Role::FormActivate);
    editor->showModal();
}

void TF_Role::btnAddClick() {
    edit(nullptr);
}

void TF_Role::btnModiClick() {
    const Role *role = current();
    if (role == nullptr)
        return;
    if (role->number == administratorNo)
        prompter().inform(QStringLiteral("系统管理员角色不能修改或删除！"), informCaption);
    else
        edit(role);
}

void TF_Role::btnDeleClick() {
    const Role *role = current();
    if (role != nullptr && show(deleteRole(session(), prompter(), role->number)))
        FormActivate();
}

} // namespace jxc
