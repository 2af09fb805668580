#include "retail/forms/counter_dialogs.h"

#include "core/login.h"
#include "core/prompter.h"
#include "core/rights.h"
#include "core/session.h"
#include "ui/formats.h"
#include "ui/number_field.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>

namespace jxc {

namespace {

/// A dialog of a few fields, Enter OK and Esc Cancel.
class SmallDialog : public QDialog {
public:
    SmallDialog(const QString &title, const QString &note, QWidget *parent)
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

    void addRow(const QString &caption, QWidget *field) { m_form->addRow(caption, field); }

    /// Runs `check` at OK and closes when it is content.
    void addButtons(bool mayLeave, std::function<bool()> check) {
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

    void reject() override {
        if (m_mayLeave)
            QDialog::reject();
    }

private:
    QFormLayout *m_form;
    bool m_mayLeave = true;
};

QLineEdit *passwordField(QWidget *parent) {
    auto *field = new QLineEdit(parent);
    field->setEchoMode(QLineEdit::Password);
    field->setObjectName(QStringLiteral("password"));
    return field;
}

/// Passwords are compared as the login does, in a session that is forgotten again.
bool isPassword(const FormContext &context, const QString &name, const QString &password) {
    Session other = context.session;
    return authenticate(other, name, password);
}

const QString wrongPassword = QStringLiteral("用户密码不正确，请重新输入！");

} // namespace

std::optional<Decimal> askFigure(const FormContext &context, const QString &caption, ValueKind kind,
                                 Decimal now, QWidget *parent) {
    SmallDialog dialog(caption, caption, parent);
    dialog.setObjectName(QStringLiteral("askFigure"));
    auto *field = new NumberField(kind, Formats(context.session.parameters), &dialog);
    field->setObjectName(QStringLiteral("figure"));
    field->setValue(now);
    field->selectAll();
    dialog.addRow({}, field);
    dialog.addButtons(true, [] { return true; });
    field->setFocus();
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    return field->value();
}

QString askText(const QString &caption, const QString &note, QWidget *parent) {
    SmallDialog dialog(caption, note, parent);
    dialog.setObjectName(QStringLiteral("askText"));
    auto *field = new QLineEdit(&dialog);
    field->setObjectName(QStringLiteral("text"));
    dialog.addRow({}, field);
    dialog.addButtons(true, [] { return true; });
    field->setFocus();
    return dialog.exec() == QDialog::Accepted ? field->text().trimmed() : QString();
}

QString askSecondOperator(const FormContext &context, const QString &what, int right,
                          QWidget *parent) {
    SmallDialog dialog(QStringLiteral("授权"),
                       QStringLiteral("您没有权限进行%1\n请有权限的操作员输入密码：").arg(what),
                       parent);
    dialog.setObjectName(QStringLiteral("secondOperator"));
    auto *who = new QComboBox(&dialog);
    who->setObjectName(QStringLiteral("operator"));
    for (const QString &name : operatorNames(context.session))
        if (name != context.session.currentOperatorName &&
            userHasRight(context.session, name, u"xsgl", right))
            who->addItem(name);
    auto *password = passwordField(&dialog);
    dialog.addRow(QStringLiteral("操作员"), who);
    dialog.addRow(QStringLiteral("密码"), password);
    dialog.addButtons(true, [&] {
        if (!who->currentText().isEmpty() &&
            isPassword(context, who->currentText(), password->text()))
            return true;
        context.prompter.inform(wrongPassword, informCaption);
        password->selectAll();
        return false;
    });
    password->setFocus();
    return dialog.exec() == QDialog::Accepted ? who->currentText() : QString();
}

QString allowedBy(const FormContext &context, int right, const QString &what, QWidget *parent) {
    if (hasRight(context.session, u"xsgl", right))
        return context.session.currentOperatorName;
    return askSecondOperator(context, what, right, parent);
}

void lockCounter(const FormContext &context, QWidget *parent) {
    SmallDialog dialog(
        QStringLiteral("收银台已锁定"),
        QStringLiteral("收银员：%1\n输入密码后继续。").arg(context.session.currentOperatorName),
        parent);
    dialog.setObjectName(QStringLiteral("locked"));
    dialog.setWindowFlag(Qt::WindowCloseButtonHint, false);
    auto *password = passwordField(&dialog);
    dialog.addRow(QStringLiteral("密码"), password);
    dialog.addButtons(false, [&] {
        if (isPassword(context, context.session.currentOperatorName, password->text()))
            return true;
        context.prompter.inform(wrongPassword, informCaption);
        password->selectAll();
        return false;
    });
    password->setFocus();
    dialog.exec();
}

} // namespace jxc
