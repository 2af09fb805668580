// Receipts that are taken in by parts and sales that are issued by parts, and what closes them.
#include "money/partner_ledger.h"
#include "stock/close_rest.h"
#include "stock/posting.h"
#include "stock/source_entry.h"
#include "support/shop.h"

#include <QTest>

using namespace jxc;
using namespace jxc::test;

namespace {

const QString g1 = QStringLiteral("G1");
const QString mainStore = QStringLiteral("100001");
const Batch b1{QStringLiteral("B1"), QStringLiteral("2027-06-01"), QStringLiteral("2026-01-01")};
const Partner supplier{Partner::Kind::supplier, QStringLiteral("100001")};
const Partner customer{Partner::Kind::customer, QStringLiteral("100001")};

DraftLine lineOf(Decimal quantity, Decimal price) {
    DraftLine line{.goods = g1};
    line.quantity = quantity;
    line.price = price;
    line.batch = b1;
    return line;
}

QString batchStock(Shop &shop) {
    return getTkcSl(shop.db, g1, mainStore, b1).toText();
}

/// Ordered, done and cancelled of a source's line.
QString progress(Shop &shop, const QString &number) {
    if (number.startsWith(u"CJ"_qs))
        return shop.figures(u"select jh_sl,jh_rksl,jh_qxsl from jxc_jhsp where j_sn=?"_qs,
                            {number});
    return shop.figures(u"select ls_sl,ls_cksl,ls_qxsl from jxc_lsxssp where gl_djh=?"_qs,
                        {number});
}

QString closedRest(Shop &shop, const QString &source) {
    QString number;
    Shop::demand(closeRest(shop.session, shop.user, source, &number));
    return number;
}

Outcome scan(Shop &shop, const QString &code, const QString &number, const QString &warehouse,
             const QString &barcode, ScannedLine *added) {
    return addScannedLine(shop.session, shop.user, code, number, warehouse, barcode, day(20),
                          added);
}

/// Source, its line, unit, batch, day and operator of a scanned line; then its quantities.
QString lineScanned(Shop &shop, const ScannedLine &added) {
    const QString line = shop.texts(u"select j_sn,id2,dw_name,t_ph,t_yxq,t_scrq,t_jhrq,a_name from "
                                    "jxc_rksp where id=?"_qs,
                                    {added.lineId})
                             .value(0);
    return line + u'|' +
           shop.figures(u"select rk_sl,rk_zsl from jxc_rksp where id=?"_qs, {added.lineId});
}

} // namespace

class TestReceiptFlow : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void receiptByParts_data() { addEngineRows(); }
    void receiptByParts();
    void closedRestOfReceiptReturns_data() { addEngineRows(); }
    void closedRestOfReceiptReturns();
    void closedRestWithTaxAndUnits_data() { addEngineRows(); }
    void closedRestWithTaxAndUnits();
    void saleByPartsAndClosed_data() { addEngineRows(); }
    void saleByPartsAndClosed();
    void scanTakesTheOldestLine_data() { addEngineRows(); }
    void scanTakesTheOldestLine();
    void fillTakesOffOnlyWhatIsDone_data() { addEngineRows(); }
    void fillTakesOffOnlyWhatIsDone();
    void cancelledGoodsInNeverLeavesLessThanNothing_data() { addEngineRows(); }
    void cancelledGoodsInNeverLeavesLessThanNothing();
};

