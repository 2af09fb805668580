#include "retail/forms/tf_hyxf.h"

#include "core/prompter.h"
#include "core/session.h"
#include "retail/forms/counter_printing.h"
#include "retail/forms/recharge_panel.h"
#include "retail/forms/tf_hygl_sf.h"
#include "retail/member.h"
#include "retail/member_card.h"
#include "retail/recharge_query.h"
#include "retail/sms_send.h"
#include "ui/formats.h"
#include "ui/period_bar.h"

#include <QAction>
#include <QKeyEvent>

namespace jxc {

namespace {

ColumnSpec amount(const char16_t *field, const char16_t *caption) {
    return summed(column(field, caption, ValueKind::amount, 80));
}

} // namespace

ColumnSpecs rechargeColumns(bool withMember) {
    ColumnSpecs columns{text(u"xf_rq", u"交费日期", 152), text(u"gl_djh", u"单号", 128)};
    if (withMember) {
        columns.push_back(text(u"hy_bh", u"会员卡号", 88));
        columns.push_back(text(u"hy_name", u"会员姓名", 80));
    }
    for (ColumnSpec &more : ColumnSpecs{
             amount(u"xf_je", u"续费金额"), amount(u"xf_yhje", u"赠送金额"),
             amount(u"xf_xj", u"现金"), amount(u"xf_xyk", u"银行卡"), amount(u"xf_wxje", u"微信"),
             amount(u"xf_zfbje", u"支付宝"), amount(u"xf_djq", u"代金券"),
             column(u"xf_zlje", u"找零金额", ValueKind::amount, 80),
             text(u"xf_zt", u"续费类别", 120), text(u"a_name", u"操作员", 96),
             hidden(text(u"xf_note", u"备注", 160))})
        columns.push_back(std::move(more));
    return columns;
}

TF_Hyxf::TF_Hyxf(const FormContext &context, QWidget *parent)
    : ListForm(context, QStringLiteral("TF_Hyxf"), QStringLiteral("会员充值"), parent)
    , m_panel(new RechargePanel(*this))
    , m_printing(new CounterPrinting(context, this)) {
    searchBox().setPlaceholderText(QStringLiteral("查找 F3：单号、卡号、姓名"));
    setColumns(rechargeColumns(true), QStringLiteral("gl_djh"));
    addAction(QStringLiteral("btnSave"), QStringLiteral("充值"), Qt::Key_F5,
              [this] { btnSaveClick(); });
    addAction(QStringLiteral("btnNew"), QStringLiteral("下一位"), Qt::Key_F6, [this] {
        if (mayLeave())
            m_panel->startNew();
    });
    addAction(
        QStringLiteral("btnReprint"), QStringLiteral("重打"), Qt::Key_F7,
        [this] { btnReprintClick(); }, true);
    addCommonActions();
    m_period = addPeriodBar(static_cast<int>(PeriodChoice::today));
    static_cast<QVBoxLayout *>(layout())->insertWidget(1, m_panel);
    grid().model().setTone([](const Row &row, const ColumnSpec &) {
        return row.decimal(u"xf_je").isNegative() ? Tone::danger : Tone::plain;
    });
    connect(m_panel, &RechargePanel::submitted, this, &TF_Hyxf::btnSaveClick);
    connect(m_printing, &CounterPrinting::failed, this,
            [this](const QString &words) { prompter().inform(words, informCaption); });
}

void TF_Hyxf::FormActivate() {
    refresh();
    m_panel->startNew();
}

void TF_Hyxf::setMember(const QString &key) {
    m_panel->setMember(key);
}

bool TF_Hyxf::mayLeave() {
    return !m_panel->isTyped() ||
           prompter().confirm(QStringLiteral("内容已修改，确认放弃吗？"), confirmCaption);
}

Rows TF_Hyxf::read(const QString &search) {
    const Period days = m_period->period();
    return listRecharges(session(), {.from = days.from, .to = days.to, .search = search});
}

/// What would be refused anyway is told before the money is counted.
bool TF_Hyxf::isAllowed(const Recharge &recharge) {
    try {
        const Member member = loadMember(db(), recharge.member);
        memberUsable(session(), member);
        if (recharge.amount.isNegative()) {
            checkMemberPassword(member, recharge.password);
            if (-recharge.amount > refundableValue(session(), member))
                throw Refusal(QStringLiteral("卡内金额不足！"));
        }
        return true;
    } catch (const Refusal &no) {
        prompter().inform(no.text(), informCaption);
        m_panel->focusRefused(no.text());
        return false;
    }
}

void TF_Hyxf::btnSaveClick() {
    Recharge recharge;
    if (!m_panel->collect(&recharge) || !isAllowed(recharge))
        return;
    TF_Hygl_Sf tenders(context(), recharge, this);
    if (!tenders.runModal())
        return;
    RechargeReceipt receipt;
    const Outcome outcome = rechargeMember(session(), prompter(), recharge, &receipt);
    if (show(outcome)) {
        finish(receipt);
    } else {
        m_panel->refresh();
        m_panel->focusRefused(outcome.text);
    }
}

void TF_Hyxf::finish(const RechargeReceipt &receipt) {
    const bool prints = m_panel->wantsPrint();
    goToAfterRefresh(receipt.number);
    refresh();
    m_panel->startNew();
    const Formats formats(session().parameters);
    QString words = QStringLiteral("%1 已保存，卡内金额 %2，积分 %3")
                        .arg(receipt.number, formats.money(receipt.value),
                             formats.text(ValueKind::integer, receipt.pointsNow));
    if (!receipt.change.isZero())
        words += QStringLiteral("，找零 ") + formats.money(receipt.change);
    m_panel->tell(words);
    sendSoon(session(), prompter(), context().home, receipt.notice, this);
    if (prints)
        m_printing->printRecharge(receipt.number, false);
}

void TF_Hyxf::btnReprintClick() {
    m_printing->printRecharge(grid().currentText(u"gl_djh"), true);
}

void TF_Hyxf::keyPressEvent(QKeyEvent *event) {
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isEnter && m_panel->isAncestorOf(focusWidget()))
        m_panel->goOn();
    else
        ListForm::keyPressEvent(event);
}

} // namespace jxc
