#include "ui/small_dialog.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace jxc {

SmallDialog::SmallDialog(const QString &title, const QString &note, QWidget *parent)
    : QDialog(parent)
    , m_form(new QFormLayout(this)) {
    setWindowTitle(title);
    setMinimumWidth(380);
    m_form->setContentsMargins(20, 20, 20, 16);
    m_form->setSpacing(12);
    auto *words = new QLabel(note, this);
    words->setWordWrap(true);
    m_form->addRow(words);
}

void SmallDialog::addRow(const QString &caption, QWidget *field) {
    m_form->addRow(caption, field);
}

QLineEdit *SmallDialog::addPassword(const QString &caption) {
    auto *field = new QLineEdit(this);
    field->setEchoMode(QLineEdit::Password);
    field->setObjectName(QStringLiteral("password"));
    addRow(caption, field);
    return field;
}

void SmallDialog::addButtons(bool mayLeave, std::function<bool()> check) {
    auto *buttons = new QDialogButtonBox(this);
    auto *ok = buttons->addButton(QStringLiteral("确定 Enter"), QDialogButtonBox::AcceptRole);
    ok->setDefault(true);
    m_form->addRow(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, [this, check = std::move(check)] {
        if (check())
            accept();
    });
    m_mayLeave = mayLeave;
    if (!mayLeave)
        return;
    buttons->addButton(QStringLiteral("取消 Esc"), QDialogButtonBox::RejectRole)
        ->setAutoDefault(false);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

void SmallDialog::reject() {
    if (m_mayLeave)
        QDialog::reject();
}

} // namespace jxc
