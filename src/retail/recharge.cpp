#include "retail/recharge.h"

#include "core/numbering.h"
#include "core/operation_log.h"
#include "core/session.h"
#include "db/database.h"
#include "retail/member_card.h"
#include "retail/notices.h"
#include "retail/points_settings.h"
#include "retail/whole_numbers.h"

namespace jxc {

namespace {

const QString movementTable = QStringLiteral("jxc_hyxf");
const QString cashAccount = QStringLiteral("现金");

/// What the member's card was filled with so far, by recharges and transfers of value.
struct PaidIn {
    Decimal amount, bonus;
};

PaidIn paidIn(Database &db, const QString &member) {
    PaidIn sum;
    for (const Row &row :
         db.rows(QStringLiteral("select xf_je,xf_yhje from jxc_hyxf where hy_sn=?"), {member})) {
        sum.amount += row.decimal(u"xf_je");
        sum.bonus += row.decimal(u"xf_yhje");
    }
    for (const Row &row :
         db.rows(QStringLiteral("select xf_je from jxc_czxf where hy_sn=?"), {member}))
        sum.amount += row.decimal(u"xf_je");
    return sum;
}

class Recharging {
public:
    Recharging(Session &session, const Recharge &recharge)
        : m_session(session)
        , m_db(session.db())
        , m_parameters(Parameters::load(m_db))
        , m_recharge(recharge)
        , m_member(loadMember(m_db, recharge.member)) {}

    RechargeReceipt run(const QString &kind) {
        memberUsable(m_session, m_member);
        if (m_recharge.amount.isNegative())
            checkPayout();
        m_receipt.change = rechargeChange(m_recharge);
        m_receipt.bonus = m_recharge.amount.isNegative()
                              ? lapsingBonus()
                              : rechargeBonus(m_session, m_member, m_recharge.amount);
        refuseShortAccount(m_db, m_parameters, cashAccount, m_recharge.amount);
        m_receipt.number =
            newDocNumber(m_session, movementTable, QStringLiteral("gl_djh"), QStringLiteral("XF"));
        writeMovement(kind);
        bookCash();
        creditMember();
        m_receipt.notice = queueRechargeNotice(m_session, m_receipt.number, m_member,
                                               m_recharge.amount, m_receipt.points);
        writeLog(m_session,
                 QStringLiteral("会员充值：%1，%2，%3")
                     .arg(m_receipt.number, m_member.number, m_recharge.amount.toText()));
        return m_receipt;
    }

private:
    void checkPayout() {
        checkMemberPassword(m_member, m_recharge.password);
        if (-m_recharge.amount > refundableValue(m_session, m_member))
            throw Refusal(QStringLiteral("卡内金额不足！"));
    }

    /// The bonus of what is paid out again, as a negative figure.
    [[nodiscard]] Decimal lapsingBonus() const {
        const PaidIn in = paidIn(m_db, m_member.key);
        if (!in.bonus.isPositive())
            return {};
        return (m_recharge.amount * in.bonus / in.amount).rounded(m_parameters.amountDecimals);
    }

    void writeMovement(const QString &kind) {
        m_db.insertRow(movementTable, {{QStringLiteral("gl_djh"), m_receipt.number},
                                       {QStringLiteral("hy_sn"), m_member.key},
                                       {QStringLiteral("xf_rq"), m_session.timeStamp()},
                                       {QStringLiteral("xf_je"), m_recharge.amount},
                                       {QStringLiteral("xf_yhje"), m_receipt.bonus},
                                       {QStringLiteral("xf_xj"), m_recharge.cash},
                                       {QStringLiteral("xf_czk"), Decimal()},
                                       {QStringLiteral("xf_xyk"), m_recharge.other.bankCard},
                                       {QStringLiteral("xf_djq"), m_recharge.other.voucher},
                                       {QStringLiteral("xf_wxje"), m_recharge.other.weChat},
                                       {QStringLiteral("xf_zfbje"), m_recharge.other.aliPay},
                                       {QStringLiteral("xf_zlje"), m_receipt.change},
                                       {QStringLiteral("xf_note"), m_recharge.note},
                                       {QStringLiteral("xf_zt"), kind},
                                       {QStringLiteral("xf_fdzt"), u""},
                                       {QStringLiteral("xf_fd"), u""},
                                       {QStringLiteral("xf_id"), u""},
                                       {QStringLiteral("a_name"), m_session.currentOperatorName}});
    }

