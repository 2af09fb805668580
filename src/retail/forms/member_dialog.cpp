#include "retail/forms/member_dialog.h"

#include "core/session.h"
#include "retail/member_card.h"
#include "ui/formats.h"

namespace jxc {

MemberDialog::MemberDialog(const FormContext &context, const QString &className,
                           const QString &title, Member member, QWidget *parent)
    : FieldEditor(context, className, title, parent)
    , m_member(std::move(member)) {
    addShown(QStringLiteral("会员"), m_member.number + u'　' + m_member.name);
}

void MemberDialog::addCardPassword() {
    if (!m_member.password.isEmpty())
        m_password = addPassword("hy_mm", QStringLiteral("会员密码"), memberPasswordLength);
}

QString MemberDialog::cardPassword() const {
    return m_password == nullptr ? QString() : m_password->text();
}

QString MemberDialog::figure(ValueKind kind, Decimal value) const {
    return Formats(session().parameters).text(kind, value);
}

QLineEdit *MemberDialog::refusedField(const QString &text) const {
    return m_password != nullptr && text.startsWith(QStringLiteral("会员密码")) ? m_password
                                                                                : nullptr;
}

bool MemberDialog::save() {
    if (!commitPicks())
        return false;
    const Outcome outcome = store();
    if (show(outcome))
        return true;
    if (QLineEdit *field = refusedField(outcome.text))
        beginAt(field);
    else
        focusRefused(outcome.text);
    return false;
}

} // namespace jxc
