// Documents as they are typed: stored, loaded, replaced, discounted, settled, copied, deleted.
#include "stock/amounts.h"
#include "support/shop.h"

#include <QRegularExpression>
#include <QTest>

using namespace jxc;
using namespace jxc::test;

namespace {

const QString g1 = QStringLiteral("G1");
const QString g2 = QStringLiteral("G2");
const Batch b1{QStringLiteral("B1"), QStringLiteral("2027-01-01"), QStringLiteral("2026-01-01")};

DraftLine lineOf(const QString &goods, Decimal quantity, Decimal price) {
    DraftLine line{.goods = goods};
    line.quantity = quantity;
    line.price = price;
    line.batch = b1;
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

void save(Shop &shop, Draft &draft) {
    Shop::demand(saveDraft(shop.session, shop.user, draft));
}

/// A sale with every field that a clerk can type.
Draft fullSale() {
    Draft d = draftOf(u"XS"_qs, {lineOf(g1, 3, 10), lineOf(g2, 1, 4)});
    d.note = u"春耕"_qs;
    d.paid = 5;
    d.account = u"农行"_qs;
    d.invoiceNo = u"F01"_qs;
    d.invoiced = 20;
    d.freight = 6;
    d.packing = 2;
    d.freightTerms = u"我方付运费"_qs;
    d.contract = u"H1"_qs;
    d.member = u"M1"_qs;
    d.reminderDate = u"2026-10-01"_qs;
    d.tenders = {2, 1, 2, 1, 1};
    DraftLine &l = d.lines[0];
    l.unit = u"箱"_qs;
    l.factor = 12;
    l.discount = Decimal::fromText(u"0.9");
    l.note = u"急"_qs;
    l.buyer = u"李四"_qs;
    l.identityNo = u"11010519491231002X"_qs;
    l.mobile = u"13900000000"_qs;
    l.use = u"稻飞虱"_qs;
    l.address = u"王家村"_qs;
    l.prescription = u"P1"_qs;
    l.barcode = u"6901"_qs;
    d.lines[1].gift = u"(赠品)"_qs;
    d.lines[1].batch = {};
    return d;
}

/// The cells of all rows; figures as they are written on paper, whatever the engine appends.
QStringList cells(Shop &shop, const QString &sql) {
    static const QRegularExpression zeros(u"(\\.\\d*?)0+(?=\\||$)"_qs);
    QStringList rows = shop.texts(sql);
    for (QString &row : rows)
        row.replace(zeros, u"\\1"_qs).replace(QRegularExpression(u"\\.(?=\\||$)"_qs), QString());
    return rows;
}

/// All rows of a document, without the ids that every saving renews.
QStringList stored(Shop &shop, const QString &headerTable, const QString &lineTable) {
    QStringList rows;
    for (const QString &table : {headerTable, lineTable})
        for (const QString &row : shop.texts(u"select * from %1 order by id"_qs.arg(table)))
            rows << row.section(u'|', 1);
    return rows;
}

} // namespace

class TestDraft : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void whatIsStoredComesBack_data() { addEngineRows(); }
    void whatIsStoredComesBack();
    void replacingLeavesNothingBehind_data() { addEngineRows(); }
    void replacingLeavesNothingBehind();
    void secondWorkstationIsTold_data() { addEngineRows(); }
    void secondWorkstationIsTold();
    void settlement_data() { addEngineRows(); }
    void settlement();
    void amountsInBothTaxModes_data() { addEngineRows(); }
    void amountsInBothTaxModes();
    void typedTotalStands_data() { addEngineRows(); }
    void typedTotalStands();
    void purchaseDiscountGoesIntoThePrice_data() { addEngineRows(); }
    void purchaseDiscountGoesIntoThePrice();
    void wholeDiscountSpread_data() { addEngineRows(); }
    void wholeDiscountSpread();
    void wholeDiscountOnALine_data() { addEngineRows(); }
    void wholeDiscountOnALine();
    void countersAndLaterGoods_data() { addEngineRows(); }
    void countersAndLaterGoods();
    void saveAndApprove_data() { addEngineRows(); }
    void saveAndApprove();
    void approveAllTellsOfEach_data() { addEngineRows(); }
    void approveAllTellsOfEach();
    void copyAndDelete_data() { addEngineRows(); }
    void copyAndDelete();
    void orderProgress_data() { addEngineRows(); }
    void orderProgress();
};