/// The books move at once, the shelf and the batch only as goods come.
void TestReceiptFlow::receiptByParts() {
    Shop shop;
    shop.addGoods(g1);
    const QString receipt = shop.post(u"CJ"_qs, day(5), {lineOf(10, 5)}, laterOnAccount);
    QCOMPARE(shop.stock(g1), u"0 10 0 5"_qs);
    QCOMPARE(shop.figures(u"select g_kc,g_pjjj,g_scjj,g_cgpl from jxc_goods where g_sn='G1'"_qs),
             u"0 5 5 1"_qs);
    QVERIFY(shop.texts(u"select id from jxc_tkc"_qs).isEmpty());

    const QString first = shop.follow(receipt, 4);
    QCOMPARE(first, u"RK26033110001"_qs);
    shop.approve(first);
    QCOMPARE(shop.lastLog(), u"审核入库单，共1种商品"_qs);
    QCOMPARE(shop.stock(g1), u"4 10 0 5"_qs);
    QCOMPARE(batchStock(shop), u"4"_qs);
    QCOMPARE(progress(shop, receipt), u"10 4 0"_qs);
    shop.approve(shop.follow(receipt));
    QCOMPARE(shop.stock(g1), u"10 10 0 5"_qs);
    QCOMPARE(batchStock(shop), u"10"_qs);
    QCOMPARE(progress(shop, receipt), u"10 10 0"_qs);
    QCOMPARE(shop.figures(u"select g_kc,g_cgpl from jxc_goods where g_sn='G1'"_qs), u"10 1"_qs);
    // The journal knows the receipt alone.
    QCOMPARE(shop.texts(u"select gl_flag,gl_djh from jxc_goodslist"_qs),
             QStringList(u"cj|"_qs + receipt));

    shop.cancel(first);
    QCOMPARE(shop.lastLog(), u"取消审核商品入库单："_qs + first);
    QCOMPARE(shop.stock(g1), u"6 10 0 5"_qs);
    QCOMPARE(batchStock(shop), u"6"_qs);
    QCOMPARE(progress(shop, receipt), u"10 6 0"_qs);
}

/// 10 ordered at 5.00, 6 taken in: the other 4 go back, 20.00, without having been there.
void TestReceiptFlow::closedRestOfReceiptReturns() {
    Shop shop;
    shop.addGoods(g1);
    const QString receipt = shop.post(u"CJ"_qs, day(5), {lineOf(10, 5)}, laterOnAccount);
    QCOMPARE(CurrentBalance(shop.db, supplier), 50_d);
    shop.approve(shop.follow(receipt, 6));
    const QString waiting = shop.follow(receipt); // the 4, typed before they were given up
    const QStringList cash = shop.texts(u"select * from jxc_xjyh"_qs);
    shop.user.takeAsked();

    const QString returned = closedRest(shop, receipt);
    QCOMPARE(
        shop.user.takeAsked(),
        QStringList(
            u"您的操作将取消当前单据所有未入库的商品，\r\n\r\n未入库的商品数量将不再入库，\r\n\r\n"
            "将会自动生成一个新的采购退货单据\r\n\r\n冲平本单据未入库商品的数量，确认吗？"_qs));
    QCOMPARE(returned, u"CT26030510001"_qs);
    QCOMPARE(progress(shop, receipt), u"10 6 4"_qs);
    QCOMPARE(
        shop.texts(u"select th_thrq,ghs_sn,ck_sn,th_status,th_note,th_checker from jxc_thd"_qs),
        QStringList(u"2026-03-05|100001|100001|1|单据%1取消出库|admin"_qs.arg(receipt)));
    QCOMPARE(shop.figures(u"select th_yfje,th_sfje,th_qk from jxc_thd"_qs), u"20 0 1"_qs);
    QCOMPARE(shop.figures(u"select th_dj,th_sl,th_zsl,th_zje,th_je,th_taxje from jxc_thsp"_qs),
             u"5 4 4 20 20 0"_qs);
    // Q = 10 + 4, A = 50 + 20: cost 5; 6 stay, worth 30.
    QCOMPARE(shop.figures(u"select gl_sl,gl_dj,gl_zje,gl_je,gl_kc,gl_pjjj,gl_kczje from "
                          "jxc_goodslist where gl_flag='ct'"_qs),
             u"-4 5 -20 -20 6 5 30"_qs);
    QCOMPARE(shop.stock(g1), u"6 6 0 5"_qs);
    QCOMPARE(batchStock(shop), u"6"_qs);
    QCOMPARE(shop.figures(u"select g_kc,g_cgpl from jxc_goods where g_sn='G1'"_qs), u"6 0"_qs);
    QCOMPARE(
        shop.figures(u"select k_yfje,k_sfje,k_ljje from jxc_ysyfk where gl_djh=?"_qs, {returned}),
        u"-20 0 30"_qs);
    QCOMPARE(
        shop.texts(u"select k_type,k_djlx,k_djtxt from jxc_ysyfk where gl_djh=?"_qs, {returned}),
        QStringList(u"ghs|CT|采购退货单"_qs));
    QCOMPARE(shop.texts(u"select * from jxc_xjyh"_qs), cash); // nothing was paid back
    QCOMPARE(shop.lastLog(), u"增加采购退货单，共1种商品"_qs);
    QCOMPARE(shop.tryApprove(waiting).kind, Outcome::Kind::refused);

    shop.cancel(returned);
    QCOMPARE(progress(shop, receipt), u"10 6 0"_qs);
    QCOMPARE(shop.stock(g1), u"6 10 0 5"_qs);
    QCOMPARE(shop.figures(u"select g_kc,g_cgpl from jxc_goods where g_sn='G1'"_qs), u"6 1"_qs);
    QCOMPARE(CurrentBalance(shop.db, supplier), 50_d);
    QCOMPARE(shop.texts(u"select a.th_note,a.th_status,b.id2 from jxc_thd a,jxc_thsp b where "
                        "a.gl_djh=b.gl_djh"_qs),
             QStringList(u"|0|0"_qs));
    QCOMPARE(shop.lastLog(), u"取消审核采购退货单"_qs);
    shop.approve(waiting); // the 4 came after all
    QCOMPARE(shop.stock(g1), u"10 10 0 5"_qs);
    // The return stays behind as an ordinary draft: approved now, goods really leave.
    shop.approve(returned);
    QCOMPARE(shop.stock(g1), u"6 6 0 5"_qs);
    QCOMPARE(batchStock(shop), u"6"_qs);
}

