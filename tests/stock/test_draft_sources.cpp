// What a line starts with: proposals, batches, earlier prices, buyers, and the documents it
// follows.
#include "base/identity_number.h"
#include "stock/buyers.h"
#include "stock/close_rest.h"
#include "stock/expiry.h"
#include "stock/proposals.h"
#include "stock/sources.h"
#include "support/shop.h"

#include <QTest>

using namespace jxc;
using namespace jxc::test;

namespace {

const QString g1 = QStringLiteral("G1");

Batch batchUntil(const QString &number, const QString &expiry) {
    return {number, expiry, QStringLiteral("2026-01-01")};
}

DraftLine lineOf(Decimal quantity, Decimal price,
                 const Batch &batch = batchUntil(QStringLiteral("B1"),
                                                 QStringLiteral("2027-01-01"))) {
    DraftLine line{.goods = g1};
    line.quantity = quantity;
    line.price = price;
    line.batch = batch;
    return line;
}

LineRequest request(const QString &code, const QString &unit = {}) {
    return {code, administratorNo, administratorNo, day(31), g1, unit};
}

/// "number quantity days" of each batch.
QStringList shown(const std::vector<BatchChoice> &batches) {
    QStringList all;
    for (const BatchChoice &b : batches)
        all << QStringLiteral("%1 %2 %3")
                   .arg(b.batch.number, b.quantity.toText(),
                        b.daysLeft ? QString::number(*b.daysLeft) : QStringLiteral("-"));
    return all;
}

QStringList shown(const std::vector<BatchPart> &parts) {
    QStringList all;
    for (const BatchPart &part : parts)
        all << part.batch.number + u' ' + part.quantity.toText();
    return all;
}

/// A draft of these open lines.
Draft follower(const QString &code, const std::vector<OpenLineOfSource> &lines) {
    Draft d;
    d.code = code;
    d.date = day(31);
    d.warehouse = d.clerk = administratorNo;
    for (const OpenLineOfSource &open : lines) {
        DraftLine line{.goods = open.goods};
        line.unit = open.unit;
        line.factor = open.factor;
        line.quantity = open.open;
        line.batch = open.batch;
        line.sourceNumber = open.number;
        line.sourceLine = open.sourceLine;
        d.lines.push_back(line);
    }
    return d;
}

} // namespace

class TestDraftSources : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void goodsUnitsAndStock_data() { addEngineRows(); }
    void goodsUnitsAndStock();
    void purchasePrices_data() { addEngineRows(); }
    void purchasePrices();
    void batchesThatExpireFirst_data() { addEngineRows(); }
    void batchesThatExpireFirst();
    void quantityOverBatches();
    void pastPrices_data() { addEngineRows(); }
    void pastPrices();
    void buyers_data() { addEngineRows(); }
    void buyers();
    void goodsInFollowsReceipts_data() { addEngineRows(); }
    void goodsInFollowsReceipts();
    void goodsOutFollowsSales_data() { addEngineRows(); }
    void goodsOutFollowsSales();
    void returnsNameTheirSource_data() { addEngineRows(); }
    void returnsNameTheirSource();
    void saleOfReducedTotalComesBackForLess_data() { addEngineRows(); }
    void saleOfReducedTotalComesBackForLess();
    void identityNumbersAndExpiries();
};

void TestDraftSources::goodsUnitsAndStock() {
    Shop shop;
    shop.addGoods(g1, {{u"g_sj"_qs, 9}, {u"g_lsj"_qs, 10}, {u"g_iscf"_qs, 1}, {u"g_bzq"_qs, 24}});
    shop.addUnit(g1, u"箱"_qs, 12, {{u"g_sj"_qs, 100}, {u"g_sptm"_qs, u"777"}});
    shop.post(u"CJ"_qs, day(1), {lineOf(30, 5)});
    LineRequest scan = request(u"XS"_qs);
    scan.barcode = u"777"_qs;
    const auto p = proposeLine(shop.session, scan);
    QVERIFY(p.has_value());
    QCOMPARE(p->unit, u"箱"_qs);
    QCOMPARE(p->factor, Decimal(12));
    QCOMPARE(p->price, Decimal(100));
    QCOMPARE(p->retailPrice, Decimal(120));
    QCOMPARE(p->cost, Decimal(60));
    QCOMPARE(p->stock, 2.5_d);
    QCOMPARE(p->units.size(), size_t{2});
    QVERIFY(p->restricted);
    QCOMPARE(p->shelfLifeMonths, 24);
    QCOMPARE(proposeLine(shop.session, request(u"XS"_qs))->price, Decimal(9));
    shop.set(u"cs_fzdw"_qs, 0);
    QCOMPARE(proposeLine(shop.session, scan)->unit, u"瓶"_qs);
    shop.db.execute(u"update jxc_goods set g_jy=1 where g_sn='G1'"_qs);
    QVERIFY(!proposeLine(shop.session, scan).has_value());
}

