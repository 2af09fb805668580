// What stands between a typed document and its saving: every refusal in its order, then every
// question.
#include "support/shop.h"

#include <QTest>

using namespace jxc;
using namespace jxc::test;

namespace {

const QString g1 = QStringLiteral("G1");
const QString g2 = QStringLiteral("G2");
const Batch good{QStringLiteral("B1"), QStringLiteral("2027-01-01"), QStringLiteral("2026-01-01")};
const Batch past{QStringLiteral("B2"), QStringLiteral("2026-02"), QStringLiteral("2024-02-01")};

DraftLine lineOf(const QString &goods, Decimal quantity, Decimal price) {
    DraftLine line{.goods = goods};
    line.quantity = quantity;
    line.price = price;
    line.batch = good;
    return line;
}

Draft draftOf(const QString &code, const std::vector<DraftLine> &lines) {
    Draft d;
    d.code = code;
    d.date = day(31);
    d.partner = d.warehouse = d.clerk = administratorNo;
    d.lines = lines;
    return d;
}

/// One thing that is wrong with a draft, and how it is mended.
struct Wrong {
    QString text;
    std::function<void(Draft &)> mend;
};

/// Saves, is told of each wrong thing in turn, and mends it; nothing is written until all are.
void mendInOrder(Shop &shop, Draft draft, const std::vector<Wrong> &wrongs) {
    const QStringList before = shop.everything();
    for (const Wrong &wrong : wrongs) {
        const Outcome outcome = saveDraft(shop.session, shop.user, draft);
        QCOMPARE(outcome.text, wrong.text);
        QCOMPARE(outcome.kind, Outcome::Kind::refused);
        wrong.mend(draft);
    }
    QCOMPARE(shop.everything(), before);
    QCOMPARE(shop.user.takeAsked(), QStringList());
    const Outcome outcome = saveDraft(shop.session, shop.user, draft);
    QVERIFY2(outcome.isDone(), qPrintable(outcome.text));
    QVERIFY(!draft.number.isEmpty());
}

} // namespace

class TestDraftChecks : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void saleIsRefusedInOrder_data() { addEngineRows(); }
    void saleIsRefusedInOrder();
    void receiptIsRefusedInOrder_data() { addEngineRows(); }
    void receiptIsRefusedInOrder();
    void returnIsRefusedInOrder_data() { addEngineRows(); }
    void returnIsRefusedInOrder();
    void questionsComeInOrder_data() { addEngineRows(); }
    void questionsComeInOrder();
    void presetPriceAndSupplierNumberAsk_data() { addEngineRows(); }
    void presetPriceAndSupplierNumberAsk();
    void expiredBatchesMayAskOnly_data() { addEngineRows(); }
    void expiredBatchesMayAskOnly();
    void rights_data() { addEngineRows(); }
    void rights();
};