void TestDraft::whatIsStoredComesBack() {
    Shop shop;
    for (const QString &goods : {g1, g2})
        shop.addGoods(goods);
    Draft sale = fullSale();
    save(shop, sale);
    const QStringList before = stored(shop, u"jxc_lsxsd"_qs, u"jxc_lsxssp"_qs);
    // A null would be no empty text in a batch's key.
    QCOMPARE(cells(shop, u"select t_ph,t_yxq,t_scrq from jxc_lsxssp where g_sn='G2'"_qs),
             QStringList(u"|0000-00|"_qs));
    auto loaded = loadDraft(shop.session, sale.number);
    QVERIFY(loaded.has_value());
    QCOMPARE(loaded->lines[1].batch.expiry, QString());
    QCOMPARE(loaded->tenders.storedValue, Decimal(2));
    save(shop, *loaded);
    QCOMPARE(stored(shop, u"jxc_lsxsd"_qs, u"jxc_lsxssp"_qs), before);

    Draft receipt = draftOf(u"CJ"_qs, {lineOf(g1, 3, 10)});
    receipt.supplierNumber = u"K1"_qs;
    receipt.paid = 20;
    receipt.restForgiven = true;
    save(shop, receipt);
    const QStringList bought = stored(shop, u"jxc_jhd"_qs, u"jxc_jhsp"_qs);
    loaded = loadDraft(shop.session, receipt.number);
    save(shop, *loaded);
    QCOMPARE(stored(shop, u"jxc_jhd"_qs, u"jxc_jhsp"_qs), bought);
    QVERIFY(!loadDraft(shop.session, u"CJ26010110001"_qs).has_value());
}

void TestDraft::replacingLeavesNothingBehind() {
    Shop shop;
    for (const QString &goods : {g1, g2})
        shop.addGoods(goods);
    Draft draft = fullSale();
    draft.newTotal = 20;
    shop.set(u"cs_xsyh"_qs, 1);
    save(shop, draft);
    const QString number = draft.number;
    // What others wrote into the header stays.
    shop.db.execute(u"update jxc_lsxsd set ls_transactionid='W1'"_qs);
    const qint64 header = shop.db.row(u"select id from jxc_lsxsd"_qs)->integer(u"id");

    Draft plain = draftOf(u"XS"_qs, {lineOf(g2, 2, 3)});
    plain.number = number;
    plain.fingerprint = loadDraft(shop.session, number)->fingerprint;
    save(shop, plain);
    QCOMPARE(plain.number, number);
    QCOMPARE(cells(shop, u"select id,ls_yfje,ls_sfje,ls_yhje,ls_qk,ls_note,ls_kmmc,ls_fpno,ls_yf,"
                         "hy_sn,pos_czk,ls_ckrq,ls_transactionid from jxc_lsxsd"_qs),
             QStringList(u"%1|6|6|0|0||现金||0||0||W1"_qs.arg(header)));
    QCOMPARE(cells(shop, u"select g_sn,ls_sl,ls_zje,ls_xm,t_zp from jxc_lsxssp"_qs),
             QStringList(u"G2|2|6||"_qs));
}

