// What approving and cancelling refuse: the exact words, in their order, and nothing is written.
#include "stock/close_rest.h"
#include "stock/posting.h"
#include "support/shop.h"

#include <QTest>

using namespace jxc;
using namespace jxc::test;

namespace {

const QString g1 = QStringLiteral("G1");
const Batch b1{QStringLiteral("B1"), QStringLiteral("2027-06-01"), QStringLiteral("2026-01-01")};

DraftLine lineOf(Decimal quantity, Decimal price, const Batch &batch = b1) {
    DraftLine line{.goods = g1};
    line.quantity = quantity;
    line.price = price;
    line.batch = batch;
    return line;
}

/// Runs an action that must end with this kind and text and leave every table as it was.
void mustEnd(Shop &shop, const std::function<Outcome()> &action, Outcome::Kind kind,
             const QString &text) {
    const QStringList before = shop.everything();
    const Outcome outcome = action();
    QCOMPARE(outcome.text, text);
    QCOMPARE(outcome.kind, kind);
    QVERIFY2(shop.everything() == before, "a refusal wrote something");
}

void mustRefuse(Shop &shop, const std::function<Outcome()> &action, const QString &text) {
    mustEnd(shop, action, Outcome::Kind::refused, text);
}

void addStocktaking(Shop &shop, const QString &number, int date, int status) {
    shop.db.insertRow(u"jxc_kcpd"_qs, {{u"gl_djh"_qs, number},
                                       {u"pd_rq"_qs, day(date)},
                                       {u"pd_status"_qs, status},
                                       {u"ck_sn"_qs, u"100001"}});
    shop.db.insertRow(u"jxc_kcpdsp"_qs, {{u"gl_djh"_qs, number}, {u"g_sn"_qs, g1}});
}

} // namespace

class TestRefusals : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void approvalNamesTheFirstThingWrong_data() { addEngineRows(); }
    void approvalNamesTheFirstThingWrong();
    void stocktakingOfOthersDoesNotBar_data() { addEngineRows(); }
    void stocktakingOfOthersDoesNotBar();
    void shortBatchAsksInTheKindsWord_data() { addEngineRows(); }
    void shortBatchAsksInTheKindsWord();
    void shortBatchComparesExactBatches_data() { addEngineRows(); }
    void shortBatchComparesExactBatches();
    void goodsInTakesOnlyWhatIsOpen_data() { addEngineRows(); }
    void goodsInTakesOnlyWhatIsOpen();
    void goodsOutTakesOnlyWhatIsOpen_data() { addEngineRows(); }
    void goodsOutTakesOnlyWhatIsOpen();
    void cancellingNamesTheFirstThingWrong_data() { addEngineRows(); }
    void cancellingNamesTheFirstThingWrong();
    void whoMayCancel_data() { addEngineRows(); }
    void whoMayCancel();
    void closedRestBarsGoodsInAndSource_data() { addEngineRows(); }
    void closedRestBarsGoodsInAndSource();
};