void TestDraftChecks::saleIsRefusedInOrder() {
    Shop shop;
    shop.addGoods(g1, {{u"g_iscf"_qs, 1}});
    shop.addGoods(g2);
    shop.set(u"cs_djrq"_qs, 3);
    shop.set(u"cs_zdzk"_qs, Decimal::fromText(u"0.8"));
    shop.set(u"cs_spcz"_qs, 0);
    Draft d = draftOf(u"XS"_qs, {});
    d.date = d.partner = d.warehouse = d.clerk = d.account = QString();
    d.paid = 1000;
    mendInOrder(shop, d,
                {{u"开单日期必须填写！"_qs, [](Draft &x) { x.date = u"2026-04-01"_qs; }},
                 {u"单据日期不能大于当前日期！"_qs, [](Draft &x) { x.date = day(27); }},
                 {u"单据日期不能早于当前日期3天！"_qs, [](Draft &x) { x.date = day(28); }},
                 {u"客户必须填写！"_qs, [](Draft &x) { x.partner = administratorNo; }},
                 {u"仓库必须填写！"_qs, [](Draft &x) { x.warehouse = administratorNo; }},
                 {u"经手人必须填写！"_qs, [](Draft &x) { x.clerk = administratorNo; }},
                 {u"单据没有明细，不能保存！"_qs,
                  [](Draft &x) {
                      x.lines = {lineOf(g1, 0, -1), lineOf(g1, 1, 8)};
                      x.lines[0].discount = Decimal::fromText(u"0.79");
                      x.lines[1].batch = past;
                  }},
                 {u"第1行：数量必须大于零！"_qs, [](Draft &x) { x.lines[0].quantity = 2; }},
                 {u"第1行：单价不能小于零！"_qs, [](Draft &x) { x.lines[0].price = 10; }},
                 {u"第1行：折扣不能低于0.8！"_qs,
                  [](Draft &x) {
                      x.lines[0].discount = Decimal::fromText(u"0.8");
                      x.lines[1].batch = good;
                  }},
                 {u"第2行：商品“农药G1”已在单据中，不能重复添加！"_qs,
                  [](Draft &x) { x.lines[1].batch = past; }},
                 {u"商品“农药G1”属限制使用商品，必须登记购买人姓名和身份证号！"_qs,
                  [](Draft &x) {
                      for (DraftLine &line : x.lines) {
                          line.buyer = u"李四"_qs;
                          line.identityNo = u"11010519491231002X"_qs;
                      }
                  }},
                 {u"商品“农药G1”批号B2已过有效期2026-02-28，不能销售！"_qs,
                  [](Draft &x) { x.lines[1].goods = g2, x.lines[1].batch = good; }},
                 {u"实收金额不能大于应收金额！"_qs, [](Draft &x) { x.paid = 24; }},
                 {u"结算账户必须填写！"_qs, [](Draft &x) { x.account = u"现金"_qs; }}});
    QCOMPARE(shop.figures(u"select ls_yfje,ls_sfje,ls_qk from jxc_lsxsd"_qs), u"24 24 0"_qs);
}

void TestDraftChecks::receiptIsRefusedInOrder() {
    Shop shop;
    shop.addGoods(g1);
    shop.set(u"cs_ysdh"_qs, 1);
    Draft d = draftOf(u"CJ"_qs, {lineOf(g1, 3, 5)});
    d.partner = u"999"_qs;
    d.paid = -1;
    mendInOrder(
        shop, d,
        {{u"供货商必须填写！"_qs, [](Draft &x) { x.partner = administratorNo; }},
         {u"原始单号必须填写！"_qs, [](Draft &x) { x.supplierNumber = u"K-1"_qs; }},
         {u"实付金额不能小于零！"_qs, [](Draft &x) { x.paid = 16; }},
         {u"实付金额不能大于应付金额！"_qs, [](Draft &x) { x.paid.reset(), x.newTotal = 20; }},
         {u"优惠后的金额不能大于原金额！"_qs, [](Draft &x) { x.newTotal.reset(); }}});
}

/// A return counts what all returns of the same receipt took, drafts too, itself excepted.
void TestDraftChecks::returnIsRefusedInOrder() {
    Shop shop;
    shop.addGoods(g1);
    const QString receipt = shop.post(u"CJ"_qs, day(1), {lineOf(g1, 10, 5)});
    const auto tied = [&](int quantity) {
        DraftLine line = lineOf(g1, quantity, 5);
        line.sourceNumber = receipt;
        return line;
    };
    shop.save(u"CT"_qs, day(2), {tied(4)});
    shop.set(u"cs_ct"_qs, 1);
    Draft d = draftOf(u"CT"_qs, {tied(3), lineOf(g1, 4, 5)});
    mendInOrder(
        shop, d,
        {{u"第2行：必须选择原单！"_qs, [&](Draft &x) { x.lines[1].sourceNumber = receipt; }},
         {u"第2行：退货数量大于可退数量！"_qs, [](Draft &x) { x.lines[1].quantity = 3; }}});

    auto again = loadDraft(shop.session, shop.db.scalar(u"select max(gl_djh) from jxc_thd"_qs));
    QVERIFY(again.has_value());
    QCOMPARE(again->lines[1].sourceNumber, receipt);
    QCOMPARE(saveDraft(shop.session, shop.user, *again).text, QString());
    again->lines[0].batch = past; // the receipt has none of this batch
    QCOMPARE(saveDraft(shop.session, shop.user, *again).text, u"第1行：退货数量大于可退数量！"_qs);
}

