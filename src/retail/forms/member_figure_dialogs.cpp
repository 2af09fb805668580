#include "retail/forms/member_figure_dialogs.h"

#include "retail/member_figures.h"
#include "ui/number_field.h"

namespace jxc {

TF_Hygl_Jf::TF_Hygl_Jf(const FormContext &context, const Member &member, QWidget *parent)
    : MemberDialog(context, QStringLiteral("TF_Hygl_Jf"), QStringLiteral("修改积分"), member,
                   parent) {
    addShown(QStringLiteral("会员积分"), figure(ValueKind::integer, member.points));
    addShown(QStringLiteral("累计积分"), figure(ValueKind::integer, member.allPoints));
    m_points = addFigure("hy_jf", QStringLiteral("增加积分"), ValueKind::integer, true);
    m_points->setPlaceholderText(QStringLiteral("负数减少"));
}

Outcome TF_Hygl_Jf::store() {
    return correctPoints(session(), prompter(), member().key, m_points->value());
}

TF_Hygl_Je::TF_Hygl_Je(const FormContext &context, const Member &member, QWidget *parent)
    : MemberDialog(context, QStringLiteral("TF_Hygl_Je"), QStringLiteral("修改消费金额"), member,
                   parent) {
    addShown(QStringLiteral("累计消费"), figure(ValueKind::amount, member.spent));
    m_amount = addAmount("hy_zje", QStringLiteral("增加金额"), true);
    m_amount->setPlaceholderText(QStringLiteral("负数减少"));
}

Outcome TF_Hygl_Je::store() {
    return correctSpending(session(), prompter(), member().key, m_amount->value());
}

} // namespace jxc
