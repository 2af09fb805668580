#include "retail/forms/counter_dialogs.h"

#include "core/login.h"
#include "core/prompter.h"
#include "core/rights.h"
#include "core/session.h"
#include "ui/formats.h"
#include "ui/number_field.h"
#include "ui/small_dialog.h"

#include <QComboBox>

namespace jxc {

namespace {

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
    dialog.addRow(QStringLiteral("操作员"), who);
    QLineEdit *password = dialog.addPassword(QStringLiteral("密码"));
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
    QLineEdit *password = dialog.addPassword(QStringLiteral("密码"));
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