void TestDraft::secondWorkstationIsTold() {
    Shop shop;
    shop.addGoods(g1);
    const QString changed = u"单据已被其他操作员修改或审核，请刷新后重试！"_qs;
    Draft mine = draftOf(u"CJ"_qs, {lineOf(g1, 3, 10)});
    save(shop, mine);
    auto theirs = loadDraft(shop.session, mine.number);
    theirs->lines[0].quantity = 4;
    save(shop, *theirs);
    const QStringList before = shop.everything();
    QCOMPARE(saveDraft(shop.session, shop.user, mine).text, changed);
    QCOMPARE(shop.everything(), before);
    shop.approve(mine.number);
    QCOMPARE(saveDraft(shop.session, shop.user, *theirs).text, changed);
    QVERIFY(loadDraft(shop.session, mine.number)->approved);
    shop.cancel(mine.number);
    auto again = loadDraft(shop.session, mine.number);
    save(shop, *again);
    save(shop, *again); // its fingerprint is the new one
    QCOMPARE(deleteDraft(shop.session, shop.user, mine.number).text, QString());
    QCOMPARE(saveDraft(shop.session, shop.user, *again).text, changed);
}

void TestDraft::settlement() {
    struct Case {
        QString code;
        std::optional<Decimal> paid;
        bool forgiven;
        QString sums; ///< due, paid, off, owing, method
    };
    const std::vector<Case> cases = {
        {u"CJ"_qs, {}, false, u"30 30 0 0 0"_qs}, {u"CJ"_qs, 20, true, u"30 20 10 0 0"_qs},
        {u"CJ"_qs, 20, false, u"30 20 0 1 1"_qs}, {u"XS"_qs, 0, true, u"30 0 30 0 0"_qs},
        {u"XS"_qs, 29, false, u"30 29 0 1 1"_qs}, {u"CT"_qs, 20, true, u"30 20 0 1 1"_qs},
        {u"XT"_qs, {}, true, u"30 30 0 0 0"_qs}};
    Shop shop;
    shop.addGoods(g1);
    const QHash<QString, QString> sql = {
        {u"CJ"_qs, u"select j_yfje,j_sfje,j_yhje,j_qk,j_jsfs from jxc_jhd where j_sn=?"_qs},
        {u"XS"_qs,
         u"select ls_yfje,ls_sfje,ls_yhje,ls_qk,ls_jsfs from jxc_lsxsd where gl_djh=?"_qs},
        {u"CT"_qs, u"select th_yfje,th_sfje,0,th_qk,th_jsfs from jxc_thd where gl_djh=?"_qs},
        {u"XT"_qs, u"select th_yfje,th_sfje,0,th_qk,th_jsfs from jxc_xsthd where gl_djh=?"_qs}};
    for (const Case &c : cases) {
        Draft d = draftOf(c.code, {lineOf(g1, 3, 10)});
        d.paid = c.paid;
        d.restForgiven = c.forgiven;
        save(shop, d);
        QCOMPARE(shop.figures(sql[c.code], {d.number}), c.sums);
    }
}

void TestDraft::amountsInBothTaxModes() {
    Shop shop;
    shop.addGoods(g1);
    shop.set(u"cs_tax"_qs, 13);
    const QString sql = u"select ls_dj,ls_taxdj,ls_je,ls_taxje,ls_zje,ls_zhje,ls_tax from "
                        "jxc_lsxssp where gl_djh=?"_qs;
    for (const int included : {0, 1}) {
        shop.set(u"cs_hs"_qs, included);
        DraftLine line = lineOf(g1, 3, 10);
        line.discount = Decimal::fromText(u"0.95");
        Draft d = draftOf(u"XS"_qs, {line, lineOf(g1, 1, 10)});
        d.lines[1].taxRate = Decimal();
        save(shop, d);
        const QString expected = included == 1 ? u"8.85 10 25.22 3.28 28.5 9.5 13"_qs
                                               : u"10 11.3 28.5 3.71 32.21 10.74 13"_qs;
        QCOMPARE(shop.figures(sql, {d.number}), expected);
        QCOMPARE(shop.figures(sql + u" and ls_tax=0"_qs, {d.number}), u"10 10 10 0 10 10 0"_qs);
        auto again = loadDraft(shop.session, d.number);
        QCOMPARE(again->lines[0].price, Decimal(10));
        QVERIFY(!again->lines[0].total.has_value());
    }
}

