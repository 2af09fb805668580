#include "retail/forms/tf_posxs_jbgl.h"

#include "core/session.h"
#include "retail/forms/counter_printing.h"
#include "retail/shift.h"

#include <QLineEdit>

namespace jxc {

namespace {

ColumnSpec amount(const char16_t *field, const char16_t *caption) {
    return summed(column(field, caption, ValueKind::amount, 88));
}

} // namespace

TF_Posxs_Jbgl::TF_Posxs_Jbgl(const FormContext &context, QWidget *parent)
    : CounterReport(context, QStringLiteral("TF_Posxs_Jbgl"), QStringLiteral("交班记录"), parent)
    , m_printing(new CounterPrinting(context, this)) {
    searchBox().setPlaceholderText(QStringLiteral("查找 F3：收银员、备注"));
    setColumns({text(u"jb_endtime", u"交班时间", 152),
                text(u"a_name", u"收银员", 72),
                text(u"jb_nextuser", u"接班操作员", 88),
                amount(u"jb_xsje", u"销售金额"),
                amount(u"jb_thje", u"退货金额"),
                amount(u"jb_xjje", u"现金"),
                amount(u"jb_zlje", u"找零金额"),
                hidden(amount(u"jb_czkje", u"储值卡")),
                hidden(amount(u"jb_yhkje", u"银行卡")),
                hidden(amount(u"jb_djqje", u"代金券")),
                hidden(amount(u"jb_wxje", u"微信")),
                hidden(amount(u"jb_zfbje", u"支付宝")),
                amount(u"jb_rkje", u"入款"),
                amount(u"jb_ckje", u"出款"),
                hidden(amount(u"jb_xjje2", u"充值现金")),
                hidden(amount(u"jb_zlje2", u"充值找零")),
                amount(u"jb_yjje", u"应交金额"),
                amount(u"jb_sjje", u"实交金额"),
                amount(u"jb_xfje", u"留存金额"),
                amount(u"difference", u"长短款"),
                hidden(text(u"jb_begintime", u"上班时间", 152)),
                text(u"jb_note", u"备注", 120)},
               QStringLiteral("id"));
    addAction(
        QStringLiteral("btnReprint"), QStringLiteral("重打"), Qt::Key_F5,
        [this] { btnReprintClick(); }, true);
    addCommonActions();
    addFilters(PeriodChoice::thisMonth, Filters::cashier);
    grid().model().setTone([](const Row &row, const ColumnSpec &spec) {
        return spec.field == u"difference" && !row.decimal(u"difference").isZero() ? Tone::danger
                                                                                   : Tone::plain;
    });
    connect(m_printing, &CounterPrinting::failed, this,
            [this](const QString &words) { prompter().inform(words, informCaption); });
}

Rows TF_Posxs_Jbgl::readFor(const CounterFilter &filter) {
    Rows rows = listShifts(session(), filter.from, filter.to, filter.cashier);
    if (!filter.search.isEmpty())
        std::erase_if(rows, [&](const Row &row) {
            return !row.text(u"a_name").contains(filter.search, Qt::CaseInsensitive) &&
                   !row.text(u"jb_note").contains(filter.search, Qt::CaseInsensitive);
        });
    return rows;
}

void TF_Posxs_Jbgl::btnReprintClick() {
    m_printing->printShift(grid().current()->integer(u"id"), true);
}

} // namespace jxc