void TestDraftSources::purchasePrices() {
    Shop shop;
    shop.addGoods(g1, {{u"g_jj"_qs, 6}, {u"g_scjj"_qs, 7}});
    shop.addUnit(g1, u"箱"_qs, 12, {{u"g_jj"_qs, 70}});
    const auto price = [&](const QString &code, const QString &unit) {
        return proposePrice(shop.session, request(code, unit)).toText();
    };
    QCOMPARE(price(u"CJ"_qs, u"瓶"_qs), u"7"_qs);
    QCOMPARE(price(u"CJ"_qs, u"箱"_qs), u"84"_qs);
    shop.set(u"cs_cgdj"_qs, 0);
    QCOMPARE(price(u"CJ"_qs, u"瓶"_qs), u"6"_qs);
    QCOMPARE(price(u"CJ"_qs, u"箱"_qs), u"70"_qs);
    QCOMPARE(price(u"CT"_qs, u"箱"_qs), u"84"_qs);
    for (const auto &[date, quoted] : {std::pair(day(9), 5), std::pair(day(2), 4)})
        shop.db.insertRow(u"jxc_ghsbj"_qs, {{u"g_sn"_qs, g1},
                                            {u"ghs_sn"_qs, administratorNo},
                                            {u"gb_bj"_qs, quoted},
                                            {u"gb_bjrq"_qs, date}});
    QCOMPARE(price(u"CJ"_qs, u"箱"_qs), u"60"_qs);
}

void TestDraftSources::batchesThatExpireFirst() {
    Shop shop;
    shop.addGoods(g1);
    shop.post(u"CJ"_qs, day(1),
              {lineOf(1, 5, {}), lineOf(2, 5, batchUntil(u"LATE"_qs, u"2027-01-01"_qs)),
               lineOf(3, 5, batchUntil(u"PAST"_qs, u"2026-03-30"_qs)),
               lineOf(4, 5, batchUntil(u"MONTH"_qs, u"2026-04"_qs)),
               lineOf(5, 5, batchUntil(u"NONE"_qs, u""_qs))});
    QCOMPARE(shown(batchesOut(shop.session, g1, administratorNo)),
             QStringList({u"PAST 3 -1"_qs, u"MONTH 4 30"_qs, u"LATE 2 276"_qs, u" 1 -"_qs,
                          u"NONE 5 -"_qs}));
    shop.post(u"XS"_qs, day(2), {lineOf(2, 9, batchUntil(u"LATE"_qs, u"2027-01-01"_qs))});
    QCOMPARE(batchesOut(shop.session, g1, administratorNo).size(), size_t{4});
    QVERIFY(batchesOut(shop.session, g1, u"100002"_qs).empty());
}

void TestDraftSources::quantityOverBatches() {
    const std::vector<BatchChoice> batches = {
        {batchUntil(u"A"_qs, {}), 20}, {batchUntil(u"B"_qs, {}), 30}, {batchUntil(u"C"_qs, {}), 5}};
    QCOMPARE(shown(splitOverBatches(batches, 8, 1)), QStringList(u"A 8"_qs));
    QCOMPARE(shown(splitOverBatches(batches, 25.5_d, 1)), QStringList({u"A 20"_qs, u"B 5.5"_qs}));
    // What is missing stays on the last part, where saving and approval ask about it.
    QCOMPARE(shown(splitOverBatches(batches, 60, 1)),
             QStringList({u"A 20"_qs, u"B 30"_qs, u"C 10"_qs}));
    QCOMPARE(shown(splitOverBatches(batches, 3, 12)), QStringList({u"A 1"_qs, u"B 2"_qs}));
    QCOMPARE(shown(splitOverBatches(batches, 4, 1, {{batchUntil(u"A"_qs, {}), 18}})),
             QStringList({u"A 2"_qs, u"B 2"_qs}));
    QCOMPARE(shown(splitOverBatches({}, 4, 1)), QStringList(u" 4"_qs));
}

