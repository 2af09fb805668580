#include "retail/forms/member_card_dialogs.h"

#include "retail/member_card.h"

namespace jxc {

namespace {

constexpr int mobileLength = 16, cardLength = 32;

} // namespace

TF_Hygl_Pwd::TF_Hygl_Pwd(const FormContext &context, const Member &member, QWidget *parent)
    : MemberDialog(context, QStringLiteral("TF_Hygl_Pwd"), QStringLiteral("会员密码"), member,
                   parent) {
    m_password = addPassword("hy_mm", QStringLiteral("新密码"), memberPasswordLength);
    m_password->setPlaceholderText(QStringLiteral("空白取消密码"));
    m_again = addPassword("hy_mm2", QStringLiteral("再输一次"), memberPasswordLength);
}

Outcome TF_Hygl_Pwd::store() {
    return setMemberPassword(session(), prompter(), member().key, m_password->text(),
                             m_again->text());
}

QLineEdit *TF_Hygl_Pwd::refusedField(const QString &) const {
    return m_again;
}

TF_Hygl_Mobile::TF_Hygl_Mobile(const FormContext &context, const Member &member, QWidget *parent)
    : MemberDialog(context, QStringLiteral("TF_Hygl_Mobile"), QStringLiteral("修改手机"), member,
                   parent) {
    m_mobile = addText("hy_mobile", QStringLiteral("移动电话"), mobileLength);
    m_mobile->setText(member.mobile);
    m_mobile->selectAll();
}

Outcome TF_Hygl_Mobile::store() {
    return setMemberMobile(session(), prompter(), member().key, m_mobile->text().trimmed());
}

TF_Hygl_Hk::TF_Hygl_Hk(const FormContext &context, const Member &member, QWidget *parent)
    : MemberDialog(context, QStringLiteral("TF_Hygl_Hk"), QStringLiteral("会员换卡"), member,
                   parent) {
    m_number = addText("hy_bh", QStringLiteral("新卡号"), cardLength);
    addCardPassword();
}

Outcome TF_Hygl_Hk::store() {
    return changeMemberCard(session(), prompter(), member().key, m_number->text(), cardPassword());
}

QLineEdit *TF_Hygl_Hk::refusedField(const QString &text) const {
    QLineEdit *field = MemberDialog::refusedField(text);
    return field == nullptr ? m_number : field;
}

} // namespace jxc
