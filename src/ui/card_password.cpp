#include "ui/card_password.h"

#include "core/prompter.h"
#include "ui/small_dialog.h"

#include <QLineEdit>

namespace jxc {

std::optional<QString> askCardPassword(const FormContext &context, const QString &memberName,
                                       const std::function<bool(const QString &)> &isRight,
                                       QWidget *parent) {
    SmallDialog dialog(QStringLiteral("会员密码"),
                       QStringLiteral("请会员“%1”输入会员卡的密码：").arg(memberName), parent);
    dialog.setObjectName(QStringLiteral("cardPassword"));
    QLineEdit *password = dialog.addPassword(QStringLiteral("密码"));
    dialog.addButtons(true, [&] {
        if (isRight(password->text()))
            return true;
        context.prompter.inform(QStringLiteral("会员密码不正确！"), informCaption);
        password->selectAll();
        return false;
    });
    password->setFocus();
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    return password->text();
}

} // namespace jxc
