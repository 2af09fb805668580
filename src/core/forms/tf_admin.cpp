#include "core/forms/tf_admin.h"

#include "base/numberformat.h"
#include "core/forms/tf_admin_add.h"
#include "core/prompter.h"
#include "core/session.h"
#include "ui/command_bar.h"
#include "ui/plain_table.h"

#include <QToolButton>

namespace jxc {

TF_Admin::TF_Admin(const FormContext &context, QWidget *parent)
    : Form(context, QStringLiteral("TF_Admin"), QStringLiteral("操作员设置"), parent)
    , m_table(new PlainTable({{QStringLiteral("编号"), 112},
                              {QStringLiteral("操作员"), 200},
                              {QStringLiteral("所属角色"), 200},
                              {QStringLiteral("最多抹零金额"), 120, true}})) {
    auto *bar = new CommandBar;
    const auto key = [](auto keys) { return QKeySequence(keys); };
    m_forAdministrator << bar->add(QStringLiteral("增加"), key(Qt::Key_Insert), {},
                                   [this] { btnAddClick(); });
    bar->add(QStringLiteral("修改"), key(Qt::Key_F4), {}, [this] { btnModiClick(); });
    m_forAdministrator << bar->add(QStringLiteral("删除"), key(Qt::Key_Delete), {},
                                   [this] { btnDeleClick(); });
    m_forAdministrator << bar->add(QStringLiteral("复制"), key(Qt::CTRL | Qt::Key_C), {},
                                   [this] { btnCopyClick(); });
    m_forAdministrator << bar->add(QStringLiteral("粘贴"), key(Qt::CTRL | Qt::Key_V), {},
                                   [this] { btnPasteClick(); });
    m_forAdministrator << bar->add(
        QStringLiteral("角色权限"), key(Qt::Key_F6), QStringLiteral("roles"),
        [this] { this->context().stage.openForm(QStringLiteral("TF_Role"), {}); });
    bar->addStretch();
    bar->add(QStringLiteral("退出"), {}, {}, [this] { reject(); })
        ->setToolTip(QStringLiteral("Esc"));
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(16, 12, 16, 16);
    column->addWidget(bar);
    column->addWidget(m_table);
    resize(760, 480);
    connect(m_table, &QTableWidget::cellActivated, this, &TF_Admin::btnModiClick);
}

void TF_Admin::FormActivate() {
    const bool isAdministrator = session().currentRoleNo == administratorNo;
    for (QToolButton *button : m_forAdministrator)
        button->setEnabled(isAdministrator);
    m_operators = listOperators(session());
    QList<PlainTable::Line> lines;
    for (const Operator &one : m_operators)
        lines.append({one.id,
                      {one.number, one.name, one.roleName,
                       one.roundingLimit.isZero() ? QString() : one.roundingLimit.toText()}});
    m_table->setLines(lines);
    m_table->setFocus();
}

const Operator *TF_Admin::current() const {
    for (const Operator &one : m_operators)
        if (one.id == m_table->currentId())
            return &one;
    prompter().inform(QStringLiteral("请先选择一条记录！"), informCaption);
    return nullptr;
}

void TF_Admin::edit(qint64 id) {
    auto *editor = new TF_Admin_Add(context(), id, this);
    editor->setAttribute(Qt::WA_DeleteOnClose);
    connect(editor, &QDialog::accepted, this, &TF_Admin::FormActivate);
    editor->showModal();
}

void TF_Admin::btnAddClick() {
    edit(0);
}

void TF_Admin::btnModiClick() {
    if (const Operator *one = current())
        edit(one->id);
}

void TF_Admin::btnDeleClick() {
    const Operator *one = current();
    if (one != nullptr && show(deleteOperator(session(), prompter(), one->number)))
        FormActivate();
}

void TF_Admin::btnCopyClick() {
    if (const Operator *one = current())
        m_copied = readOperator(session(), one->id);
}

void TF_Admin::btnPasteClick() {
    if (!m_copied)
        prompter().inform(QStringLiteral("请先复制一个操作员！"), informCaption);
    else if (show(pasteOperator(session(), prompter(), *m_copied)))
        FormActivate();
}

} // namespace jxc
