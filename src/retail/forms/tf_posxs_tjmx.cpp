#include "retail/forms/tf_posxs_tjmx.h"

#include "core/session.h"
#include "retail/counter_reports.h"

#include <QLineEdit>

namespace jxc {

TF_Posxs_Tjmx::TF_Posxs_Tjmx(const FormContext &context, QWidget *parent)
    : CounterReport(context, QStringLiteral("TF_Posxs_Tjmx"), QStringLiteral("POS商品销售明细"),
                    parent) {
    searchBox().setPlaceholderText(QStringLiteral("查找 F3：单号、商品"));
    setColumns({text(u"pos_xsrq", u"销售时间", 152), text(u"gl_djh", u"单号", 132),
                text(u"g_sn", u"商品编号", 88), text(u"g_name", u"商品名称", 176),
                text(u"gg_name", u"规格", 88), text(u"dw_name", u"单位", 48),
                summed(column(u"pos_sl", u"数量", ValueKind::quantity, 80)),
                column(u"pos_dj", u"单价", ValueKind::price, 80),
                column(u"pos_dzl", u"折扣", ValueKind::factor, 56),
                summed(column(u"pos_zje", u"金额", ValueKind::amount, 96)),
                costOnly(summed(column(u"pos_zcb", u"成本", ValueKind::amount, 88))),
                costOnly(summed(column(u"lr", u"毛利", ValueKind::amount, 88))),
                text(u"hy_name", u"会员", 72), text(u"a_name", u"收银员", 72),
                hidden(text(u"hy_bh", u"会员编号", 80)), hidden(text(u"ck_name", u"仓库", 88)),
                hidden(text(u"t_ph", u"批号", 104)), hidden(text(u"t_yxq", u"有效期至", 96))},
               QStringLiteral("id"));
    addAction(
        QStringLiteral("btnOpen"), QStringLiteral("打开单据"), Qt::Key_F4,
        [this] { this->context().stage.openDocument(grid().currentText(u"gl_djh")); }, true);
    addCommonActions();
    addFilters(PeriodChoice::today, Filters::all);
    grid().model().setTone([](const Row &row, const ColumnSpec &) {
        return row.flag(u"is_back") ? Tone::danger : Tone::plain;
    });
    connect(&grid(), &Grid::activated, this,
            [this] { this->context().stage.openDocument(grid().currentText(u"gl_djh")); });
}

Rows TF_Posxs_Tjmx::readFor(const CounterFilter &filter) {
    return counterLineList(session(), filter);
}

} // namespace jxc