void TestDraftSources::pastPrices() {
    Shop shop;
    shop.addGoods(g1);
    shop.addCustomer(u"100002"_qs, u"张三"_qs, u"1000"_qs);
    for (int i = 1; i <= 11; ++i)
        shop.post(u"XS"_qs, day(i), {lineOf(1, 10 + i)});
    shop.post(u"XS"_qs, day(12), {lineOf(1, 30)}, [](Draft &d) { d.partner = u"100002"_qs; });
    shop.save(u"XS"_qs, day(13), {lineOf(1, 40)});
    const auto walkIn = lastPrices(shop.session, u"XT"_qs, g1, administratorNo);
    QCOMPARE(walkIn.size(), size_t{10});
    QCOMPARE(walkIn.front().price, Decimal(21));
    QCOMPARE(walkIn.back().price, Decimal(12));
    QCOMPARE(lastPrices(shop.session, u"XS"_qs, g1, {}).front().partnerName, u"张三"_qs);
    QVERIFY(lastPrices(shop.session, u"CJ"_qs, g1, {}).empty());
}

void TestDraftSources::buyers() {
    Shop shop;
    shop.addGoods(g1, {{u"g_iscf"_qs, 1}});
    shop.addCustomer(u"100002"_qs, u"张三"_qs, u"1000"_qs);
    const auto sellTo = [&](const QString &customer, const QString &buyer, const QString &mobile) {
        DraftLine line = lineOf(1, 9);
        line.buyer = buyer;
        line.identityNo = u"11010519491231002X"_qs;
        line.mobile = mobile;
        line.address = u"王家村"_qs;
        shop.save(u"XS"_qs, day(3), {line}, [&](Draft &d) { d.partner = customer; });
    };
    sellTo(u"100002"_qs, u"张三"_qs, u"139"_qs);
    sellTo(administratorNo, u"李四"_qs, u"138"_qs);
    QCOMPARE(lastBuyerOf(shop.session, u"100002"_qs)->name, u"张三"_qs);
    QVERIFY(!lastBuyerOf(shop.session, administratorNo).has_value());
    QCOMPARE(findBuyer(shop.session, u"139 "_qs)->name, u"张三"_qs);
    QCOMPARE(findBuyer(shop.session, u"11010519491231002x"_qs)->name, u"李四"_qs);
    QCOMPARE(findBuyer(shop.session, u"138"_qs)->address, u"王家村"_qs);
    QVERIFY(!findBuyer(shop.session, u""_qs).has_value());
}

void TestDraftSources::goodsInFollowsReceipts() {
    Shop shop;
    shop.addGoods(g1);
    DraftLine cases = lineOf(3, 60);
    cases.unit = u"箱"_qs;
    cases.factor = 12;
    const QString receipt = shop.post(u"CJ"_qs, day(1), {cases, lineOf(5, 5)}, laterOnAccount);
    shop.post(u"CJ"_qs, day(2), {lineOf(5, 5)}); // wholly there
    auto open = openLinesOf(shop.session, u"RK"_qs, {}, administratorNo);
    QCOMPARE(open.size(), size_t{2});
    QCOMPARE(open[0].factor, Decimal(12));
    Draft in = follower(u"RK"_qs, open);
    in.lines[1].quantity = 2;
    Shop::demand(saveDraft(shop.session, shop.user, in));
    QCOMPARE(shop.figures(u"select rk_zsl from jxc_rkd"_qs), u"38"_qs);
    QCOMPARE(loadDraft(shop.session, in.number)->partner, administratorNo);
    auto again = loadDraft(shop.session, in.number);
    again->lines[0].quantity = 1;
    Shop::demand(saveDraft(shop.session, shop.user, *again));
    shop.approve(in.number);
    QCOMPARE(shop.stock(g1), u"19 46 0 5"_qs);

    const auto documents = openDocuments(shop.session, u"RK"_qs);
    QCOMPARE(documents.size(), size_t{1});
    QCOMPARE(documents[0].number, receipt);
    QCOMPARE(documents[0].ordered, Decimal(8));
    QCOMPARE(documents[0].done, Decimal(3));
    QCOMPARE(documents[0].open, Decimal(5));
    Shop::demand(closeRest(shop.session, shop.user, receipt));
    QVERIFY(openDocuments(shop.session, u"RK"_qs).empty());
    again->number.clear();
    again->lines[0].sourceNumber.clear();
    QCOMPARE(saveDraft(shop.session, shop.user, *again).text, u"第1行：必须选择原单！"_qs);
}