/// 100 for three is 33.333333 each, and 100 again when it is read back; a total that no price makes
/// stays as it was typed.
void TestDraft::typedTotalStands() {
    Shop shop;
    shop.addGoods(g1);
    shop.set(u"cs_tax"_qs, 13);
    Draft d = draftOf(u"CJ"_qs, {lineOf(g1, 3, 0), lineOf(g1, 7, 3)});
    d.lines[0].total = 100;
    d.lines[0].price = priceOfTotal(shop.session.parameters, 100, 3, 13, 1);
    d.lines[1].total = Decimal::fromText(u"23.77");
    save(shop, d);
    const QStringList expected = {u"100|11.5|88.5"_qs, u"23.77|2.73|21.04"_qs};
    const QString sql = u"select jh_zje,jh_taxje,jh_je from jxc_jhsp order by id"_qs;
    QCOMPARE(cells(shop, sql), expected);
    auto again = loadDraft(shop.session, d.number);
    save(shop, *again);
    QCOMPARE(cells(shop, sql), expected);
    QCOMPARE(shop.figures(u"select j_yfje from jxc_jhd"_qs), u"123.77"_qs);
}

void TestDraft::purchaseDiscountGoesIntoThePrice() {
    Shop shop;
    shop.addGoods(g1);
    Draft d = draftOf(u"CJ"_qs, {lineOf(g1, 10, Decimal::fromText(u"3.33"))});
    d.lines[0].discount = Decimal::fromText(u"0.95");
    d.lines[0].note = u"促销"_qs;
    save(shop, d);
    const QStringList expected(u"3.164|1|31.64|促销 折扣0.95"_qs);
    const QString sql = u"select jh_dj,jh_dzl,jh_zje,jh_bz from jxc_jhsp"_qs;
    QCOMPARE(cells(shop, sql), expected);
    auto again = loadDraft(shop.session, d.number);
    save(shop, *again);
    QCOMPARE(cells(shop, sql), expected);
    shop.approve(d.number);
    QCOMPARE(shop.stock(g1), u"10 10 0 3.16"_qs);
}

void TestDraft::wholeDiscountSpread() {
    Shop shop;
    for (const QString &goods : {g1, g2})
        shop.addGoods(goods);
    Draft d = draftOf(u"XS"_qs, {lineOf(g1, 7, 10), lineOf(g2, 3, 10)});
    d.newTotal = Decimal::fromText(u"90.3");
    d.paid = d.newTotal;
    d.restForgiven = true;
    save(shop, d);
    const QString header = u"select ls_yfje,ls_sfje,ls_yhje,ls_qk from jxc_lsxsd"_qs;
    const QString lines = u"select ls_zje,ls_taxdj from jxc_lsxssp order by id"_qs;
    QCOMPARE(shop.figures(header), u"90.3 90.3 0 0"_qs);
    QCOMPARE(cells(shop, lines), QStringList({u"65.15|9.307"_qs, u"25.15|8.383"_qs}));
    // Saved as it was typed, the discount is taken once; saved as loaded, the lines stay.
    save(shop, d);
    QCOMPARE(shop.figures(header), u"90.3 90.3 0 0"_qs);
    auto again = loadDraft(shop.session, d.number);
    QVERIFY(!again->newTotal.has_value());
    save(shop, *again);
    QCOMPARE(cells(shop, lines), QStringList({u"65.15|9.307"_qs, u"25.15|8.383"_qs}));
    // What the rounding leaves is settled as a discount.
    again->newTotal = 90;
    again->paid = 90;
    again->restForgiven = true;
    save(shop, *again);
    QCOMPARE(shop.figures(header), u"90.3 90 0.3 0"_qs);
}

