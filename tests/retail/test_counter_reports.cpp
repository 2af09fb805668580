// What the counter's reports, its day end and the change of shift make of a day's receipts, held
// against sums that are kept beside them.
#include "money/cash_journal.h"
#include "retail/counter_ranking.h"
#include "retail/counter_reports.h"
#include "retail/day_end.h"
#include "retail/document_posting.h"
#include "retail/member_shop.h"
#include "retail/receipt_posting.h"
#include "retail/receipt_query.h"
#include "retail/receipt_return.h"
#include "retail/recharge.h"
#include "retail/settlement_query.h"
#include "retail/shift_paper.h"
#include "retail/till_cash.h"

#include <QRandomGenerator>
#include <QTest>
#include <map>

using namespace jxc;
using namespace jxc::test;

namespace {

constexpr int firstCost = 5, secondCost = 2;
const Decimal firstPrice = Decimal::fromMicros(9'900'000);
const Decimal secondPrice = Decimal::fromMicros(3'330'000);

/// What goods or a member come to.
struct Sum {
    Decimal quantity, amount;
    int sales = 0, returns = 0;
};

/// A shop with two cashiers, a member with value on his card, and two goods; everything that
/// happens is added up beside it.
class TillShop : public MemberShop {
public:
    TillShop() {
        session.members = &documentPosting();
        settings(u"jf_mfje=10 jf_jfgz=1"_qs);
        db.insertRow(u"jxc_yhzh"_qs, {{u"yh_sn"_qs, u"9"}, {u"yh_name"_qs, u"微信收款"}});
        for (const auto &[code, cost] : {std::pair(u"G1"_qs, firstCost), {u"G2"_qs, secondCost}}) {
            DraftLine line{.goods = code};
            line.quantity = 1000;
            line.price = cost;
            post(u"CJ"_qs, day(1), {line});
        }
        cashAtFirst = AccountBalance(db, u"现金"_qs);
    }

    void become(const QString &name) { session.currentOperatorName = name; }
    void wait(int seconds) { clock.set(clock.now().addSecs(seconds)); }
    TillFigures &mine() { return expected[session.currentOperatorName]; }

    QString sell(int first, int second, Tender tender, const QString &buyer = {}) {
        Receipt r;
        r.warehouse = r.clerk = administratorNo;
        r.member = buyer;
        addLine(r, u"G1"_qs, firstPrice, first);
        addLine(r, u"G2"_qs, secondPrice, second);
        if (!buyer.isEmpty())
            tender.memberBalance = loadMember(db, buyer).value;
        PostedReceipt posted;
        demand(postReceipt(session, user, r, tender, &posted));
        const TenderOutcome &o = posted.outcome;
        TillFigures &f = mine();
        ++f.sales;
        f.due += o.due;
        f.tendered += o.tendered;
        f.change += o.change;
        f.cash += tender.cash;
        f.bankCard += tender.other.bankCard;
        f.weChat += tender.other.weChat;
        f.storedValue += tender.other.storedValue;
        count(first, second, 1, o.due, buyer);
        goods[u"00000000"_qs].amount -= tender.discount;
        return posted.number;
    }

    /// All of a receipt comes back, paid out in cash.
    void giveBack(const QString &number, int first, int second, const QString &buyer) {
        CounterReturn back = returnOf(session, number);
        for (ReturnLine &line : back.lines)
            line.line.quantity = line.sold;
        const Decimal total = back.total(2);
        QString posted;
        demand(postReturn(session, user, back, {.cash = total, .other = {}}, &posted));
        TillFigures &f = mine();
        ++f.returns;
        f.due -= total;
        f.tendered -= total;
        f.cash -= total;
        f.returned += total;
        count(first, second, -1, -total, buyer);
        // What was granted on the whole is spread over the lines of a return.
        goods[u"G1"_qs].amount +=
            roundedProduct(firstPrice, first, 1, 2) - lineOf(posted, u"G1"_qs);
        goods[u"G2"_qs].amount +=
            roundedProduct(secondPrice, second, 1, 2) - lineOf(posted, u"G2"_qs);
    }

    /// The back office sells to the member, or takes back from him.
    void backOffice(const QString &code, int first) {
        DraftLine line{.goods = u"G1"_qs};
        line.quantity = first;
        line.price = firstPrice;
        post(code, day(31), {line}, [&](Draft &d) { d.member = member; });
        const int sign = code == u"XS" ? 1 : -1;
        const Decimal total = (firstPrice * Decimal(sign * first)).rounded(2);
        TillFigures &f = mine();
        (sign > 0 ? f.sales : f.returns) += 1;
        f.due += total;
        f.tendered += total;
        f.cash += total;
        if (sign < 0)
            f.returned -= total;
        count(first, 0, sign, total, member);
    }

