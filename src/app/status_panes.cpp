#include "app/status_panes.h"

#include "core/account_set.h"
#include "ui/theme.h"

#include <QLabel>
#include <QPushButton>

namespace jxc {

namespace {

QPushButton *link(const QString &name, const QString &hint) {
    auto *button = new QPushButton;
    button->setObjectName(name);
    button->setFlat(true);
    button->setFocusPolicy(Qt::NoFocus);
    button->setCursor(Qt::PointingHandCursor);
    button->setToolTip(hint);
    return button;
}

} // namespace

StatusPanes::StatusPanes(QWidget *parent)
    : QFrame(parent)
    , m_product(new QLabel(productWord + QStringLiteral("软件")))
    , m_accountSet(new QLabel)
    , m_slogan(new QLabel)
    , m_help(new QLabel(QStringLiteral("按F1键查看帮助文档  ")))
    , m_operator(link(QStringLiteral("paneOperator"), QStringLiteral("修改密码")))
    , m_backup(link(QStringLiteral("paneBackup"), QStringLiteral("备份/恢复"))) {
    setObjectName(QStringLiteral("statusPanes"));
    setStyleSheet(QStringLiteral(
        "QPushButton { border: none; background: transparent; padding: 0; min-width: 0; }"
        "QPushButton:hover { text-decoration: underline; }"));
    for (QLabel *label : {m_product, m_accountSet, m_slogan, m_help})
        label->setProperty("quiet", true);
    m_slogan->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_slogan->setAlignment(Qt::AlignCenter);
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(16, 0, 16, 0);
    row->setSpacing(24);
    row->addWidget(m_product);
    row->addWidget(m_operator);
    row->addWidget(m_accountSet);
    row->addWidget(m_slogan, 1);
    row->addWidget(m_backup);
    row->addWidget(m_help);
    setFixedHeight(32);
    connect(m_operator, &QPushButton::clicked, this, &StatusPanes::operatorClicked);
    connect(m_backup, &QPushButton::clicked, this, &StatusPanes::backupClicked);
}

void StatusPanes::setOperator(const QString &name) {
    m_operator->setText(QStringLiteral("操作员：") + name);
}

void StatusPanes::setAccountSet(const QString &name) {
    m_accountSet->setText(QStringLiteral("当前帐套:") + name);
}

void StatusPanes::setSlogan(const QString &text) {
    m_slogan->setText(text);
}

void StatusPanes::setBackup(const QString &text, bool isOverdue) {
    m_backup->setText(text);
    const Theme &theme = Theme::current();
    m_backup->setStyleSheet(
        QStringLiteral("color: %1;").arg((isOverdue ? theme.danger : theme.textQuiet).name()));
}

QStringList StatusPanes::texts() const {
    return {m_product->text(), m_operator->text(), m_accountSet->text(),
            m_slogan->text(),  m_backup->text(),   m_help->text()};
}

} // namespace jxc
