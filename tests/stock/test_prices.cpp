// Proposed selling prices, the cost that lines are charged, the amounts of a line.
#include "db/database.h"
#include "stock/amounts.h"
#include "stock/cost.h"
#include "stock/posting.h"
#include "stock/selling_price.h"
#include "support/shop.h"

#include <QTest>

using namespace jxc;
using namespace jxc::test;

namespace {

const QString g1 = QStringLiteral("G1");
const QString mainStore = QStringLiteral("100001");
const QString bottle = QStringLiteral("瓶");
const QString crate = QStringLiteral("箱");

QString price(Shop &shop, const QString &customer, const QString &unit) {
    return defaultSellingPrice(shop.db, shop.session.parameters, g1, customer, unit).toText();
}

QString sell(Shop &shop, int date, Decimal price, const QString &unit = {}, Decimal factor = 1) {
    DraftLine line{.goods = g1};
    line.quantity = 1;
    line.price = price;
    line.unit = unit;
    line.factor = factor;
    return shop.save(u"XS"_qs, day(date), {line}, [](Draft &d) { d.partner = u"100002"_qs; });
}

void agree(Shop &shop, Decimal price) {
    shop.db.insertRow(u"jxc_khbj"_qs,
                      {{u"g_sn"_qs, g1}, {u"kh_sn"_qs, u"100002"}, {u"kb_bj"_qs, price}});
}

qint64 addJournalRow(Shop &shop, const QString &flag, int date, Decimal cost,
                     const QString &warehouse = mainStore) {
    return shop.db.insertRow(u"jxc_goodslist"_qs, {{u"gl_flag"_qs, flag},
                                                   {u"gl_djh"_qs, u"CJ26030110001"},
                                                   {u"gl_kdrq"_qs, day(date)},
                                                   {u"g_sn"_qs, g1},
                                                   {u"ck_sn"_qs, warehouse},
                                                   {u"gl_pjjj"_qs, cost}});
}

void setStockCost(Shop &shop, Decimal cost) {
    shop.db.execute(u"delete from jxc_kcsp where g_sn='G1'"_qs);
    shop.db.insertRow(u"jxc_kcsp"_qs, {{u"g_sn"_qs, g1},
                                       {u"ck_sn"_qs, mainStore},
                                       {u"kc_sl"_qs, 0},
                                       {u"kc_zsl"_qs, 0},
                                       {u"kc_xssl"_qs, 0},
                                       {u"kc_cbj"_qs, cost}});
}

} // namespace

class TestPrices : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void standardAndLevelPrices_data() { addEngineRows(); }
    void standardAndLevelPrices();
    void lastPriceGoesBefore_data() { addEngineRows(); }
    void lastPriceGoesBefore();
    void agreedPriceGoesFirst_data() { addEngineRows(); }
    void agreedPriceGoesFirst();
    void costOnADay_data() { addEngineRows(); }
    void costOnADay();
    void costBeforeARow_data() { addEngineRows(); }
    void costBeforeARow();
    void amountsOfALine();
};

void TestPrices::standardAndLevelPrices() {
    Shop shop;
    shop.addGoods(g1,
                  {{u"g_sj"_qs, 10.126_d}, {u"g_sj1"_qs, 9}, {u"g_sj3"_qs, 0}, {u"g_sj5"_qs, 7}});
    shop.addUnit(g1, crate, 12, {{u"g_sj"_qs, 110}, {u"g_sj1"_qs, 100}, {u"g_sj5"_qs, 0}});
    for (const QString &type : {u"1001"_qs, u"1003"_qs, u"1005"_qs, u"1006"_qs})
        shop.addCustomer(u"k"_qs + type, u"客户"_qs, type);

    shop.set(u"cs_cs001"_qs, 0);
    QCOMPARE(price(shop, u"k1001"_qs, bottle), u"10.13"_qs);
    QCOMPARE(price(shop, u"k1001"_qs, {}), u"10.13"_qs);
    QCOMPARE(price(shop, u"k1001"_qs, crate), u"110"_qs);
    QCOMPARE(price(shop, u"k1001"_qs, u"桶"_qs), u"0"_qs); // no such unit
    shop.set(u"cs_cs001"_qs, 1);
    QCOMPARE(price(shop, u"k1001"_qs, bottle), u"9"_qs);
    QCOMPARE(price(shop, u"k1001"_qs, crate), u"100"_qs);
    QCOMPARE(price(shop, u"k1005"_qs, bottle), u"7"_qs);
    QCOMPARE(price(shop, u"k1005"_qs, crate), u"110"_qs);     // its level has no price
    QCOMPARE(price(shop, u"k1003"_qs, bottle), u"10.13"_qs);  // nor has this one
    QCOMPARE(price(shop, u"k1006"_qs, bottle), u"10.13"_qs);  // no such level
    QCOMPARE(price(shop, u"100001"_qs, bottle), u"10.13"_qs); // 1000: the ordinary price
    QCOMPARE(price(shop, u"nobody"_qs, bottle), u"10.13"_qs);
    shop.set(u"cs_xsws"_qs, 0);
    QCOMPARE(price(shop, u"k1003"_qs, bottle), u"10"_qs);
}

