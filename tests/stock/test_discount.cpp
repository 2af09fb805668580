// Discounts on a whole document: on a line of their own, or spread over the lines.
#include "db/transaction.h"
#include "stock/discount.h"
#include "stock/posting.h"
#include "support/shop.h"

#include <QTest>

using namespace jxc;
using namespace jxc::test;

namespace {

const QString g1 = QStringLiteral("G1");

DraftLine lineOf(Decimal quantity, Decimal price, Decimal discount = 1) {
    DraftLine line{.goods = g1};
    line.quantity = quantity;
    line.price = price;
    line.discount = discount;
    return line;
}

void spread(Shop &shop, const QString &number, Decimal oldTotal, Decimal newTotal) {
    Transaction transaction(shop.db);
    if (number.startsWith(u"CJ"_qs))
        spreadDjYhPurchase(shop.session, number, oldTotal, newTotal);
    else
        spreadDjYhSale(shop.session, number, oldTotal, newTotal);
    transaction.commit();
}

/// Every line: total, price with tax, price, amount, tax.
QStringList lines(Shop &shop, const QString &number) {
    const bool isReceipt = number.startsWith(u"CJ"_qs);
    const QString sql = isReceipt
                            ? u"select jh_zje,jh_taxdj,jh_dj,jh_je,jh_taxje from jxc_jhsp where "
                              "j_sn=? order by id"_qs
                            : u"select ls_zje,ls_taxdj,ls_dj,ls_je,ls_taxje from jxc_lsxssp where "
                              "gl_djh=? order by id"_qs;
    QStringList all;
    for (const Row &row : shop.db.rows(sql, {number})) {
        QStringList cells;
        for (size_t i = 0; i < 5; ++i)
            cells << row.decimal(i).toText();
        all << cells.join(u' ');
    }
    return all;
}

QString dueAndPaid(Shop &shop, const QString &number) {
    if (number.startsWith(u"CJ"_qs))
        return shop.figures(u"select j_yfje,j_sfje from jxc_jhd where j_sn=?"_qs, {number});
    return shop.figures(u"select ls_yfje,ls_sfje from jxc_lsxsd where gl_djh=?"_qs, {number});
}

} // namespace

class TestDiscount : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void spreadOverReceipt_data() { addEngineRows(); }
    void spreadOverReceipt();
    void smallLinesBearWhatTheyCan_data() { addEngineRows(); }
    void smallLinesBearWhatTheyCan();
    void passThatTakesNothingEnds_data() { addEngineRows(); }
    void passThatTakesNothingEnds();
    void spreadOverSaleLeavesGifts_data() { addEngineRows(); }
    void spreadOverSaleLeavesGifts();
    void lineOfItsOwn_data() { addEngineRows(); }
    void lineOfItsOwn();
    void discountLineIsProfitAndNoStock_data() { addEngineRows(); }
    void discountLineIsProfitAndNoStock();
};

/// 10.00 off three lines: 3.33 each; the cent that is left is below 0.40 and stays.
void TestDiscount::spreadOverReceipt() {
    Shop shop;
    shop.addGoods(g1);
    shop.set(u"cs_cgyh"_qs, 0);
    const QString plain =
        shop.save(u"CJ"_qs, day(5), {lineOf(10, 10), lineOf(10, 10), lineOf(10, 10)});
    spread(shop, plain, 300, 290);
    const QString each = u"96.67 9.667 9.667 96.67 0"_qs;
    QCOMPARE(lines(shop, plain), (QStringList{each, each, each}));
    QCOMPARE(dueAndPaid(shop, plain), u"290.01 290.01"_qs);

    // With 10 %: 106.67 / 10 = 10.667; / 1.1 = 9.697(27); 96.97 net, 9.70 tax.
    shop.set(u"cs_tax"_qs, 10);
    const QString taxed =
        shop.save(u"CJ"_qs, day(5), {lineOf(10, 10), lineOf(10, 10), lineOf(10, 10)});
    spread(shop, taxed, 330, 320);
    const QString eachTaxed = u"106.67 10.667 9.697 96.97 9.7"_qs;
    QCOMPARE(lines(shop, taxed), (QStringList{eachTaxed, eachTaxed, eachTaxed}));
    QCOMPARE(dueAndPaid(shop, taxed), u"320.01 320.01"_qs);
    QCOMPARE(dueAndPaid(shop, plain), u"290.01 290.01"_qs); // the other document stays

    const QString within = shop.save(u"CJ"_qs, day(5), {lineOf(10, 10)}); // 110.00
    spread(shop, within, 110, 109.6_d); // 0.40 is not worth a pass
    QCOMPARE(dueAndPaid(shop, within), u"110 110"_qs);
    spread(shop, within, 110, 109.59_d);
    QCOMPARE(dueAndPaid(shop, within), u"109.59 109.59"_qs);
}

/// 12 off 2 + 100 + 100: the first 4.00 is too much for the 2.00; of the 4.00 left it bears 1.33.
void TestDiscount::smallLinesBearWhatTheyCan() {
    Shop shop;
    shop.addGoods(g1);
    shop.set(u"cs_cgyh"_qs, 0);
    const QString receipt =
        shop.save(u"CJ"_qs, day(5), {lineOf(1, 2), lineOf(10, 10), lineOf(10, 10)});
    spread(shop, receipt, 202, 190);
    QCOMPARE(lines(shop, receipt),
             (QStringList{u"0.67 0.67 0.67 0.67 0"_qs, u"94.67 9.467 9.467 94.67 0"_qs,
                          u"94.67 9.467 9.467 94.67 0"_qs}));
    QCOMPARE(dueAndPaid(shop, receipt), u"190.01 190.01"_qs);
}