    void recharge(Decimal amount, Decimal cash, Decimal card) {
        Recharge r{.member = member, .amount = amount, .cash = cash};
        r.other.bankCard = card;
        RechargeReceipt receipt;
        demand(rechargeMember(session, user, r, &receipt));
        TillFigures::Recharged &sum = mine().recharged;
        sum.cash += cash;
        sum.bankCard += card;
        sum.change += receipt.change;
    }

    void tillCash(TillDirection direction, Decimal amount) {
        QString number;
        demand(recordTillCash(session, user, {direction, amount}, &number));
        (direction == TillDirection::in ? mine().in : mine().out) += amount;
    }

    [[nodiscard]] CounterFilter today() const {
        CounterFilter filter;
        filter.from = filter.to = day(31);
        return filter;
    }

    std::map<QString, TillFigures> expected;
    std::map<QString, Sum> goods, buyers;
    Decimal cashAtFirst;

private:
    static void addLine(Receipt &r, const QString &code, Decimal price, int quantity) {
        ReceiptLine line;
        line.goods = code;
        line.unit = u"瓶"_qs;
        line.quantity = quantity;
        line.price = line.retailPrice = price;
        r.lines.push_back(line);
    }
    [[nodiscard]] Decimal lineOf(const QString &number, const QString &code) {
        Decimal sum;
        for (const Row &row : db.rows(u"select pos_zje from jxc_posthsp where gl_djh=? and "
                                      "g_sn=?"_qs,
                                      {number, code}))
            sum += row.decimal(u"pos_zje");
        return sum;
    }
    void count(int first, int second, int sign, Decimal due, const QString &buyer) {
        goods[u"G1"_qs].quantity += sign * first;
        goods[u"G1"_qs].amount += (firstPrice * Decimal(first * sign)).rounded(2);
        goods[u"G2"_qs].quantity += sign * second;
        goods[u"G2"_qs].amount += (secondPrice * Decimal(second * sign)).rounded(2);
        Sum &sum = buyers[buyer];
        sum.amount += due;
        (sign > 0 ? sum.sales : sum.returns) += 1;
    }
};

/// A lively day of both cashiers.
void play(TillShop &shop, int events) {
    struct Sold {
        QString number;
        int first, second;
        QString buyer;
    };
    std::vector<Sold> sold;
    QRandomGenerator dice(20260331);
    shop.recharge(2000, 1500, 600);
    for (int i = 0; i < events; ++i) {
        shop.wait(60);
        shop.become(dice.bounded(2) == 0 ? u"admin"_qs : u"乙"_qs);
        const int what = static_cast<int>(dice.bounded(10));
        if (what == 0)
            shop.tillCash(dice.bounded(2) == 0 ? TillDirection::in : TillDirection::out,
                          static_cast<int>(dice.bounded(1, 90)));
        else if (what == 1)
            shop.recharge(static_cast<int>(dice.bounded(1, 50)), 60, 0);
        else if (what == 2)
            shop.backOffice(dice.bounded(3) == 0 ? u"XT"_qs : u"XS"_qs,
                            static_cast<int>(dice.bounded(1, 5)));
        else if (what == 3 && !sold.empty()) {
            shop.giveBack(sold.back().number, sold.back().first, sold.back().second,
                          sold.back().buyer);
            sold.pop_back();
        } else {
            const int first = static_cast<int>(dice.bounded(1, 6));
            const int second = static_cast<int>(dice.bounded(1, 6));
            const QString buyer = dice.bounded(3) == 0 ? shop.member : QString();
            Tender tender{.cash = 100, .other = {}};
            tender.other.bankCard = static_cast<int>(dice.bounded(3));
            tender.other.weChat = static_cast<int>(dice.bounded(3));
            tender.other.storedValue = buyer.isEmpty() ? 0 : 2;
            tender.discount = Decimal::fromMicros(dice.bounded(3) * 110'000);
            sold.push_back({shop.sell(first, second, tender, buyer), first, second, buyer});
        }
    }
}

Decimal sumOf(const Rows &rows, QStringView field) {
    Decimal sum;
    for (const Row &row : rows)
        sum += row.decimal(field);
    return sum;
}

} // namespace

class TestCounterReports : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void aDayAgainstPlainSums_data() { addEngineRows(); }
    void aDayAgainstPlainSums();
    void rankings_data() { addEngineRows(); }
    void rankings();
    void casesAndBottles_data() { addEngineRows(); }
    void casesAndBottles();
    void dayEnd_data() { addEngineRows(); }
    void dayEnd();
    void shifts_data() { addEngineRows(); }
    void shifts();
    void shiftThatChangedMeanwhile_data() { addEngineRows(); }
    void shiftThatChangedMeanwhile();
};

