#include "retail/forms/tf_posxs_rj.h"

#include "core/session.h"
#include "retail/day_end.h"
#include "retail/forms/tf_posxs_rjmx.h"
#include "retail/settlement_query.h"
#include "ui/formats.h"
#include "ui/period_bar.h"

#include <QBoxLayout>
#include <QLabel>
#include <QLineEdit>

namespace jxc {

TF_Posxs_Rj::TF_Posxs_Rj(const FormContext &context, QWidget *parent)
    : ListForm(context, QStringLiteral("TF_Posxs_Rj"), QStringLiteral("POS日结管理"), parent)
    , m_unsettled(new QLabel(this)) {
    searchBox().setPlaceholderText(QStringLiteral("查找 F3：单号、操作员"));
    setColumns({text(u"gl_djh", u"日结单号", 152), column(u"rj_rq", u"日结日期", ValueKind::date),
                summed(column(u"rj_sl", u"数量", ValueKind::quantity, 120)),
                summed(column(u"rj_je", u"金额", ValueKind::amount, 136)),
                text(u"a_name", u"操作员", 120)},
               QStringLiteral("gl_djh"));
    addAction(QStringLiteral("btn_Rj"), QStringLiteral("日结"), Qt::Key_F8,
              [this] { btn_RjClick(); });
    addAction(
        QStringLiteral("btnDetail"), QStringLiteral("明细"), Qt::Key_F4,
        [this] { btnDetailClick(); }, true);
    addCommonActions();
    m_period = addPeriodBar(static_cast<int>(PeriodChoice::thisYear));
    m_unsettled->setObjectName(QStringLiteral("unsettled"));
    filterLine()->addWidget(m_unsettled);
    connect(&grid(), &Grid::activated, this, &TF_Posxs_Rj::btnDetailClick);
}

void TF_Posxs_Rj::FormActivate() {
    showUnsettled();
    ListForm::FormActivate();
}

void TF_Posxs_Rj::showUnsettled() {
    const Unsettled open = unsettledReceipts(session());
    m_unsettled->setText(
        open.receipts == 0
            ? QStringLiteral("没有未日结的小票")
            : QStringLiteral("未日结：%1 张，金额 %2")
                  .arg(open.receipts)
                  .arg(Formats(session().parameters).text(ValueKind::amount, open.amount)));
}

Rows TF_Posxs_Rj::read(const QString &search) {
    const Period days = m_period->period();
    return listSettlements(session(), days.from, days.to, search);
}

void TF_Posxs_Rj::btn_RjClick() {
    QString number;
    const bool isDone = show(settleCounter(session(), prompter(), &number));
    showUnsettled();
    if (!isDone)
        return;
    goToAfterRefresh(number);
    refresh();
}

void TF_Posxs_Rj::btnDetailClick() {
    if (grid().current() == nullptr)
        return;
    auto *detail = new TF_Posxs_Rjmx(context(), grid().currentText(u"gl_djh"), this);
    detail->setAttribute(Qt::WA_DeleteOnClose);
    detail->showModal();
}

} // namespace jxc
