#include "retail/forms/tf_posxs_tj.h"

#include "core/session.h"
#include "retail/counter_reports.h"
#include "ui/goods_columns.h"

#include <QLineEdit>

namespace jxc {

TF_Posxs_Tj::TF_Posxs_Tj(const FormContext &context, QWidget *parent)
    : CounterReport(context, QStringLiteral("TF_Posxs_Tj"), QStringLiteral("POS商品销售统计"),
                    parent) {
    searchBox().setPlaceholderText(QStringLiteral("查找 F3：商品、条码"));
    setColumns(afterGoodsName({text(u"gc_name", u"类别", 88),
                               summed(column(u"sl", u"数量", ValueKind::quantity, 96)),
                               summed(column(u"zje", u"金额", ValueKind::amount, 112)),
                               costOnly(summed(column(u"zcb", u"成本", ValueKind::amount, 112))),
                               costOnly(summed(column(u"lr", u"毛利", ValueKind::amount, 112))),
                               costOnly(column(u"lrl", u"毛利率%", ValueKind::percent, 80))}),
               QStringLiteral("goods"));
    addDetail();
    addCommonActions();
    addFilters(PeriodChoice::thisMonth, Filters::all);
}

Rows TF_Posxs_Tj::readFor(const CounterFilter &filter) {
    return counterGoods(session(), filter);
}

void TF_Posxs_Tj::narrow(CounterFilter &filter, const Row &row) const {
    filter.goods = row.text(u"goods");
}

QString TF_Posxs_Tj::nameOf(const Row &row) const {
    return row.text(u"g_name");
}

} // namespace jxc