void TestCounterReports::aDayAgainstPlainSums() {
    TillShop shop;
    play(shop, 80);
    Decimal cash, due;
    int receipts = 0;
    for (TillFigures &f : tillFigures(shop.session, shop.today())) {
        TillFigures &plain = shop.expected[f.cashier];
        plain.cashier = f.cashier;
        QCOMPARE(f.owed(), Decimal());
        QVERIFY(f == plain);
        cash += f.cashDue() - f.in + f.out;
        due += f.due;
        receipts += static_cast<int>(f.sales + f.returns);
    }
    // Takings are what the cash journal holds.
    QCOMPARE(cash, AccountBalance(shop.db, u"现金"_qs) - shop.cashAtFirst);

    const Rows journal = listReceipts(shop.session, shop.today());
    QCOMPARE(static_cast<int>(journal.size()), receipts);
    QCOMPARE(sumOf(journal, u"pos_yfje"), due);
    for (const Row &row : journal)
        QCOMPARE(sumOf(receiptLines(shop.session, row.text(u"gl_djh"), row.flag(u"is_return")),
                       u"pos_zje"),
                 row.decimal(u"pos_yfje"));

    for (const Row &row : counterGoods(shop.session, shop.today())) {
        const QString code = row.text(u"goods");
        const Sum &plain = shop.goods[code];
        const Decimal cost =
            (plain.quantity * Decimal(code == u"G1" ? firstCost : secondCost)).rounded(2);
        QCOMPARE(row.decimal(u"sl"), plain.quantity);
        QCOMPARE(row.decimal(u"zje"), plain.amount);
        QCOMPARE(row.decimal(u"zcb"), cost);
        QCOMPARE(row.decimal(u"lr"), plain.amount - cost);
        CounterFilter lines = shop.today();
        lines.goods = code;
        QCOMPARE(sumOf(counterLineList(shop.session, lines), u"pos_zje"), plain.amount);
    }

    const Rows members = counterMembers(shop.session, shop.today());
    QCOMPARE(members.size(), size_t{1});
    const Sum &buyer = shop.buyers[shop.member];
    QCOMPARE(members[0].integer(u"cs"), buyer.sales);
    QCOMPARE(members[0].integer(u"thcs"), buyer.returns);
    QCOMPARE(members[0].decimal(u"zje"), buyer.amount);
    // Points of returns are taken off, as they were from the member.
    const Member member = loadMember(shop.db, shop.member);
    QCOMPARE(members[0].decimal(u"pos_bcjf"), member.allPoints);
    QCOMPARE(member.spent, buyer.amount);
}

void TestCounterReports::rankings() {
    TillShop shop;
    play(shop, 30);
    const auto rank = [&](RankedBy by, RankMeasure measure, int most = 50) {
        return counterRanking(shop.session, shop.today(), by, measure, most);
    };
    Decimal all;
    for (const auto &[code, sum] : shop.goods)
        all += sum.amount;
    for (const RankedBy by :
         {RankedBy::goods, RankedBy::goodsClass, RankedBy::member, RankedBy::cashier}) {
        const Rows rows = rank(by, RankMeasure::amount);
        QCOMPARE(sumOf(rows, u"zje"), all);
        QCOMPARE(rows.back().decimal(u"cumulative"), 100_d);
        for (size_t i = 0; i < rows.size(); ++i) {
            QCOMPARE(rows[i].integer(u"rank"), static_cast<qint64>(i) + 1);
            QVERIFY(i == 0 || rows[i - 1].decimal(u"zje") >= rows[i].decimal(u"zje"));
        }
    }
    const Rows goods = rank(RankedBy::goods, RankMeasure::amount, 1);
    QCOMPARE(goods.size(), size_t{1});
    QCOMPARE(goods[0].text(u"gkey"), u"G1"_qs);
    QCOMPARE(goods[0].decimal(u"share"), (shop.goods[u"G1"_qs].amount * 100_d / all).rounded(2));
    QCOMPARE(sumOf(rank(RankedBy::member, RankMeasure::quantity), u"sl"),
             shop.goods[u"G1"_qs].quantity + shop.goods[u"G2"_qs].quantity);
    // A row leads to its own lines.
    for (const Row &row : rank(RankedBy::member, RankMeasure::profit)) {
        CounterFilter filter = shop.today();
        filter.member = row.text(u"gkey").isEmpty() ? noneAtAll : row.text(u"gkey");
        QCOMPARE(sumOf(counterLineList(shop.session, filter), u"lr"), row.decimal(u"lr"));
    }
    CounterFilter sought = shop.today();
    sought.search = u"G2"_qs;
    QCOMPARE(
        counterRanking(shop.session, sought, RankedBy::goods, RankMeasure::amount, 50)[0].integer(
            u"rank"),
        2);
}