/// 3 cases of 12 at 60.00 and 9 % tax, of which 1 came: 2 cases at 60.00 go back.
void TestReceiptFlow::closedRestWithTaxAndUnits() {
    Shop shop;
    shop.set(u"cs_tax"_qs, 9);
    shop.addGoods(g1);
    shop.addUnit(g1, u"箱"_qs, 12);
    DraftLine cases = lineOf(3, 60);
    cases.unit = u"箱"_qs;
    cases.factor = 12;
    const QString receipt = shop.post(u"CJ"_qs, day(5), {cases}, laterOnAccount);
    const QString in = shop.follow(receipt);
    QCOMPARE(shop.figures(u"select rk_sl,rk_zsl from jxc_rksp"_qs), u"3 36"_qs);
    shop.db.execute(u"update jxc_rksp set rk_sl=1,rk_zsl=12"_qs);
    shop.approve(in);
    QCOMPARE(shop.stock(g1), u"12 36 0 5"_qs); // 60 / 12
    closedRest(shop, receipt);
    // 2 * 65.40 = 130.80; 2 * 60 = 120.00; tax 2 * 60 * 9 / 100 = 10.80
    QCOMPARE(shop.figures(u"select th_sl,th_zsl,th_dj,th_taxdj,th_zje,th_je,th_taxje from "
                          "jxc_thsp"_qs),
             u"2 24 60 65.4 130.8 120 10.8"_qs);
    QCOMPARE(shop.figures(u"select gl_sl,gl_dj,gl_sysl,gl_taxdj,gl_taxje from jxc_goodslist where "
                          "gl_flag='ct'"_qs),
             u"-24 5 -2 5.45 -10.8"_qs);
    QCOMPARE(shop.stock(g1), u"12 12 0 5"_qs);
    // 3 * 65.40 - 130.80
    QCOMPARE(CurrentBalance(shop.db, supplier), 65.4_d);
}