/// A sale that has everything wrong at once; each repair brings up the next refusal.
void TestRefusals::approvalNamesTheFirstThingWrong() {
    Shop shop;
    Database &db = shop.db;
    shop.set(u"cs_kc"_qs, 0);
    shop.addGoods(g1, {{u"g_xzsl"_qs, 2}});
    shop.post(u"CJ"_qs, day(1), {lineOf(3, 5)});
    // 2 and 3 make 5: above the limit of 2, and above the 3 that the batch holds.
    const QString sale = shop.save(u"XS"_qs, day(10), {lineOf(2, 8), lineOf(3, 8)});
    addStocktaking(shop, u"PD26031010001"_qs, 10, 0);
    addStocktaking(shop, u"PD26031110001"_qs, 11, 1);
    const auto header = [&](const QString &column, const Value &value) {
        db.execute(QStringLiteral("update jxc_lsxsd set %1=? where gl_djh=?").arg(column),
                   {value, sale});
    };
    header(u"ls_status"_qs, 1);
    header(u"ls_xsrq"_qs, u"2026-02-30");
    header(u"ck_sn"_qs, u"999999");
    header(u"kh_sn"_qs, u"999998");
    db.execute(u"update jxc_lsxssp set g_sn='G9',gl_djh='parked' where gl_djh=? and ls_sl=3"_qs,
               {sale});
    db.execute(u"update jxc_lsxssp set gl_djh='parked' where gl_djh=?"_qs, {sale});

    Session clerk = shop.clerk(u"xsgl"_qs, {1, 8, 11});
    const auto approve = [&] { return shop.tryApprove(sale); };
    const auto approveAsClerk = [&] { return approveDocument(clerk, shop.user, sale); };
    mustRefuse(shop, approveAsClerk,
               u"您没有权限进行商品销售单审核！\r\n\r\n或者没有可用的仓库。"_qs);
    mustRefuse(
        shop, [&] { return approveDocument(clerk, shop.user, u"XS26031099999"_qs); },
        u"您没有权限进行商品销售单审核！\r\n\r\n或者没有可用的仓库。"_qs);
    mustRefuse(
        shop, [&] { return shop.tryApprove(u"XS26031099999"_qs); },
        u"单据“XS26031099999”不存在！"_qs);
    mustRefuse(
        shop, [&] { return shop.tryApprove(u"ZZ1"_qs); }, u"单据“ZZ1”不存在！"_qs);

    mustRefuse(shop, approve, u"单据已被其他操作员修改或审核，请刷新后重试！"_qs);
    header(u"ls_status"_qs, 0);
    mustRefuse(shop, approve, u"单据日期“2026-02-30”无效，不能审核！"_qs);
    header(u"ls_xsrq"_qs, day(10));
    mustRefuse(shop, approve, u"单据没有明细，不能审核！"_qs);
    db.execute(u"update jxc_lsxssp set gl_djh=? where gl_djh='parked'"_qs, {sale});
    mustRefuse(shop, approve, u"单据的仓库“999999”不存在，不能审核！"_qs);
    header(u"ck_sn"_qs, u"100001");
    mustRefuse(shop, approve, u"单据的往来单位“999998”不存在，不能审核！"_qs);
    header(u"kh_sn"_qs, u"100001");
    mustRefuse(shop, approve, u"商品“G9”不存在，不能审核！"_qs);
    db.execute(u"update jxc_lsxssp set g_sn='G1' where g_sn='G9'"_qs);
    mustRefuse(shop, approve,
               u"还有未审核的库存盘点单，请先审核库存盘点单，\r\n\r\n"
               "在库存盘点单未审核之前不能审核任何单据！"_qs);
    db.execute(u"delete from jxc_kcpd where pd_status=0"_qs);
    mustRefuse(shop, approve,
               u"在单据‘%1’之后已做过盘点，\r\n\r\n在盘点日期之前不能审核任何单据！"_qs.arg(sale));
    db.execute(u"delete from jxc_kcpd"_qs);
    mustRefuse(shop, approve,
               u"其中的药品“农药G1 每次最多销售数量为2”，\r\n\r\n不能超过这个数量！"_qs);
    db.execute(u"update jxc_goods set g_xzsl=0"_qs);
    const QString opening = u"该单据对应的批号、有效期中至少一种商品库存不足，\r\n\r\n“G1”："_qs;
    mustRefuse(shop, approve, opening + u"不能销售！"_qs);
    shop.set(u"cs_kc"_qs, 1);
    QVERIFY(shop.user.asked.isEmpty());
    shop.user.answers = {false};
    mustEnd(shop, approve, Outcome::Kind::declined, opening + u"销售将会出现负库存，是否继续？"_qs);
    QCOMPARE(shop.user.takeAsked(), QStringList(opening + u"销售将会出现负库存，是否继续？"_qs));
    shop.approve(sale); // answered Yes: 3 - 5
    QCOMPARE(shop.stock(g1), u"-2 -2 5 5"_qs);
    QCOMPARE(shop.figures(u"select t_sl from jxc_tkc"_qs), u"-2"_qs);
    mustRefuse(shop, approve, u"单据已被其他操作员修改或审核，请刷新后重试！"_qs);
}

/// Only a count of these goods, in this warehouse, in the way of this date, bars a document.
void TestRefusals::stocktakingOfOthersDoesNotBar() {
    Shop shop;
    shop.addGoods(g1);
    shop.addGoods(u"G2"_qs);
    addStocktaking(shop, u"PD1"_qs, 9, 0);
    const auto change = [&](const QString &sql) { shop.db.execute(sql); };
    change(u"update jxc_kcpdsp set g_sn='G2'"_qs);
    shop.post(u"CJ"_qs, day(10), {lineOf(1, 5)});
    change(u"update jxc_kcpdsp set g_sn='G1'"_qs);
    change(u"update jxc_kcpd set ck_sn='100002'"_qs);
    shop.post(u"CJ"_qs, day(10), {lineOf(1, 5)});
    change(u"update jxc_kcpd set ck_sn='100001',pd_rq='2026-03-11'"_qs); // open, but later
    shop.post(u"CJ"_qs, day(10), {lineOf(1, 5)});
    change(u"update jxc_kcpd set pd_rq='2026-03-10',pd_status=1"_qs); // done the same day
    shop.post(u"CJ"_qs, day(10), {lineOf(1, 5)});
    QCOMPARE(shop.stock(g1), u"4 4 0 5"_qs);
    change(u"update jxc_kcpd set pd_status=0"_qs); // open the same day
    QCOMPARE(shop.tryApprove(shop.save(u"CJ"_qs, day(10), {lineOf(1, 5)})).kind,
             Outcome::Kind::refused);
}