/// A case is twelve bottles, and the operator of another warehouse sees nothing of it.
void TestCounterReports::casesAndBottles() {
    TillShop shop;
    shop.addUnit(u"G1"_qs, u"箱"_qs, 12);
    Receipt r;
    r.warehouse = r.clerk = administratorNo;
    ReceiptLine &line = r.lines.emplace_back();
    line.goods = u"G1"_qs;
    line.unit = u"箱"_qs;
    line.factor = 12;
    line.price = line.retailPrice = 100;
    PostedReceipt posted;
    Shop::demand(postReceipt(shop.session, shop.user, r, {.cash = 100, .other = {}}, &posted));
    shop.sell(1, 1, {.cash = 20, .other = {}});
    CounterFilter filter = shop.today();
    QCOMPARE(counterGoods(shop.session, filter)[0].decimal(u"sl"), 13_d);
    filter.search = posted.number;
    QCOMPARE(counterLineList(shop.session, filter)[0].decimal(u"pos_sl"), 1_d);
    filter.search.clear();
    filter.warehouse = u"100002"_qs;
    QVERIFY(counterGoods(shop.session, filter).empty());
    shop.set(u"cs_cs002"_qs, 1);
    shop.db.execute(u"update jxc_ckxx set ck_asn='900' where ck_sn='100001'"_qs);
    Session clerk = shop.clerk(u"tjgl"_qs, {15});
    QVERIFY(counterGoods(clerk, shop.today()).empty());
}

void TestCounterReports::dayEnd() {
    TillShop shop;
    play(shop, 40);
    Decimal amount;
    for (const auto &[code, sum] : shop.goods)
        amount += sum.amount;
    const size_t receipts = listReceipts(shop.session, shop.today()).size();
    const Unsettled open = unsettledReceipts(shop.session);
    QCOMPARE(static_cast<size_t>(open.receipts), receipts);
    QCOMPARE(open.amount, amount);
    QString number;
    Shop::demand(settleCounter(shop.session, shop.user, &number));
    QCOMPARE(unsettledReceipts(shop.session).receipts, 0);
    const Rows settlements = listSettlements(shop.session, day(1), day(31), number.right(5));
    QCOMPARE(settlements.size(), size_t{1});
    QCOMPARE(settlements[0].decimal(u"rj_je"), amount);
    QCOMPARE(sumOf(settlementLines(shop.session, number, {}), u"rj_je"), amount);
    QCOMPARE(settlementLines(shop.session, number, u"G2"_qs).size(), size_t{1});
    QCOMPARE(settlementReceipts(shop.session, number, {}).size(), receipts);
    shop.sell(1, 1, {.cash = 20, .other = {}});
    QCOMPARE(settlementReceipts(shop.session, number, {}).size(), receipts);
}