void TestDraftChecks::questionsComeInOrder() {
    Shop shop;
    shop.addGoods(g1);
    shop.addGoods(g2);
    shop.set(u"cs_cs006"_qs, 0);
    shop.set(u"cs_zerocost"_qs, 0);
    shop.post(u"CJ"_qs, day(1), {lineOf(g1, 10, 5)});
    Draft d = draftOf(u"XS"_qs, {lineOf(g1, 1, Decimal::fromText(u"4.99")), lineOf(g2, 1, 0)});
    d.lines[1].batch = past;
    d.paid = Decimal();
    const QStringList questions = {u"商品“农药G2”批号B2已过有效期2026-02-28，是否继续？"_qs,
                                   u"普通客户一般应当面结清，确认记入应收帐吗？"_qs,
                                   u"第1行：售价低于成本价，是否继续？"_qs,
                                   u"商品“农药G2”没有成本价，是否继续？"_qs};
    const QStringList before = shop.everything();
    for (qsizetype i = 0; i < questions.size(); ++i) {
        shop.user.answers = QList<bool>(i, true) + QList<bool>{false};
        const Outcome outcome = saveDraft(shop.session, shop.user, d);
        QCOMPARE(outcome.kind, Outcome::Kind::declined);
        QCOMPARE(outcome.text, questions[i]);
        QCOMPARE(shop.user.takeAsked(), questions.first(i + 1));
    }
    QCOMPARE(shop.everything(), before);
    QCOMPARE(saveDraft(shop.session, shop.user, d).text, QString());
    QCOMPARE(shop.user.takeAsked(), questions);
    d.partner = u"100002"_qs; // who has a name may owe, and a gift has no price
    shop.addCustomer(d.partner, u"张三"_qs, u"1000"_qs);
    d = draftOf(u"XS"_qs, {lineOf(g1, 1, 4)});
    d.lines[0].gift = u"(赠品)"_qs;
    QCOMPARE(saveDraft(shop.session, shop.user, d).text, QString());
    QCOMPARE(shop.user.takeAsked(), QStringList());
    QCOMPARE(shop.figures(u"select ls_taxdj,ls_zje,ls_zcb from jxc_lsxssp where t_zp<>''"_qs),
             u"0 0 5"_qs);
}

void TestDraftChecks::presetPriceAndSupplierNumberAsk() {
    Shop shop;
    shop.addGoods(g1, {{u"g_sj"_qs, 9}});
    shop.addUnit(g1, u"箱"_qs, 12, {{u"g_sj"_qs, 100}});
    shop.set(u"cs_xsjgts"_qs, 2);
    Draft d = draftOf(u"XS"_qs, {lineOf(g1, 1, 9), lineOf(g1, 1, 99)});
    d.lines[1].unit = u"箱"_qs;
    d.lines[1].factor = 12;
    QCOMPARE(saveDraft(shop.session, shop.user, d).text, QString());
    QCOMPARE(shop.user.takeAsked(), QStringList(u"第2行：售价低于预设售价，是否继续？"_qs));

    Draft receipt = draftOf(u"CJ"_qs, {lineOf(g1, 1, 5)});
    receipt.supplierNumber = u"K-7"_qs;
    Draft other = receipt;
    QCOMPARE(saveDraft(shop.session, shop.user, receipt).text, QString());
    QCOMPARE(saveDraft(shop.session, shop.user, receipt).text, QString()); // its own number
    QCOMPARE(shop.user.takeAsked(), QStringList());
    shop.user.answers = {false};
    QCOMPARE(saveDraft(shop.session, shop.user, other).text, u"该原始单号已存在，是否继续？"_qs);
}

