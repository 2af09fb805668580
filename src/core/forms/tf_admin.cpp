#include "core/forms/tf_admin.h"

#include "core/forms/tf_admin_add.h"
#include "core/prompter.h"
#include "core/session.h"
#include "ui/row_list.h"

#include <QAction>
#include <QLineEdit>

namespace jxc {

namespace {

ColumnSpecs operatorColumns() {
    ColumnSpec limit = column(u"a_zreoje", u"最多抹零金额", ValueKind::amount, 136);
    limit.words = {{QStringLiteral("0"), QStringLiteral("不限制")}};
    return {text(u"a_sn", u"编号", 112), text(u"a_name", u"操作员", 200),
            text(u"r_name", u"所属角色", 200), limit};
}

} // namespace

TF_Admin::TF_Admin(const FormContext &context, QWidget *parent)
    : ListForm(context, QStringLiteral("TF_Admin"), QStringLiteral("操作员设置"), parent) {
    searchBox().setPlaceholderText(QStringLiteral("查找 F3：编号、操作员、角色"));
    setColumns(operatorColumns(), QStringLiteral("id"));
    addActions();
    connect(&grid(), &Grid::activated, this, &TF_Admin::btnModiClick);
    resize(1024, 560);
}

void TF_Admin::addActions() {
    const auto add = [this](const char *name, const QString &caption, const QKeySequence &key,
                            void (TF_Admin::*run)(), bool needsRow) {
        return addAction(
            QString::fromLatin1(name), caption, key, [this, run] { (this->*run)(); }, needsRow);
    };
    m_forAdministrator << add("btnAdd", QStringLiteral("增加"), Qt::Key_Insert,
                              &TF_Admin::btnAddClick, false);
    add("btnModi", QStringLiteral("修改"), Qt::Key_F4, &TF_Admin::btnModiClick, true);
    m_forAdministrator << add("btnDele", QStringLiteral("删除"), Qt::Key_Delete,
                              &TF_Admin::btnDeleClick, true)
                       << add("btnCopy", QStringLiteral("复制"), Qt::CTRL | Qt::Key_C,
                              &TF_Admin::btnCopyClick, true)
                       << add("btnPaste", QStringLiteral("粘贴"), Qt::CTRL | Qt::Key_V,
                              &TF_Admin::btnPasteClick, false)
                       << addAction(
                              QStringLiteral("btnRole"), QStringLiteral("角色权限"), Qt::Key_F6,
                              [this] { context().stage.openForm(QStringLiteral("TF_Role"), {}); });
    addCommonActions();
}

void TF_Admin::FormActivate() {
    const bool isAdministrator = session().currentRoleNo == administratorNo;
    for (QAction *action : m_forAdministrator)
        action->setEnabled(isAdministrator);
    ListForm::FormActivate();
}

Rows TF_Admin::read(const QString &search) {
    RowList list({u"id", u"a_sn", u"a_name", u"r_name", u"a_zreoje"});
    for (const Operator &one : listOperators(session()))
        list.add({one.id, one.number, one.name, one.roleName, one.roundingLimit});
    return list.takeMatching(search);
}

qint64 TF_Admin::currentId() const {
    return grid().currentText(u"id").toLongLong();
}

void TF_Admin::edit(qint64 id) {
    auto *editor = new TF_Admin_Add(context(), id, this);
    editor->setAttribute(Qt::WA_DeleteOnClose);
    connect(editor, &QDialog::accepted, this, &TF_Admin::refresh);
    editor->showModal();
}

void TF_Admin::btnAddClick() {
    edit(0);
}

void TF_Admin::btnModiClick() {
    edit(currentId());
}

void TF_Admin::btnDeleClick() {
    if (show(deleteOperator(session(), prompter(), grid().currentText(u"a_sn"))))
        refresh();
}

/// The text goes to the clipboard as in every list, and the operator is kept for pasting.
void TF_Admin::btnCopyClick() {
    grid().copySelection();
    m_copied = readOperator(session(), currentId());
}

void TF_Admin::btnPasteClick() {
    if (!m_copied)
        prompter().inform(QStringLiteral("请先复制一个操作员！"), informCaption);
    else if (show(pasteOperator(session(), prompter(), *m_copied)))
        refresh();
}

} // namespace jxc