/// In the base unit what was entered last counts, in another the latest date: deliberate.
void TestPrices::lastPriceGoesBefore() {
    Shop shop;
    shop.addGoods(g1, {{u"g_sj"_qs, 10}, {u"g_sj1"_qs, 9}});
    shop.addUnit(g1, crate, 12, {{u"g_sj"_qs, 110}});
    shop.addCustomer(u"100002"_qs, u"合作社"_qs, u"1001"_qs);
    shop.set(u"cs_cs001"_qs, 1);
    shop.set(u"cs_xsdj"_qs, 1);
    QCOMPARE(price(shop, u"100002"_qs, bottle), u"9"_qs);
    shop.approve(sell(shop, 10, 8.5_d));
    shop.approve(sell(shop, 5, 8.2_d));
    shop.approve(sell(shop, 10, 95, crate, 12));
    shop.approve(sell(shop, 5, 96, crate, 12));
    sell(shop, 20, 1); // a draft is no sale
    sell(shop, 20, 2, crate, 12);
    QCOMPARE(price(shop, u"100002"_qs, bottle), u"8.2"_qs);
    QCOMPARE(price(shop, u"100002"_qs, crate), u"95"_qs);
    QCOMPARE(price(shop, u"100001"_qs, bottle), u"10"_qs); // sold to others
    shop.approve(sell(shop, 21, 0));                       // given away: no price
    QCOMPARE(price(shop, u"100002"_qs, bottle), u"9"_qs);
    shop.set(u"cs_xsdj"_qs, 0);
    QCOMPARE(price(shop, u"100002"_qs, crate), u"110"_qs);
}

void TestPrices::agreedPriceGoesFirst() {
    Shop shop;
    shop.addGoods(g1, {{u"g_sj"_qs, 10}});
    shop.addUnit(g1, crate, 12, {{u"g_sj"_qs, 110}});
    shop.addCustomer(u"100002"_qs, u"合作社"_qs, u"1001"_qs);
    shop.set(u"cs_xsdj"_qs, 1);
    agree(shop, 8);
    agree(shop, 7.777_d); // the newer one
    shop.approve(sell(shop, 10, 9.5_d));
    QCOMPARE(price(shop, u"100002"_qs, bottle), u"7.78"_qs);
    QCOMPARE(price(shop, u"100002"_qs, crate), u"93.32"_qs); // 7.777 * 12 = 93.324
    QCOMPARE(price(shop, u"100001"_qs, bottle), u"10"_qs);
    agree(shop, 0); // withdrawn
    QCOMPARE(price(shop, u"100002"_qs, bottle), u"9.5"_qs);
}

void TestPrices::costOnADay() {
    Shop shop;
    const auto cost = [&](int date) {
        return getCbjAt(shop.db, mainStore, g1, day(date)).toText();
    };
    QCOMPARE(cost(10), u"0"_qs); // no such goods
    shop.addGoods(g1, {{u"g_pjjj"_qs, 3}});
    QCOMPARE(cost(10), u"3"_qs);
    setStockCost(shop, 4);
    QCOMPARE(cost(10), u"4"_qs);
    addJournalRow(shop, u"cj"_qs, 10, 99, u"100002"_qs); // of another warehouse
    QCOMPARE(cost(10), u"4"_qs);
    addJournalRow(shop, u"cj"_qs, 21, 7);
    addJournalRow(shop, u"cj"_qs, 20, 6);
    QCOMPARE(cost(10), u"6"_qs); // the first later one
    addJournalRow(shop, u"cj"_qs, 5, 5);
    addJournalRow(shop, u"qc"_qs, 5, 5.5_d);
    addJournalRow(shop, u"cj"_qs, 2, 1);
    QCOMPARE(cost(10), u"5.5"_qs);
    QCOMPARE(cost(5), u"5.5"_qs); // the day itself counts, its last row
    QCOMPARE(cost(4), u"1"_qs);
    QCOMPARE(cost(30), u"7"_qs);
    addJournalRow(shop, u"cj"_qs, 6, 0);
    QCOMPARE(cost(10), u"0"_qs); // a row is a row, here
}

