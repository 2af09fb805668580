#include "retail/forms/member_transfer_dialogs.h"

#include "retail/member_figures.h"
#include "ui/member_source.h"
#include "ui/number_field.h"
#include "ui/pick_field.h"

namespace jxc {

MemberTransferDialog::MemberTransferDialog(const FormContext &context, const QString &className,
                                           const QString &title, const Member &member,
                                           QWidget *parent)
    : MemberDialog(context, className, title, member, parent) {}

void MemberTransferDialog::addTarget() {
    m_target = addPick("hy_sn", QStringLiteral("转入会员"), memberSource(context()));
    m_target->setPlaceholderText(QStringLiteral("F2：卡号、手机、姓名"));
}

void MemberTransferDialog::addFigureToMove(const char *name, const QString &caption,
                                           ValueKind kind) {
    m_figure = addFigure(name, caption, kind);
    addCardPassword();
}

Outcome MemberTransferDialog::store() {
    if (m_target->code().isEmpty())
        return {Outcome::Kind::refused, QStringLiteral("转入会员必须填写！")};
    return transfer({member().key, m_target->code(), m_figure->value(), cardPassword()});
}

QLineEdit *MemberTransferDialog::refusedField(const QString &text) const {
    if (QLineEdit *password = MemberDialog::refusedField(text))
        return password;
    for (const auto &about : {QStringLiteral("转入会员"), QStringLiteral("转出会员"),
                              QStringLiteral("该会员卡"), QStringLiteral("会员“")})
        if (text.startsWith(about))
            return m_target;
    return m_figure; // too much of it, or none
}

TF_Hygl_Zz::TF_Hygl_Zz(const FormContext &context, const Member &member, QWidget *parent)
    : MemberTransferDialog(context, QStringLiteral("TF_Hygl_Zz"), QStringLiteral("会员转账"),
                           member, parent) {
    addShown(QStringLiteral("卡内金额"), figure(ValueKind::amount, member.value));
    addTarget();
    addFigureToMove("xf_je", QStringLiteral("转账金额"), ValueKind::amount);
}

Outcome TF_Hygl_Zz::transfer(const Transfer &transfer) {
    return transferValue(session(), prompter(), transfer);
}

TF_Hygl_Zz2::TF_Hygl_Zz2(const FormContext &context, const Member &member, QWidget *parent)
    : MemberTransferDialog(context, QStringLiteral("TF_Hygl_Zz2"), QStringLiteral("积分转移"),
                           member, parent) {
    addShown(QStringLiteral("会员积分"), figure(ValueKind::integer, member.points));
    addTarget();
    addFigureToMove("jf_xfjf", QStringLiteral("转移积分"), ValueKind::integer);
}

Outcome TF_Hygl_Zz2::transfer(const Transfer &transfer) {
    return transferPoints(session(), prompter(), transfer);
}

} // namespace jxc