/// A share of 0 (1 over three lines, whole prices), or more than any line has.
void TestDiscount::passThatTakesNothingEnds() {
    Shop shop;
    shop.addGoods(g1);
    shop.set(u"cs_cgyh"_qs, 0);
    shop.set(u"cs_xsws"_qs, 0);
    const QString receipt =
        shop.save(u"CJ"_qs, day(5), {lineOf(10, 10), lineOf(10, 10), lineOf(10, 10)});
    spread(shop, receipt, 300, 299);
    QCOMPARE(dueAndPaid(shop, receipt), u"300 300"_qs);
    shop.set(u"cs_xsws"_qs, 2);
    spread(shop, receipt, 300, -30);
    QCOMPARE(dueAndPaid(shop, receipt), u"300 300"_qs);
}

/// 10.00 off 100 and 90 (100 at 0.9): 5.00 each, for the gift takes no share.
void TestDiscount::spreadOverSaleLeavesGifts() {
    Shop shop;
    shop.addGoods(g1);
    shop.set(u"cs_xsyh"_qs, 0);
    DraftLine gift = lineOf(5, 0);
    gift.gift = u"(赠品)"_qs;
    const QString sale = shop.save(u"XS"_qs, day(5), {lineOf(10, 10), gift, lineOf(10, 10, 0.9_d)});
    spread(shop, sale, 190, 180);
    const QStringList now = lines(shop, sale);
    QCOMPARE(now[0], u"95 9.5 9.5 95 0"_qs);
    QCOMPARE(now[1], u"0 0 0 0 0"_qs);
    // 85 / (0.9 * 10) = 9.444(4)
    QVERIFY2(now[2].startsWith(u"85 9.444 9.444 "_qs), qPrintable(now[2]));
    QCOMPARE(dueAndPaid(shop, sale), u"180 180"_qs);
}

void TestDiscount::lineOfItsOwn() {
    Shop shop;
    shop.addGoods(g1);
    shop.set(u"cs_cgyh"_qs, 1);
    shop.set(u"cs_xsyh"_qs, 1);
    for (const QString &code : {u"CJ"_qs, u"XS"_qs}) {
        const QString number = shop.save(code, day(5), {lineOf(10, 10), lineOf(10, 20)});
        const QStringList before = lines(shop, number);
        spread(shop, number, 300, 290);
        QCOMPARE(lines(shop, number), before + QStringList{u"-10 0 0 -10 0"_qs});
        QCOMPARE(dueAndPaid(shop, number), u"290 290"_qs);
        spread(shop, number, 300, 285.5_d); // thought better of it: the same line
        QCOMPARE(lines(shop, number), before + QStringList{u"-14.5 0 0 -14.5 0"_qs});
        QCOMPARE(dueAndPaid(shop, number), u"285.5 285.5"_qs);
    }
}

/// 10 bought at 5 and sold at 8, 2.50 off: profit 30 and -2.50; no stock of the discount goods.
void TestDiscount::discountLineIsProfitAndNoStock() {
    Shop shop;
    shop.addGoods(g1);
    shop.set(u"cs_cgyh"_qs, 1);
    shop.set(u"cs_xsyh"_qs, 1);
    const QString receipt = shop.save(u"CJ"_qs, day(5), {lineOf(10, 5)});
    spread(shop, receipt, 50, 45);
    shop.approve(receipt);
    QCOMPARE(shop.lastLog(), u"审核采购进货单，共1种商品"_qs);
    QCOMPARE(shop.stock(g1), u"10 10 0 5"_qs); // the line's price, not 4.50
    const QString sale = shop.save(u"XS"_qs, day(6), {lineOf(10, 8)});
    spread(shop, sale, 80, 77.5_d);
    shop.approve(sale);
    QCOMPARE(shop.lastLog(), u"审核销售单，共1种商品"_qs);
    QCOMPARE(shop.texts(u"select g_sn from jxc_goodslist where gl_djh=? order by id"_qs, {sale}),
             (QStringList{g1, u"00000000"_qs}));
    QCOMPARE(
        shop.figures(u"select gl_lr from jxc_goodslist where gl_djh=? and g_sn='G1'"_qs, {sale}),
        u"30"_qs);
    QCOMPARE(shop.figures(u"select gl_lr,gl_zje,gl_sl,gl_kc from jxc_goodslist where gl_djh=? and "
                          "g_sn='00000000'"_qs,
                          {sale}),
             u"-2.5 -2.5 0 0"_qs);
    QCOMPARE(shop.stock(u"00000000"_qs), u"0 0 0 0"_qs);
    QCOMPARE(shop.figures(u"select g_kc,g_cgpl,g_xspl from jxc_goods where g_sn='00000000'"_qs),
             u"0 0 0"_qs);
    QVERIFY(shop.texts(u"select id from jxc_tkc where g_sn='00000000'"_qs).isEmpty());
    shop.cancel(sale);
    shop.cancel(receipt);
    QVERIFY(shop.texts(u"select id from jxc_goodslist"_qs).isEmpty());
    QCOMPARE(shop.stock(u"00000000"_qs), u"0 0 0 0"_qs);
}

QTEST_GUILESS_MAIN(TestDiscount)
#include "test_discount.moc"