void TestDraft::wholeDiscountOnALine() {
    Shop shop;
    shop.addGoods(g1);
    shop.set(u"cs_cgyh"_qs, 1);
    Draft d = draftOf(u"CJ"_qs, {lineOf(g1, 7, 10)});
    d.newTotal = 65;
    d.paid = Decimal();
    save(shop, d);
    auto again = loadDraft(shop.session, d.number);
    QCOMPARE(again->lines.size(), size_t{1});
    QCOMPARE(again->newTotal, Decimal(65));
    again->lines[0].quantity = 8;
    save(shop, *again);
    QCOMPARE(cells(shop, u"select g_sn,jh_zje from jxc_jhsp order by id"_qs),
             QStringList({u"G1|80"_qs, u"00000000|-15"_qs}));
    QCOMPARE(shop.figures(u"select j_yfje,j_sfje,j_qk from jxc_jhd"_qs), u"65 0 1"_qs);
    shop.approve(d.number);
    QCOMPARE(shop.stock(g1), u"8 8 0 10"_qs);
}

void TestDraft::countersAndLaterGoods() {
    Shop shop;
    shop.addGoods(g1);
    shop.db.insertRow(u"jxc_djbz"_qs, {{u"dj_sn"_qs, u"1"}, {u"dj_name"_qs, u"春耕"}});
    Draft d = draftOf(u"CJ"_qs, {lineOf(g1, 7, 10)});
    d.note = u"春耕"_qs;
    save(shop, d);
    shop.set(u"cs_sprk"_qs, 1);
    save(shop, d);
    QCOMPARE(shop.figures(u"select u_cgpl from jxc_user where u_sn='100001'"_qs), u"1"_qs);
    QCOMPARE(shop.figures(u"select ghs_pl from jxc_ghsxx where ghs_sn='100001'"_qs), u"1"_qs);
    QCOMPARE(shop.figures(u"select dj_pl from jxc_djbz where dj_name='春耕'"_qs), u"1"_qs);
    QCOMPARE(shop.figures(u"select jh_rksl,jh_qxsl,id2,id3 from jxc_jhsp"_qs), u"0 0 0 0"_qs);
}

/// An approval that is refused leaves the draft stored, with no question asked twice.
void TestDraft::saveAndApprove() {
    Shop shop;
    shop.addGoods(g1);
    Draft receipt = draftOf(u"CJ"_qs, {lineOf(g1, 3, 5)});
    auto ended = saveAndApproveDraft(shop.session, shop.user, receipt);
    QVERIFY(ended.saved.isDone() && ended.approved.isDone());
    QVERIFY(receipt.approved);
    QCOMPARE(shop.stock(g1), u"3 3 0 5"_qs);

    shop.set(u"cs_kc"_qs, 0);
    Draft sale = draftOf(u"XS"_qs, {lineOf(g1, 4, 4)});
    ended = saveAndApproveDraft(shop.session, shop.user, sale);
    QCOMPARE(shop.user.takeAsked(), QStringList(u"第1行：售价低于成本价，是否继续？"_qs));
    QCOMPARE(ended.saved.text, QString());
    QCOMPARE(ended.approved.kind, Outcome::Kind::refused);
    QVERIFY(!sale.number.isEmpty());
    QCOMPARE(shop.figures(u"select ls_status,ls_yfje from jxc_lsxsd"_qs), u"0 16"_qs);
    QCOMPARE(shop.stock(g1), u"3 3 0 5"_qs);
    sale.lines[0].quantity = 3;
    ended = saveAndApproveDraft(shop.session, shop.user, sale);
    QVERIFY(ended.approved.isDone());
    QCOMPARE(shop.stock(g1), u"0 0 3 5"_qs);

    Draft wrong = draftOf(u"XS"_qs, {});
    ended = saveAndApproveDraft(shop.session, shop.user, wrong);
    QCOMPARE(ended.saved.text, u"单据没有明细，不能保存！"_qs);
    QVERIFY(wrong.number.isEmpty());
}

