#include "retail/forms/tf_posxs_hy.h"

#include "core/session.h"
#include "retail/counter_reports.h"

#include <QLineEdit>

namespace jxc {

TF_Posxs_Hy::TF_Posxs_Hy(const FormContext &context, QWidget *parent)
    : CounterReport(context, QStringLiteral("TF_Posxs_Hy"), QStringLiteral("会员消费统计"),
                    parent) {
    searchBox().setPlaceholderText(QStringLiteral("查找 F3：卡号、姓名、手机"));
    setColumns({text(u"hy_bh", u"会员卡号", 112), text(u"hy_name", u"会员姓名", 120),
                text(u"hy_mobile", u"移动电话", 120), text(u"hl_name", u"会员级别", 104),
                summed(column(u"cs", u"消费次数", ValueKind::integer, 88)),
                summed(column(u"thcs", u"退货次数", ValueKind::integer, 88)),
                summed(column(u"zje", u"消费金额", ValueKind::amount, 120)),
                summed(column(u"pos_bcjf", u"积分", ValueKind::integer, 96)),
                summed(column(u"pos_jfye", u"返还金额", ValueKind::amount, 104)),
                column(u"last", u"最近消费", ValueKind::date, 104)},
               QStringLiteral("hy_sn"));
    addDetail();
    addCommonActions();
    addFilters(PeriodChoice::thisMonth, Filters::all);
}

Rows TF_Posxs_Hy::readFor(const CounterFilter &filter) {
    return counterMembers(session(), filter);
}

void TF_Posxs_Hy::narrow(CounterFilter &filter, const Row &row) const {
    filter.member = row.text(u"hy_sn");
}

QString TF_Posxs_Hy::nameOf(const Row &row) const {
    return row.text(u"hy_name");
}

} // namespace jxc