void TestRefusals::shortBatchAsksInTheKindsWord() {
    Shop shop;
    shop.addGoods(g1);
    shop.set(u"cs_kc"_qs, 1);
    shop.post(u"CJ"_qs, day(1), {lineOf(3, 5)});
    const QString soldLater = shop.save(u"XS"_qs, day(2), {lineOf(5, 8)}, laterOnAccount);
    shop.user.takeAsked(); // whether the walk-in customer may owe
    shop.approve(soldLater);
    const QString opening = u"该单据对应的批号、有效期中至少一种商品库存不足，\r\n\r\n“G1”："_qs;
    // The sale asks as well, though its goods leave later.
    QCOMPARE(shop.user.takeAsked(), QStringList(opening + u"销售将会出现负库存，是否继续？"_qs));

    struct Case {
        QString number, word;
    };
    const std::vector<Case> cases = {
        {shop.save(u"CT"_qs, day(3), {lineOf(2, 5), lineOf(2, 5)}), u"退货"_qs},
        {shop.save(u"XS"_qs, day(3), {lineOf(4, 8)}), u"销售"_qs},
        {shop.follow(soldLater), u"出库"_qs}};
    for (const Case &c : cases) {
        shop.user.answers = {false};
        mustEnd(
            shop, [&] { return shop.tryApprove(c.number); }, Outcome::Kind::declined,
            opening + c.word + u"将会出现负库存，是否继续？"_qs);
        shop.set(u"cs_kc"_qs, 0);
        mustRefuse(
            shop, [&] { return shop.tryApprove(c.number); },
            opening + u"不能"_qs + c.word + u"！"_qs);
        shop.set(u"cs_kc"_qs, 1);
    }
    // Goods that come back are not checked.
    shop.user.takeAsked();
    shop.post(u"XT"_qs, day(4), {lineOf(9, 8)});
    QCOMPARE(shop.user.takeAsked(), QStringList());
}

void TestRefusals::shortBatchComparesExactBatches() {
    Shop shop;
    shop.addGoods(g1);
    shop.set(u"cs_kc"_qs, 0);
    shop.post(u"CJ"_qs, day(1), {lineOf(3, 5)});
    shop.post(u"CJ"_qs, day(1), {lineOf(5, 5)}, [](Draft &d) { d.warehouse = u"100002"_qs; });
    const QString four = shop.save(u"XS"_qs, day(2), {lineOf(4, 8)});
    // 4 > 3, although the other warehouse holds 5 of the same batch.
    QCOMPARE(shop.tryApprove(four).kind, Outcome::Kind::refused);
    shop.post(u"XS"_qs, day(2), {lineOf(3, 8)}); // exactly what is there
    shop.approve(four);                          // an empty batch is not compared
    Batch other = b1;
    other.expiry = u"2027-07-01"_qs;
    shop.post(u"XS"_qs, day(2), {lineOf(4, 8, other)}); // nor is an unknown one
    QCOMPARE(shop.texts(u"select t_yxq,t_ph,ck_sn from jxc_tkc where t_sl=-4 order by id"_qs),
             (QStringList{u"2027-06-01|B1|100001"_qs, u"2027-07-01|B1|100001"_qs}));

    // Goods without a batch number share one bucket, which is compared too.
    shop.post(u"CJ"_qs, day(3), {lineOf(2, 5, {})});
    QCOMPARE(shop.tryApprove(shop.save(u"XS"_qs, day(3), {lineOf(3, 8, {})})).kind,
             Outcome::Kind::refused);
}

