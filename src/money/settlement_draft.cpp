#include "money/settlement_draft.h"

#include "base/dates.h"
#include "core/numbering.h"
#include "core/session.h"
#include "db/database.h"
#include "money/partner_ledger.h"
#include "money/settlement.h"

namespace jxc {

namespace {

QString titleOf(const QString &code) {
    if (code == QLatin1String("SK"))
        return QStringLiteral("收款单");
    if (code == QLatin1String("FK"))
        return QStringLiteral("付款单");
    return code == QLatin1String("YS") ? QStringLiteral("应收登记") : QStringLiteral("应付登记");
}

QString write(Session &session, const SettlementDraft &d) {
    if (!isSettlementNumber(d.code))
        throw Refusal(QStringLiteral("不支持的单据类型：%1").arg(d.code));
    const bool moves = d.code == QLatin1String("SK") || d.code == QLatin1String("FK");
    const bool ofCustomer = d.code == QLatin1String("SK") || d.code == QLatin1String("YS");
    const Partner partner{ofCustomer ? Partner::Kind::customer : Partner::Kind::supplier,
                          d.partner};
    if (!isDate(d.date))
        throw Refusal(QStringLiteral("开单日期必须填写！"));
    if (!partnerName(session.db(), partner))
        throw Refusal(ofCustomer ? QStringLiteral("客户必须填写！")
                                 : QStringLiteral("供货商必须填写！"));
    if (d.amount.isZero() && d.discount.isZero())
        throw Refusal(QStringLiteral("金额必须填写！"));
    QString number = newDocNumberForDate(session, QStringLiteral("jxc_ysyfk"),
                                               QStringLiteral("gl_djh"), d.code, d.date);
    session.db().insertRow(QStringLiteral("jxc_ysyfk_dj"),
                           {{QStringLiteral("gl_djh"), number},
                            {QStringLiteral("gl_djh2"), u""},
                            {QStringLiteral("k_rq"), d.date},
                            {QStringLiteral("k_fkfs"), moves ? d.account : QString()},
                            // A discount lowers what is owed, not the cash.
                            {QStringLiteral("k_yfje"), moves ? -d.discount : d.amount},
                            {QStringLiteral("k_sfje"), moves ? d.amount : Decimal()},
                            {QStringLiteral("k_qcje"), 0},
                            {QStringLiteral("k_yhje"), d.discount},
                            {QStringLiteral("k_ljje"), 0},
                            {QStringLiteral("k_flag"), 0},
                            {QStringLiteral("k_type"), partner.type()},
                            {QStringLiteral("k_ghskh"), d.partner},
                            {QStringLiteral("k_djlx"), d.code},
                            {QStringLiteral("k_djtxt"), titleOf(d.code)},
                            {QStringLiteral("k_note"), d.note},
                            {QStringLiteral("k_check"), false},
                            {QStringLiteral("k_checker"), u""},
                            {QStringLiteral("k_chkrq"), u""},
                            {QStringLiteral("u_sn"), d.clerk},
                            {QStringLiteral("a_name"), session.currentOperatorName}});
    return number;
}

} // namespace

Outcome saveSettlement(Session &session, Prompter &prompter, const SettlementDraft &draft,
                       QString *number) {
    return runAction(session.db(), prompter, [&](Answers &) { *number = write(session, draft); });
}

} // namespace jxc
