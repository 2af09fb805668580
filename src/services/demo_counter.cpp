#include "services/demo_counter.h"

#include "core/session.h"
#include "db/database.h"
#include "retail/counter_goods.h"
#include "retail/counter_member.h"
#include "retail/day_end.h"
#include "retail/points_exchange.h"
#include "retail/receipt_posting.h"
#include "retail/receipt_return.h"
#include "retail/recharge.h"
#include "retail/till_cash.h"
#include "services/demo_trade.h"

#include <stdexcept>

namespace jxc {

namespace {

void demand(const Outcome &outcome, const char *what) {
    if (!outcome.isDone())
        throw std::runtime_error(what + (u'：' + outcome.text).toStdString());
}

/// What was handed over for a due, in notes: change is given on it.
Decimal inNotes(Decimal due) {
    for (const int note : {5, 10, 20, 50, 100, 200, 500, 1000, 2000, 5000, 10'000})
        if (Decimal(note) >= due)
            return note;
    return due;
}

} // namespace

DemoCounter::DemoCounter(Session &session, Prompter &prompter, std::mt19937 &random,
                         std::vector<DemoGoods> &goods, DemoCounts &counts)
    : m_session(session)
    , m_prompter(prompter)
    , m_random(random)
    , m_goods(goods)
    , m_counts(counts)
    , m_finder(session.db()) {}

void DemoCounter::playDay(FixedClock &clock) {
    const QDate day = clock.now().date();
    if (m_members.isEmpty())
        for (const Row &row : m_session.db().rows(
                 QStringLiteral("select hy_sn from jxc_hyxx where hy_sn<>'100001' order by id")))
            m_members << row.text(size_t{0});
    m_settings = CounterSettings::load(m_session);
    settleYesterday();
    const auto put = [&](TillDirection direction, Decimal amount, const QString &note) {
        QString number;
        demand(recordTillCash(m_session, m_prompter, {direction, amount, note}, &number), "till");
    };
    put(TillDirection::in, 500, QStringLiteral("备用零钱"));
    if (!m_members.isEmpty())
        for (int i = between(0, 3); i > 0; --i)
            recharge();
    QTime time(8, 30);
    for (int receipts = between(5, 9); receipts > 0; --receipts) {
        time = time.addSecs(between(10, 75) * 60);
        clock.set(QDateTime(day, std::min(time, QTime(18, 30))));
        ringUp();
    }
    if (chance(40))
        giveBack();
    if (chance(30) && !m_members.isEmpty())
        exchange();
    put(TillDirection::out, 500, QStringLiteral("上交现金"));
}

void DemoCounter::settleYesterday() {
    if (m_today.isEmpty())
        return;
    m_today.clear();
    QString number;
    demand(settleCounter(m_session, m_prompter, &number), "day end");
    ++m_counts.dayEnds;
}

void DemoCounter::ringUp() {
    Receipt receipt;
    receipt.warehouse = m_settings.warehouse;
    receipt.clerk = administratorNo;
    Tender tender;
    PriceBuyer buyer;
    if (!m_members.isEmpty() && chance(45)) {
        const CounterMember member = counterMember(m_session, anyMember());
        receipt.member = member.key;
        buyer = member.asBuyer();
        tender.memberBalance = member.balance;
    }
    for (int lines = between(1, 4); lines > 0; --lines) {
        DemoGoods &goods =
            m_goods[static_cast<size_t>(between(0, static_cast<int>(m_goods.size()) - 1))];
        const int quantity = between(1, 3);
        if (goods.stock < 10 || goods.restricted ||
            (goods.limit.isPositive() && Decimal(quantity) > goods.limit))
            continue;
        const CounterFind found = findForCounter(m_finder, m_settings, goods.number);
        if (found.hits.empty())
            continue;
        ReceiptLine line = counterLine(m_session, m_settings, found, found.hits.front(), buyer);
        line.quantity = quantity;
        goods.stock -= quantity;
        addLine(receipt, std::move(line));
    }
    const Decimal due = receipt.total(m_settings.amountDecimals);
    if (!due.isPositive())
        return;
    const int way = between(1, 100);
    if (tender.memberBalance >= due && way <= 60)
        tender.other.storedValue = due;
    else if (way <= 35)
        tender.other.weChat = due;
    else if (way <= 50)
        tender.other.aliPay = due;
    else if (way <= 57)
        tender.other.bankCard = due;
    else
        tender.cash = inNotes(due);
    PostedReceipt posted;
    demand(postReceipt(m_session, m_prompter, receipt, tender, &posted), "receipt");
    m_today << posted.number;
    ++m_counts.counterReceipts;
}

void DemoCounter::giveBack() {
    if (m_today.isEmpty())
        return;
    CounterReturn back = returnOf(m_session, m_today.front());
    back.lines.front().line.quantity = 1;
    const Tender refund{.cash = back.total(m_settings.amountDecimals), .other = {}};
    QString number;
    demand(postReturn(m_session, m_prompter, back, refund, &number), "return");
    ++m_counts.counterReturns;
}

void DemoCounter::recharge() {
    constexpr std::array amounts = {100, 200, 200, 300, 500, 1000};
    Recharge recharge{.member = anyMember(), .amount = amounts[static_cast<size_t>(between(0, 5))]};
    if (chance(50))
        recharge.cash = recharge.amount;
    else
        recharge.other.weChat = recharge.amount;
    RechargeReceipt receipt;
    demand(rechargeMember(m_session, m_prompter, recharge, &receipt), "recharge");
    ++m_counts.recharges;
}

/// A member with enough points takes one gift.
void DemoCounter::exchange() {
    const auto gift = m_session.db().row(QStringLiteral(
        "select g.g_sn,g.g_zpjf from jxc_goods g,jxc_kcsp k where k.g_sn=g.g_sn and g.g_iszp=1 and "
        "k.ck_sn='100001' and k.kc_sl>=2 order by g.id limit 1"));
    if (!gift)
        return;
    const QString member = m_session.db().scalar(
        QStringLiteral("select hy_sn from jxc_hyxx where hy_sn<>'100001' and hy_jf>=? order by "
                       "hy_jf desc,id limit 1"),
        {gift->decimal(u"g_zpjf")});
    if (member.isEmpty())
        return;
    PointsExchange exchange{m_session.today(), member, administratorNo};
    exchange.lines = {{gift->text(u"g_sn"), 1}};
    QString number;
    demand(exchangePoints(m_session, m_prompter, exchange, &number), "exchange");
    for (DemoGoods &goods : m_goods)
        if (goods.number == gift->text(u"g_sn"))
            goods.stock -= 1;
    ++m_counts.exchanges;
}

int DemoCounter::between(int low, int high) {
    return low + static_cast<int>(m_random() % static_cast<unsigned>(high - low + 1));
}

QString DemoCounter::anyMember() {
    return m_members[between(0, static_cast<int>(m_members.size()) - 1)];
}

} // namespace jxc