void TestDraftSources::goodsOutFollowsSales() {
    Shop shop;
    shop.addGoods(g1);
    shop.post(u"CJ"_qs, day(1), {lineOf(10, 5)});
    const QString sale = shop.post(u"XS"_qs, day(2), {lineOf(4, 9)}, laterOnAccount);
    Draft out = follower(u"CK"_qs, openLinesOf(shop.session, u"CK"_qs, sale));
    QVERIFY(saveAndApproveDraft(shop.session, shop.user, out).approved.isDone());
    QCOMPARE(shop.stock(g1), u"6 6 4 5"_qs);
    QVERIFY(openLinesOf(shop.session, u"CK"_qs, sale).empty());
}

void TestDraftSources::returnsNameTheirSource() {
    Shop shop;
    shop.addGoods(g1);
    shop.post(u"CJ"_qs, day(1), {lineOf(50, 5)});
    const QString sale = shop.post(u"XS"_qs, day(2), {lineOf(4, 9), lineOf(2, 9)});
    shop.post(u"CJ"_qs, day(3), {lineOf(50, 7)});
    const auto lines = [&](const QString &except = {}) {
        return returnableLines(shop.session, u"XT"_qs, administratorNo, administratorNo, except);
    };
    QCOMPARE(lines().size(), size_t{1});
    QCOMPARE(lines()[0].returnable, Decimal(6));
    QCOMPARE(lines()[0].cost, Decimal(5));
    DraftLine back = lineOf(5, 9);
    back.sourceNumber = sale;
    back.note = u"多买"_qs;
    const QString returned = shop.save(u"XT"_qs, day(10), {back});
    // What comes back costs what it was sold at, not what it would cost by now.
    QCOMPARE(shop.texts(u"select th_bz from jxc_xsthsp"_qs),
             QStringList(u"原单%1 多买"_qs.arg(sale)));
    QCOMPARE(shop.figures(u"select th_cbj,th_zcb from jxc_xsthsp"_qs), u"5 25"_qs);
    QCOMPARE(lines()[0].returned, Decimal(5));
    QCOMPARE(lines()[0].returnable, Decimal(1));
    QCOMPARE(lines(returned)[0].returnable, Decimal(6));
    const auto draft = loadDraft(shop.session, returned);
    QCOMPARE(draft->lines[0].note, u"多买"_qs);
    QCOMPARE(draft->lines[0].sourceNumber, sale);
    QVERIFY(returnableLines(shop.session, u"XT"_qs, administratorNo, u"100002"_qs).empty());
    // A receipt that was not taken in has nothing to give back.
    shop.post(u"CJ"_qs, day(4), {lineOf(8, 5)}, laterOnAccount);
    QCOMPARE(returnableLines(shop.session, u"CT"_qs, administratorNo, administratorNo).size(),
             size_t{2});
}

void TestDraftSources::saleOfReducedTotalComesBackForLess() {
    Shop shop;
    shop.addGoods(g1);
    shop.post(u"XS"_qs, day(2), {lineOf(4, 25)}, [](Draft &d) {
        d.paid = 90;
        d.restForgiven = true;
    });
    const auto lines = returnableLines(shop.session, u"XT"_qs, administratorNo, administratorNo);
    QCOMPARE(lines[0].price, 22.5_d);
}

void TestDraftSources::identityNumbersAndExpiries() {
    QVERIFY(isIdentityNumber(u"11010519491231002X"));
    QVERIFY(isIdentityNumber(u"11010519491231002x"));
    for (const QStringView wrong : {u"110105194912310021", u"11010519491331002X",
                                    u"1101051949123100", u"1101O519491231002X", u""})
        QVERIFY2(!isIdentityNumber(wrong), qPrintable(wrong.toString()));
    QCOMPARE(lastGoodDay(u"2028-02"), QDate(2028, 2, 29));
    QCOMPARE(lastGoodDay(u"20280205"), QDate(2028, 2, 5));
    QCOMPARE(lastGoodDay(u"2028.2.5"), QDate(2028, 2, 5));
    for (const QStringView never : {u"0000-00", u"", u"长期", u"2028-13"})
        QVERIFY(!lastGoodDay(never).isValid());
    QCOMPARE(expiryAfter(u"2026-01-31", 25), u"2028-02-29"_qs);
    QCOMPARE(expiryAfter(u"2026-01-31", 0), QString());
}

QTEST_GUILESS_MAIN(TestDraftSources)
#include "test_draft_sources.moc"