/// Three shifts of one day: what is left goes to whoever comes next, and till cash counts once.
void TestCounterReports::shifts() {
    TillShop shop;
    const auto end = [&](const Handover &handover) {
        qint64 id = 0;
        shop.wait(60);
        const Shift shown = runningShift(shop.session);
        Shop::demand(endShift(shop.session, shop.user, shown, handover, &id));
        shop.wait(60);
        const EndedShift ended = readShift(shop.session, id);
        // What is printed again is what was shown.
        Shift printed = ended.shift;
        printed.figures.sales = shown.figures.sales; // not kept
        printed.figures.returns = shown.figures.returns;
        if (!(printed == shown))
            qFatal("the stored shift is another one");
        return ended;
    };
    shop.become(u"admin"_qs);
    shop.tillCash(TillDirection::in, 200);
    shop.sell(1, 1, {.cash = 20, .other = {}}); // 13.23
    shop.backOffice(u"XS"_qs, 1);               // its money is not in the till
    const EndedShift first = end({113.23_d, 100, u"乙"_qs, u"找零"_qs});
    QCOMPARE(first.shift.cashDue(), 213.23_d);
    QCOMPARE(first.handover.difference(first.shift), Decimal());
    QCOMPARE(first.shift.begin, u"2026-03-31 00:00:00"_qs);
    QCOMPARE(first.handover.next, u"乙"_qs);

    shop.become(u"乙"_qs);
    const QString sold = shop.sell(2, 1, {.cash = 30, .other = {.weChat = 1}}); // 23.13
    shop.giveBack(sold, 2, 1, {});
    shop.recharge(50, 60, 0);
    shop.tillCash(TillDirection::out, 30);
    const EndedShift second = end({100, 19_d, {}, {}});
    QCOMPARE(second.shift.received, 100_d);
    // 100 + (30 − 7.87 − 23.13) − 30 + 50
    QCOMPARE(second.shift.cashDue(), 119_d);
    QCOMPARE(second.shift.figures.returned, 23.13_d);
    QCOMPARE(second.shift.figures.due, Decimal());

    shop.tillCash(TillDirection::in, 5);
    const EndedShift third = end({20, 0, {}, {}});
    QCOMPARE(third.shift.received, 19_d); // left by himself
    QCOMPARE(third.shift.figures.in, 5_d);
    QCOMPARE(third.shift.figures.out, Decimal());
    QCOMPARE(third.handover.difference(third.shift), -4_d);

    // The shifts are the takings, less what the back office sold.
    const Rows all = listShifts(shop.session, day(31), day(31), {});
    QCOMPARE(all.size(), size_t{3});
    Decimal cash = firstPrice;
    for (const Row &row : all)
        cash += row.decimal(u"jb_xjje") - row.decimal(u"jb_zlje") + row.decimal(u"jb_xjje2") -
                row.decimal(u"jb_zlje2");
    QCOMPARE(cash, AccountBalance(shop.db, u"现金"_qs) - shop.cashAtFirst);
    QCOMPARE(sumOf(all, u"jb_rkje"), 205_d);
    QCOMPARE(sumOf(all, u"jb_ckje"), 30_d);
    QCOMPARE(shop.texts(u"select jb_curruser,jb_nextuser,jb_note from jxc_jbgl order by id limit "
                        "1"_qs),
             QStringList{u"admin|乙|找零"_qs});
    QCOMPARE(shop.figures(u"select jb_jjzje,jb_bbskzje,jb_sjyyk,jb_xfyyk from jxc_jbgl order by id "
                          "limit 1"_qs),
             u"213.23 13.23 113.23 100"_qs);
    PrintSettings settings;
    const QByteArray paper = escPosShift(settings, third, true);
    QVERIFY(paper.contains("24.00") && paper.contains("4.00"));
    for (const QByteArray &line : paper.split('\n'))
        QVERIFY2(line.size() <= settings.columns() + 8, line.constData());
}

void TestCounterReports::shiftThatChangedMeanwhile() {
    TillShop shop;
    shop.sell(1, 1, {.cash = 20, .other = {}});
    const Shift shown = runningShift(shop.session);
    const QStringList before = shop.everything();
    qint64 id = 0;
    QCOMPARE(endShift(shop.session, shop.user, shown, {-1_d, {}, {}, {}}, &id).text,
             u"金额不能小于零！"_qs);
    Session clerk = shop.clerk(u"tjgl"_qs, {15});
    QVERIFY(endShift(clerk, shop.user, shown, {}, &id).text.contains(u"没有权限"_qs));
    shop.tillCash(TillDirection::in, 1);
    QCOMPARE(endShift(shop.session, shop.user, shown, {}, &id).text,
             u"交班数据已变化，请重新核对！"_qs);
    shop.user.answers = {false};
    QVERIFY(!endShift(shop.session, shop.user, runningShift(shop.session), {}, &id).isDone());
    QCOMPARE(shop.figures(u"select count(*) from jxc_poshb"_qs), u"0"_qs);
    Shop::demand(endShift(shop.session, shop.user, runningShift(shop.session), {}, &id));
    QVERIFY(shop.user.takeAsked().last().contains(u"短款：14.23"_qs));
    QCOMPARE(endShift(shop.session, shop.user, runningShift(shop.session), {}, &id).text,
             u"刚刚已经交班！"_qs);
}

QTEST_GUILESS_MAIN(TestCounterReports)
#include "test_counter_reports.moc"