void TestPrices::costBeforeARow() {
    Shop shop;
    const auto cost = [&](qint64 id = afterEveryRow) {
        return getCbjBefore(shop.db, mainStore, g1, day(10), id).toText();
    };
    QCOMPARE(cost(), u"0"_qs);
    shop.addGoods(g1, {{u"g_pjjj"_qs, 3}});
    setStockCost(shop, 0);
    QCOMPARE(cost(), u"3"_qs); // a stock row of cost 0 is no cost
    setStockCost(shop, 4);
    QCOMPARE(cost(), u"4"_qs);
    addJournalRow(shop, u"cj"_qs, 9, 99, u"100002"_qs);
    addJournalRow(shop, u"cj"_qs, 20, 6);
    QCOMPARE(cost(), u"6"_qs); // a later row
    addJournalRow(shop, u"qc"_qs, 10, 7);
    QCOMPARE(cost(), u"7"_qs); // an opening row of the day
    const qint64 sold = addJournalRow(shop, u"xs"_qs, 9, 8);
    QCOMPARE(cost(sold), u"8"_qs); // an earlier day, though entered later
    shop.db.execute(u"update jxc_goodslist set gl_pjjj=0 where id=?"_qs, {sold});
    QCOMPARE(cost(), u"7"_qs); // its 0 is passed over, step by step
    shop.db.execute(u"delete from jxc_goodslist where id=?"_qs, {sold});
    addJournalRow(shop, u"qc"_qs, 8, 9);
    const qint64 opening = addJournalRow(shop, u"qc"_qs, 9, 11);
    QCOMPARE(cost(opening), u"9"_qs); // an opening row of an earlier day, entered before
    QCOMPARE(cost(), u"11"_qs);
    const qint64 bought = addJournalRow(shop, u"cj"_qs, 3, 12);
    QCOMPARE(cost(), u"12"_qs); // anything but an opening row goes first
    QCOMPARE(cost(bought), u"11"_qs);
    addJournalRow(shop, u"cj"_qs, 10, 13);
    QCOMPARE(cost(), u"13"_qs); // the day itself counts
    shop.db.execute(u"update jxc_goodslist set gl_pjjj=0"_qs);
    QCOMPARE(cost(), u"4"_qs);
}

void TestPrices::amountsOfALine() {
    const auto shown = [](const LineAmounts &a) {
        QStringList figures;
        for (const Decimal figure : {a.price, a.taxPrice, a.total, a.amount, a.tax, a.discounted})
            figures << figure.toText();
        return figures.join(u' ');
    };
    Parameters p;
    p.pricesIncludeTax = false;
    // 10.005 * 1.09 = 10.905(45); 3 * 10.905 * 0.95 = 31.07925; 3 * 10.005 * 0.95 = 28.51425
    QCOMPARE(shown(lineAmounts(p, 3, 10.005_d, 9, 0.95_d)),
             u"10.005 10.905 31.08 28.51 2.57 10.36"_qs);
    QCOMPARE(shown(lineAmounts(p, 2.5_d, 4, 0, 1)), u"4 4 10 10 0 4"_qs);
    p.pricesIncludeTax = true;
    // 10 / 1.09 = 9.174(31); 7 * 9.174 = 64.218
    QCOMPARE(shown(lineAmounts(p, 7, 10, 9, 1)), u"9.174 10 70 64.22 5.78 10"_qs);
    p.priceDecimals = 4; // 9.1743(1); 7 * 9.1743 = 64.2201
    QCOMPARE(shown(lineAmounts(p, 7, 10, 9, 1)), u"9.1743 10 70 64.22 5.78 10"_qs);
    p.amountDecimals = 0;
    QCOMPARE(shown(lineAmounts(p, 7, 10.5_d, 0, 1)), u"10.5 10.5 74 74 0 10.5"_qs); // 73.5
}

QTEST_GUILESS_MAIN(TestPrices)
#include "test_prices.moc"