    void bookCash() {
        CashEntry entry{cashAccount,
                        m_session.today(),
                        m_receipt.number,
                        QStringLiteral("会员充值"),
                        m_recharge.amount,
                        {},
                        m_member.name,
                        {},
                        {},
                        m_recharge.note,
                        m_session.currentOperatorName};
        addCashEntry(m_db, entry);
        moveTenders(m_db, entry, m_recharge.other);
    }

    /// Where the card's own money earns no points at the counter, they come now.
    void creditMember() {
        const PointsSettings settings = PointsSettings::load(m_db);
        if (!settings.storedValueEarns && settings.amountPerPoint.isPositive())
            m_receipt.points = wholeQuotient(m_recharge.amount, settings.amountPerPoint);
        m_member.value += m_recharge.amount + m_receipt.bonus;
        m_member.points += m_receipt.points;
        m_member.allPoints += m_receipt.points;
        if (m_member.levelFollows)
            m_member.level = LevelForPoints(m_db, m_member.allPoints);
        storeMemberFigures(m_db, m_member);
        m_receipt.value = m_member.value;
        m_receipt.pointsNow = m_member.points;
    }

    Session &m_session;
    Database &m_db;
    Parameters m_parameters;
    const Recharge &m_recharge;
    Member m_member;
    RechargeReceipt m_receipt;
};

} // namespace

Decimal rechargeBonus(Session &session, const Member &member, Decimal amount) {
    Database &db = session.db();
    const auto offer = db.row(
        QStringLiteral("select hh_zl,hh_yh1 from jxc_hyyh where hh_sn=? order by id limit 1"),
        {member.offer});
    if (!offer)
        return {};
    const int decimals = Parameters::load(db).amountDecimals;
    const Decimal factor = offer->decimal(u"hh_yh1");
    if (offer->integer(u"hh_zl") == 0 && factor.isPositive())
        return (amount * factor).rounded(decimals) - amount;
    if (offer->integer(u"hh_zl") != 2)
        return {};
    for (const Row &gift :
         db.rows(QStringLiteral("select hs_czje,hs_zsje from jxc_hyczzs order by id")))
        if (gift.decimal(u"hs_czje") == amount)
            return gift.decimal(u"hs_zsje");
    return {};
}

Decimal refundableValue(Session &session, const Member &member) {
    const PaidIn in = paidIn(session.db(), member.key);
    if (!in.amount.isPositive() || !member.value.isPositive())
        return {};
    // What is left is of the mixture of money and bonus that the card was filled with.
    const Decimal bonus = in.bonus.isPositive() ? in.bonus : Decimal();
    const int decimals = Parameters::load(session.db()).amountDecimals;
    const Decimal left = (member.value * in.amount / (in.amount + bonus)).rounded(decimals);
    return std::min(left, in.amount);
}

Decimal rechargeChange(const Recharge &recharge) {
    const Decimal tendered = recharge.cash + recharge.other.sum();
    // A payout is split among the tenders exactly; there is nothing to change.
    if (recharge.amount.isNegative()) {
        if (tendered != recharge.amount)
            throw Refusal(QStringLiteral("付款金额之和与退款金额不一致！"));
        return {};
    }
    for (const Decimal &amount : {recharge.cash, recharge.other.bankCard, recharge.other.voucher,
                                  recharge.other.weChat, recharge.other.aliPay})
        if (amount.isNegative())
            throw Refusal(QStringLiteral("付款金额不能小于零！"));
    const Decimal change = tendered - recharge.amount;
    if (change.isNegative())
        throw Refusal(QStringLiteral("付款金额不足！"));
    if (change > recharge.cash)
        throw Refusal(QStringLiteral("找零金额不能大于现金！"));
    return change;
}

RechargeReceipt rechargeInTransaction(Session &session, const Recharge &recharge,
                                      const QString &kind) {
    return Recharging(session, recharge).run(kind);
}

Outcome rechargeMember(Session &session, Prompter &prompter, const Recharge &recharge,
                       RechargeReceipt *receipt) {
    *receipt = {};
    if (recharge.amount.isZero())
        return {};
    return runAction(session.db(), prompter, [&](Answers &) {
        *receipt = rechargeInTransaction(session, recharge, rechargeKind);
    });
}

} // namespace jxc