void TestRefusals::goodsInTakesOnlyWhatIsOpen() {
    Shop shop;
    shop.addGoods(g1);
    const QString receipt = shop.post(u"CJ"_qs, day(1), {lineOf(10, 5)}, laterOnAccount);
    const QString text =
        u"采购进货单【%1】的商品【G1】\r\n\r\n"
        "已经完成入库或入库数量大于采购数量或已经取消入库，不能重复入库，请检查！"_qs.arg(receipt);
    const auto refuses = [&](const QString &number) {
        mustRefuse(
            shop, [&] { return shop.tryApprove(number); }, text);
    };

    refuses(shop.follow(receipt, 10.000001_d));
    const QString whole = shop.follow(receipt);
    // Two lines of 6 on one line of 10: each fits, together they do not.
    const QString twice = shop.follow(receipt, 6);
    shop.db.execute(u"update jxc_rksp set gl_djh=? where gl_djh=?"_qs,
                    {twice, shop.follow(receipt, 6)});
    refuses(twice);
    const QString elsewhere = shop.follow(receipt, 1);
    shop.db.execute(u"update jxc_rkd set ck_sn='100002' where gl_djh=?"_qs, {elsewhere});
    refuses(elsewhere);
    const QString otherGoods = shop.follow(receipt, 1);
    shop.db.execute(u"update jxc_rksp set id2=id2+1 where gl_djh=?"_qs, {otherGoods});
    refuses(otherGoods);
    shop.db.execute(u"update jxc_jhd set j_status=0"_qs);
    refuses(whole);
    shop.db.execute(u"update jxc_jhd set j_status=1"_qs);
    shop.approve(whole);
    shop.db.execute(u"update jxc_rksp set rk_sl=1,rk_zsl=1 where gl_djh=?"_qs, {twice});
    refuses(twice); // nothing is open any more
    QCOMPARE(shop.stock(g1), u"10 10 0 5"_qs);
}

void TestRefusals::goodsOutTakesOnlyWhatIsOpen() {
    Shop shop;
    shop.addGoods(g1);
    shop.post(u"CJ"_qs, day(1), {lineOf(20, 5)});
    const QString sale = shop.post(u"XS"_qs, day(2), {lineOf(10, 8)}, laterOnAccount);
    const QString text =
        u"商品销售单【%1】的商品【G1】\r\n\r\n"
        "已经完成出库或出库数量大于销售数量或已经取消出库，不能重复出库，请检查！"_qs.arg(sale);
    const QString tooMuch = shop.follow(sale, 11);
    mustRefuse(
        shop, [&] { return shop.tryApprove(tooMuch); }, text);
    const QString again = shop.follow(sale, 4);
    shop.approve(shop.follow(sale, 7)); // 7 of 10; 4 more are one too many
    mustRefuse(
        shop, [&] { return shop.tryApprove(again); }, text);
    shop.approve(shop.follow(sale));
    QCOMPARE(shop.stock(g1), u"10 10 10 5"_qs);
}

void TestRefusals::cancellingNamesTheFirstThingWrong() {
    Shop shop;
    Database &db = shop.db;
    shop.addGoods(g1);
    const QString receipt = shop.save(u"CJ"_qs, day(10), {lineOf(10, 5)}, laterOnAccount);
    Session clerk = shop.clerk(u"cggl"_qs, {6, 9, 11, 12}); // all but 10
    const auto cancel = [&] { return shop.tryCancel(receipt); };
    const auto cancelAsClerk = [&] { return cancelDocument(clerk, shop.user, receipt); };
    mustRefuse(
        shop, [&] { return shop.tryCancel(u"CJ26031099999"_qs); },
        u"单据“CJ26031099999”不存在！"_qs);
    mustRefuse(shop, cancelAsClerk, u"单据“%1”还没有审核！"_qs.arg(receipt));
    shop.approve(receipt);
    shop.approve(shop.follow(receipt, 6));
    QString returned;
    Shop::demand(closeRest(shop.session, shop.user, receipt, &returned));
    db.insertRow(u"jxc_goodslist"_qs, {{u"gl_flag"_qs, u"pd"},
                                       {u"gl_djh"_qs, u"PD26031010001"},
                                       {u"gl_kdrq"_qs, day(10)},
                                       {u"g_sn"_qs, g1},
                                       {u"ck_sn"_qs, u"100001"},
                                       {u"gl_sl"_qs, 0},
                                       {u"gl_dj"_qs, 5}});
    shop.user.takeAsked();

    mustRefuse(shop, cancelAsClerk,
               u"单据：%1，的审核人：admin\r\n\r\n不允许其他人取消审核！"_qs.arg(receipt));
    mustRefuse(shop, cancel,
               u"该单据%1已有入库信息，不能取消审核！\r\n\r\n"
               "请在商品入库单中删除该单据的所有信息，然后再取消审核！"_qs.arg(receipt));
    db.execute(u"delete from jxc_rksp"_qs);
    mustRefuse(shop, cancel,
               u"该单据%1已做取消入库，不能取消审核！\r\n\r\n请先取消审核退货单：%2"_qs.arg(
                   receipt, returned));
    db.execute(u"update jxc_thd set th_status=0"_qs); // as after its cancelling
    mustRefuse(shop, cancel,
               u"在此单据‘%1’之后已做过库存盘点单，\r\n\r\n单号为：【PD26031010001】，"
               "在库存盘点单之前的单据不能取消审核！"_qs.arg(receipt));
    db.execute(u"delete from jxc_goodslist where gl_flag='pd'"_qs);
    const QString question = u"您的操作将取消当前选中的已审核单据：%1，确认吗？"_qs.arg(receipt);
    QVERIFY(shop.user.asked.isEmpty());
    shop.user.answers = {false};
    mustEnd(shop, cancel, Outcome::Kind::declined, question);
    QCOMPARE(shop.user.takeAsked(), QStringList(question));
    shop.cancel(receipt);
    QCOMPARE(shop.lastLog(), u"取消审核采购进货单"_qs);
    mustRefuse(shop, cancel, u"单据“%1”还没有审核！"_qs.arg(receipt));
}