void TestDraft::approveAllTellsOfEach() {
    Shop shop;
    shop.addGoods(g1);
    const QString first = shop.post(u"CJ"_qs, day(1), {lineOf(g1, 3, 5)});
    const QString second = shop.save(u"CJ"_qs, day(2), {lineOf(g1, 3, 5)});
    const QString third = shop.save(u"CJ"_qs, day(3), {lineOf(g1, 3, 5)});
    const auto approve = [&](const std::function<bool(qsizetype)> &progress) {
        return approveAll(shop.session, shop.user, {first, second, third}, progress);
    };
    shop.user.answers = {false};
    QVERIFY(approve({}).empty());
    const auto two = approve([](qsizetype done) { return done < 2; });
    QCOMPARE(two.size(), size_t{2});
    QCOMPARE(two[0].outcome.kind, Outcome::Kind::refused);
    QCOMPARE(two[1].number, second);
    QVERIFY(two[1].outcome.isDone());
    QCOMPARE(shop.stock(g1), u"6 6 0 5"_qs);
    QCOMPARE(shop.user.takeAsked().size(), 2);
}

void TestDraft::copyAndDelete() {
    Shop shop;
    for (const QString &goods : {g1, g2})
        shop.addGoods(goods);
    Draft sale = fullSale();
    sale.date = day(3);
    save(shop, sale);
    auto copy = copyDraft(shop.session, sale.number);
    QVERIFY(copy.has_value());
    QCOMPARE(copy->date, day(31));
    QVERIFY(copy->number.isEmpty() && copy->invoiceNo.isEmpty() && !copy->paid);
    save(shop, *copy);
    QVERIFY(copy->number != sale.number);
    QCOMPARE(shop.figures(u"select count(*) from jxc_lsxssp"_qs), u"4"_qs);

    shop.user.answers = {false};
    const Outcome kept = deleteDraft(shop.session, shop.user, sale.number);
    QCOMPARE(kept.text, u"您的操作将删除单据：%1，确认吗？"_qs.arg(sale.number));
    QCOMPARE(kept.kind, Outcome::Kind::declined);
    QCOMPARE(deleteDraft(shop.session, shop.user, sale.number).text, QString());
    QCOMPARE(shop.lastLog(), u"删除商品销售单："_qs + sale.number);
    QCOMPARE(shop.figures(u"select count(*) from jxc_lsxssp"_qs), u"2"_qs);
    shop.db.insertRow(u"jxc_hyxx"_qs, {{u"hy_sn"_qs, u"M1"}, {u"hy_bh"_qs, u"M1"}});
    shop.approve(copy->number);
    QCOMPARE(deleteDraft(shop.session, shop.user, copy->number).text, u"已审核的单据不能删除！"_qs);
}

/// An order's line has got as far as all receipts that carry its id, drafts too.
void TestDraft::orderProgress() {
    Shop shop;
    shop.addGoods(g1);
    const qint64 order = shop.db.insertRow(u"jxc_cgsp"_qs, {{u"gl_djh"_qs, u"CD26030110001"},
                                                            {u"g_sn"_qs, g1},
                                                            {u"jh_sl"_qs, 5},
                                                            {u"jh_zsl"_qs, 60},
                                                            {u"jh_rksl"_qs, 0}});
    const auto progress = [&] { return shop.figures(u"select jh_rksl from jxc_cgsp"_qs); };
    Draft d = draftOf(u"CJ"_qs, {lineOf(g1, 30, 1)});
    d.lines[0].sourceNumber = u"CD26030110001"_qs;
    d.lines[0].sourceLine = order;
    save(shop, d);
    QCOMPARE(progress(), u"2.5"_qs);
    auto again = loadDraft(shop.session, d.number);
    again->lines[0].quantity = 12;
    save(shop, *again);
    QCOMPARE(progress(), u"1"_qs);
    Shop::demand(deleteDraft(shop.session, shop.user, d.number));
    QCOMPARE(progress(), u"0"_qs);
}

QTEST_GUILESS_MAIN(TestDraft)
#include "test_draft.moc"