void TestReceiptFlow::saleByPartsAndClosed() {
    Shop shop;
    shop.addGoods(g1);
    shop.post(u"CJ"_qs, day(1), {lineOf(10, 5)});
    const QString sale = shop.post(u"XS"_qs, day(5), {lineOf(8, 9)}, laterOnAccount);
    QCOMPARE(shop.stock(g1), u"10 2 8 5"_qs);
    QCOMPARE(batchStock(shop), u"10"_qs);
    QCOMPARE(CurrentBalance(shop.db, customer), 72_d);
    const QString out = shop.follow(sale, 5);
    QCOMPARE(out, u"CK26033110001"_qs);
    shop.approve(out);
    QCOMPARE(shop.lastLog(), u"审核出库单，共1种商品"_qs);
    QCOMPARE(shop.stock(g1), u"5 2 8 5"_qs);
    QCOMPARE(batchStock(shop), u"5"_qs);
    QCOMPARE(progress(shop, sale), u"8 5 0"_qs);
    const QString waiting = shop.follow(sale);
    shop.user.takeAsked();

    const QString returned = closedRest(shop, sale);
    QCOMPARE(
        shop.user.takeAsked(),
        QStringList(
            u"您的操作将取消当前单据所有未出库的商品，\r\n\r\n未出库的商品数量将不再出库，\r\n\r\n"
            "将会自动生成一个新的顾客退货单据\r\n\r\n冲平本单据未出库商品的数量，确认吗？"_qs));
    QCOMPARE(progress(shop, sale), u"8 5 3"_qs);
    QCOMPARE(shop.stock(g1), u"5 5 5 5"_qs);
    QCOMPARE(batchStock(shop), u"5"_qs);
    // Profit given back: cost 15 less 27.
    QCOMPARE(shop.figures(u"select gl_sl,gl_dj,gl_zje,gl_cbj,gl_zcb,gl_lr,gl_sysl,gl_kc from "
                          "jxc_goodslist where gl_flag='xt'"_qs),
             u"-3 9 -27 5 -15 -12 3 5"_qs);
    QCOMPARE(
        shop.figures(u"select k_yfje,k_sfje,k_ljje from jxc_ysyfk where gl_djh=?"_qs, {returned}),
        u"-27 0 45"_qs);
    QCOMPARE(shop.tryApprove(waiting).kind, Outcome::Kind::refused);

    shop.cancel(returned);
    QCOMPARE(shop.lastLog(), u"取消审核商品退货单"_qs);
    QCOMPARE(shop.stock(g1), u"5 2 8 5"_qs);
    QCOMPARE(progress(shop, sale), u"8 5 0"_qs);
    QCOMPARE(CurrentBalance(shop.db, customer), 72_d);
    // The sale and the return counted a sale each; cancelling the return takes none off.
    QCOMPARE(shop.figures(u"select g_kc,g_xspl from jxc_goods where g_sn='G1'"_qs), u"5 2"_qs);
    shop.cancel(out);
    QCOMPARE(shop.lastLog(), u"取消审核商品出库单："_qs + out);
    QCOMPARE(shop.stock(g1), u"10 2 8 5"_qs);
    QCOMPARE(batchStock(shop), u"10"_qs);
    QCOMPARE(progress(shop, sale), u"8 0 0"_qs);
}

