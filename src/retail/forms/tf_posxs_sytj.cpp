#include "retail/forms/tf_posxs_sytj.h"

#include "core/session.h"
#include "retail/forms/tf_posxs_jbgl.h"
#include "retail/till_figures.h"
#include "ui/row_list.h"

#include <QLineEdit>

namespace jxc {

namespace {

ColumnSpec amount(const char16_t *field, const char16_t *caption) {
    return summed(column(field, caption, ValueKind::amount, 84));
}

} // namespace

TF_Posxs_Sytj::TF_Posxs_Sytj(const FormContext &context, QWidget *parent)
    : CounterReport(context, QStringLiteral("TF_Posxs_Sytj"), QStringLiteral("收银员收银统计"),
                    parent) {
    searchBox().setPlaceholderText(QStringLiteral("查找 F3：收银员"));
    setColumns({text(u"a_name", u"收银员", 80),
                summed(column(u"count", u"笔数", ValueKind::integer, 56)),
                amount(u"pos_yfje", u"应付金额"), amount(u"pos_sfje", u"实付金额"),
                amount(u"pos_zlje", u"找零金额"), amount(u"pos_xj", u"现金"),
                amount(u"pos_czk", u"储值卡"), amount(u"pos_yhk", u"银行卡"),
                amount(u"pos_djq", u"代金券"), amount(u"pos_wxje", u"微信"),
                amount(u"pos_zfbje", u"支付宝"), hidden(amount(u"pos_mlje", u"抹零金额")),
                hidden(amount(u"owed", u"挂账")),
                hidden(summed(column(u"backs", u"退货笔数", ValueKind::integer, 72))),
                amount(u"returned", u"退货"), amount(u"in", u"入款"), amount(u"out", u"出款"),
                amount(u"recharged", u"充值现金"), amount(u"due", u"应交现金")},
               QStringLiteral("a_name"));
    addDetail();
    addAction(QStringLiteral("btnShifts"), QStringLiteral("交班记录"), Qt::Key_F9,
              [this] { btnShiftsClick(); });
    addCommonActions();
    addFilters(PeriodChoice::today, Filters::cashier);
}

Rows TF_Posxs_Sytj::readFor(const CounterFilter &filter) {
    RowList list({u"a_name", u"count", u"pos_yfje", u"pos_sfje", u"pos_zlje", u"pos_xj", u"pos_czk",
                  u"pos_yhk", u"pos_djq", u"pos_wxje", u"pos_zfbje", u"pos_mlje", u"owed", u"backs",
                  u"returned", u"in", u"out", u"recharged", u"due"});
    for (const TillFigures &f : tillFigures(session(), filter))
        list.add({f.cashier, f.sales, f.due, f.tendered, f.change, f.cash, f.storedValue,
                  f.bankCard, f.voucher, f.weChat, f.aliPay, f.rounding, f.owed(), f.returns,
                  f.returned, f.in, f.out, f.recharged.cash - f.recharged.change, f.cashDue()});
    return list.takeMatching(filter.search);
}

void TF_Posxs_Sytj::narrow(CounterFilter &filter, const Row &row) const {
    filter.cashier = row.text(u"a_name");
}

QString TF_Posxs_Sytj::nameOf(const Row &row) const {
    return row.text(u"a_name");
}

void TF_Posxs_Sytj::btnShiftsClick() {
    auto *shifts = new TF_Posxs_Jbgl(context(), this);
    shifts->setAttribute(Qt::WA_DeleteOnClose);
    shifts->showModal();
}

} // namespace jxc
