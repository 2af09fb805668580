#include "ui/grid_msg.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>

namespace jxc {

TF_GridMsg::TF_GridMsg(const FormContext &context, const QString &name, const QString &title,
                       const ColumnSpecs &columns, Rows rows, QWidget *parent)
    : Form(context, name, title, parent)
    , m_grid(new Grid(context, name, columns, this))
    , m_message(new QLabel(this)) {
    m_message->setWordWrap(true);
    m_message->hide();
    m_grid->setTitle(title);
    m_grid->setRows(std::move(rows));
    auto *buttons = new QDialogButtonBox(this);
    auto *ok = buttons->addButton(QStringLiteral("确定 Enter"), QDialogButtonBox::AcceptRole);
    auto *cancel = buttons->addButton(QStringLiteral("取消 Esc"), QDialogButtonBox::RejectRole);
    ok->setObjectName(QStringLiteral("btnOK"));
    cancel->setObjectName(QStringLiteral("btnCancel"));
    ok->setDefault(true);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(12, 12, 12, 12);
    layout->setSpacing(8);
    layout->addWidget(m_message);
    layout->addWidget(m_grid, 1);
    layout->addWidget(buttons);
    connect(ok, &QPushButton::clicked, this, &TF_GridMsg::btnOKClick);
    connect(cancel, &QPushButton::clicked, this, &TF_GridMsg::reject);
    connect(m_grid, &Grid::activated, this, &TF_GridMsg::btnOKClick);
    resize(880, 420);
    m_grid->setFocus();
}

void TF_GridMsg::setMessage(const QString &message) {
    m_message->setText(message);
    m_message->setVisible(!message.isEmpty());
}

void TF_GridMsg::setTickable() {
    m_grid->model().setTickable(true);
    setMessage(QStringLiteral("空格勾选，Ctrl+A 全选，回车确定；没有勾选时取当前行。"));
    auto *all = new QShortcut(QKeySequence::SelectAll, this);
    connect(all, &QShortcut::activated, this, [this] { m_grid->model().tickAll(true); });
}

std::vector<const Row *> TF_GridMsg::chosen() const {
    std::vector<const Row *> rows = m_grid->model().tickedRows();
    if (rows.empty() && m_grid->current() != nullptr)
        rows.push_back(m_grid->current());
    return rows;
}

void TF_GridMsg::btnOKClick() {
    m_flag = QStringLiteral("1");
    accept();
}

bool TF_GridMsg::choose() {
    m_flag.clear();
    exec();
    return m_flag == u"1" && !chosen().empty();
}

} // namespace jxc