void TestReceiptFlow::scanTakesTheOldestLine() {
    Shop shop;
    shop.addGoods(g1); // its barcode is 690G1
    shop.addUnit(g1, u"箱"_qs, 12);
    const QString nothing = u"没有找到与该条码匹配的商品，\r\n\r\n或收货已完成。请检查！"_qs;
    ScannedLine added;
    QCOMPARE(scan(shop, u"RK"_qs, {}, mainStore, u"690G1"_qs, &added).text, nothing);
    DraftLine cases = lineOf(3, 60);
    cases.unit = u"箱"_qs;
    cases.factor = 12;
    // The older line stands on a later date: the order of entry counts.
    const QString first = shop.post(u"CJ"_qs, day(8), {cases}, laterOnAccount);
    const QString second = shop.post(u"CJ"_qs, day(5), {lineOf(7, 5)}, laterOnAccount);
    shop.save(u"CJ"_qs, day(5), {lineOf(7, 5)}, laterOnAccount);
    const QString firstId = shop.texts(u"select id from jxc_jhsp where j_sn=?"_qs, {first})[0];
    const QString secondId = shop.texts(u"select id from jxc_jhsp where j_sn=?"_qs, {second})[0];

    QCOMPARE(scan(shop, u"RK"_qs, {}, mainStore, u"690"_qs, &added).text, nothing);
    QCOMPARE(scan(shop, u"RK"_qs, {}, mainStore, {}, &added).text, nothing);
    QCOMPARE(scan(shop, u"RK"_qs, {}, u"100002"_qs, u"690G1"_qs, &added).text, nothing);
    QVERIFY(shop.texts(u"select id from jxc_rkd"_qs).isEmpty());

    Shop::demand(scan(shop, u"RK"_qs, {}, mainStore, u"690G1"_qs, &added));
    QCOMPARE(added.number, u"RK26032010001"_qs);
    QCOMPARE(lineScanned(shop, added),
             u"%1|%2|箱|B1|2027-06-01|2026-01-01|2026-03-20|admin|1 12"_qs.arg(first, firstId));
    const QStringList before = shop.everything();
    QCOMPARE(scan(shop, u"RK"_qs, added.number, mainStore, u"690G1"_qs, &added).text,
             u"该商品已添加，不能重复添加，\r\n\r\n可以修改已添加商品的数量！"_qs);
    QVERIFY(shop.everything() == before);

    shop.db.execute(u"update jxc_rksp set rk_sl=3,rk_zsl=36"_qs);
    shop.approve(added.number);
    Shop::demand(scan(shop, u"RK"_qs, {}, mainStore, u"690G1"_qs, &added));
    QCOMPARE(added.number, u"RK26032010002"_qs);
    QCOMPARE(lineScanned(shop, added),
             u"%1|%2|瓶|B1|2027-06-01|2026-01-01|2026-03-20|admin|1 1"_qs.arg(second, secondId));

    // The same at the door: a sale's goods go out by scanning.
    shop.post(u"XS"_qs, day(9), {lineOf(2, 9)}, laterOnAccount);
    Shop::demand(scan(shop, u"CK"_qs, {}, mainStore, u"690G1"_qs, &added));
    QCOMPARE(added.number, u"CK26032010001"_qs);
    shop.approve(added.number);
    QCOMPARE(shop.stock(g1), u"35 41 2 5"_qs); // 36 - 1 there; 36 + 7 - 2 in the books
}

/// Filling subtracts what was taken in, not what was cancelled; approval then says no.
void TestReceiptFlow::fillTakesOffOnlyWhatIsDone() {
    Shop shop;
    shop.addGoods(g1);
    const QString receipt = shop.save(u"CJ"_qs, day(5), {lineOf(10, 5)}, laterOnAccount);
    QString number;
    QCOMPARE(fillFromSource(shop.session, shop.user, receipt, day(20), &number).text,
             u"单据“%1”还没有审核！"_qs.arg(receipt));
    shop.approve(receipt);
    shop.approve(shop.follow(receipt, 3));
    shop.db.execute(u"update jxc_jhsp set jh_qxsl=2"_qs);
    const QString filled = shop.follow(receipt);
    QCOMPARE(shop.figures(u"select rk_sl,rk_zsl from jxc_rksp where gl_djh=?"_qs, {filled}),
             u"7 7"_qs);
    QCOMPARE(shop.tryApprove(filled).kind, Outcome::Kind::refused); // 3 + 2 + 7 > 10
    shop.db.execute(u"update jxc_rksp set rk_sl=5,rk_zsl=5 where gl_djh=?"_qs, {filled});
    shop.approve(filled);
    QCOMPARE(progress(shop, receipt), u"10 8 2"_qs);
    const QStringList before = shop.everything();
    QCOMPARE(fillFromSource(shop.session, shop.user, receipt, day(20), &number).text,
             u"没有找到与该条码匹配的商品，\r\n\r\n或收货已完成。请检查！"_qs);
    QVERIFY(shop.everything() == before);
}

void TestReceiptFlow::cancelledGoodsInNeverLeavesLessThanNothing() {
    Shop shop;
    shop.addGoods(g1);
    const QString receipt = shop.post(u"CJ"_qs, day(5), {lineOf(10, 5)}, laterOnAccount);
    const QString in = shop.follow(receipt, 4);
    shop.approve(in);
    shop.db.execute(u"update jxc_jhsp set jh_rksl=1"_qs); // as an older release left it
    shop.cancel(in);
    QCOMPARE(progress(shop, receipt), u"10 0 0"_qs);
    QCOMPARE(shop.stock(g1), u"0 10 0 5"_qs);
}

QTEST_GUILESS_MAIN(TestReceiptFlow)
#include "test_receipt_flow.moc"