/// The administrator, the one who approved, and the holder of the kind's right.
void TestRefusals::whoMayCancel() {
    Shop shop;
    shop.addGoods(g1);
    const QString receipt = shop.save(u"CJ"_qs, day(10), {lineOf(10, 5)});
    Session approver = shop.clerk(u"cggl"_qs, {6});
    Shop::demand(approveDocument(approver, shop.user, receipt));
    QCOMPARE(shop.texts(u"select j_status,j_checker,j_chkrq from jxc_jhd"_qs),
             QStringList(u"1|小王|2026-03-31"_qs));
    Shop::demand(cancelDocument(approver, shop.user, receipt));
    QCOMPARE(shop.texts(u"select j_status,j_checker,j_chkrq from jxc_jhd"_qs),
             QStringList(u"0||"_qs));

    shop.approve(receipt);
    QCOMPARE(cancelDocument(approver, shop.user, receipt).kind, Outcome::Kind::refused);
    Session holder = shop.clerk(u"cggl"_qs, {10});
    Shop::demand(cancelDocument(holder, shop.user, receipt));
    Session wrongGroup = shop.clerk(u"xsgl"_qs, {10});
    shop.approve(receipt);
    QCOMPARE(cancelDocument(wrongGroup, shop.user, receipt).kind, Outcome::Kind::refused);
    shop.cancel(receipt);
}

void TestRefusals::closedRestBarsGoodsInAndSource() {
    Shop shop;
    shop.addGoods(g1);
    shop.post(u"CJ"_qs, day(1), {lineOf(20, 5)});
    const QString receipt = shop.post(u"CJ"_qs, day(2), {lineOf(10, 5)}, laterOnAccount);
    const QString in = shop.follow(receipt, 6);
    shop.approve(in);
    const QString sale = shop.post(u"XS"_qs, day(3), {lineOf(10, 8)}, laterOnAccount);
    const QString out = shop.follow(sale, 6);
    shop.approve(out);
    QString purchaseReturn;
    QString salesReturn;
    Shop::demand(closeRest(shop.session, shop.user, receipt, &purchaseReturn));
    Shop::demand(closeRest(shop.session, shop.user, sale, &salesReturn));

    mustRefuse(
        shop, [&] { return shop.tryCancel(in); },
        u"入库单：%1，至少有一种商品做了取消入库，\r\n\r\n"
        "请先取消审核退货单：%2，然后才能取消审核该入库单！"_qs.arg(in, purchaseReturn));
    mustRefuse(
        shop, [&] { return shop.tryCancel(out); },
        u"出库单：%1，至少有一种商品做了取消出库，\r\n\r\n"
        "请先取消审核退货单：%2，然后才能取消审核该出库单！"_qs.arg(out, salesReturn));
    mustRefuse(
        shop, [&] { return shop.tryCancel(sale); },
        u"该单据%1已有出库信息，不能取消审核！\r\n\r\n"
        "请在商品出库单中删除该单据的所有信息，然后再取消审核！"_qs.arg(sale));
    mustRefuse(
        shop, [&] { return closeRest(shop.session, shop.user, receipt); },
        u"该单据没有未入库的商品！"_qs);
    mustRefuse(
        shop, [&] { return closeRest(shop.session, shop.user, sale); },
        u"该单据没有未出库的商品！"_qs);
    shop.cancel(salesReturn);
    shop.cancel(purchaseReturn);
    shop.cancel(out);
    shop.cancel(in);
    shop.db.execute(u"delete from jxc_cksp"_qs);
    shop.db.execute(u"delete from jxc_rksp"_qs);
    shop.cancel(sale);
    shop.cancel(receipt);
    QCOMPARE(shop.stock(g1), u"20 20 0 5"_qs);
}

QTEST_GUILESS_MAIN(TestRefusals)
#include "test_refusals.moc"