/// By its own month, or by production and shelf life; the last good day is still good, and a
/// purchase return never minds.
void TestDraftChecks::expiredBatchesMayAskOnly() {
    Shop shop;
    shop.addGoods(g1, {{u"g_bzq"_qs, 24}});
    const auto outcome = [&](const QString &code, const Batch &batch) {
        Draft d = draftOf(code, {lineOf(g1, 1, 5)});
        d.lines[0].batch = batch;
        return saveDraft(shop.session, shop.user, d).text;
    };
    QCOMPARE(outcome(u"XS"_qs, {u"C"_qs, u"2026-03"_qs, u""_qs}), QString());
    QCOMPARE(outcome(u"XS"_qs, {u""_qs, u""_qs, u"2024-03-31"_qs}), QString());
    QCOMPARE(outcome(u"XS"_qs, {u"C"_qs, u""_qs, u"2024-03-30"_qs}),
             u"商品“农药G1”批号C已过有效期2026-03-30，不能销售！"_qs);
    QCOMPARE(outcome(u"CT"_qs, past), QString());
}

void TestDraftChecks::rights() {
    Shop shop;
    shop.addGoods(g1);
    const QString number = shop.save(u"CJ"_qs, day(1), {lineOf(g1, 3, 5)});
    Session clerk = shop.clerk(u"cggl"_qs, {2});
    Draft fresh = draftOf(u"CJ"_qs, {lineOf(g1, 1, 5)});
    QCOMPARE(saveDraft(clerk, shop.user, fresh).text,
             u"您没有权限进行采购进货单！\r\n\r\n或者没有可用的仓库。"_qs);

    clerk = shop.clerk(u"cggl"_qs, {1});
    auto stored = loadDraft(clerk, number);
    stored->lines[0].quantity = 4;
    QCOMPARE(saveDraft(clerk, shop.user, *stored).text, QString());
    stored->lines.push_back(lineOf(g1, 1, 5));
    QVERIFY(saveDraft(clerk, shop.user, *stored)
                .text.startsWith(u"您没有权限进行采购进货单添加商品！"_qs));
    QVERIFY(deleteDraft(clerk, shop.user, number)
                .text.startsWith(u"您没有权限进行采购进货单删除！"_qs));
    clerk = shop.clerk(u"cggl"_qs, {1, 16, 17});
    QCOMPARE(saveDraft(clerk, shop.user, *stored).text, QString());
    QCOMPARE(deleteDraft(clerk, shop.user, number).text, QString());

    // The cost of a sale is the program's unless the right says otherwise.
    clerk = shop.clerk(u"xsgl"_qs, {1});
    Draft sale = draftOf(u"XS"_qs, {lineOf(g1, 2, 9)});
    sale.lines[0].cost = 7;
    QVERIFY(
        saveDraft(clerk, shop.user, sale).text.startsWith(u"您没有权限进行修改销售成本价！"_qs));
    clerk = shop.clerk(u"xsgl"_qs, {1, 14});
    QCOMPARE(saveDraft(clerk, shop.user, sale).text, QString());
    clerk = shop.clerk(u"xsgl"_qs, {1});
    auto again = loadDraft(clerk, sale.number);
    again->lines[0].quantity = 3;
    QCOMPARE(saveDraft(clerk, shop.user, *again).text, QString());
    QCOMPARE(shop.figures(u"select ls_cbj,ls_zcb from jxc_lsxssp"_qs), u"7 21"_qs);
    QCOMPARE(refreshDraftCosts(clerk, shop.user, sale.number).text, QString());
    QCOMPARE(shop.figures(u"select ls_cbj,ls_zcb from jxc_lsxssp"_qs), u"0 0"_qs);
}

QTEST_GUILESS_MAIN(TestDraftChecks)
#include "test_draft_checks.moc"
