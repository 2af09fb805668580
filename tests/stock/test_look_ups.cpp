// What the shop looks up: stock, batches, prices, movements, documents, and why a cost is what it
// is.
#include "core/login.h"
#include "stock/cost_story.h"
#include "stock/document_sources.h"
#include "stock/expiry.h"
#include "stock/movement_query.h"
#include "stock/stock_query.h"
#include "stock/trade_query.h"
#include "support/shop.h"

#include <QRegularExpression>
#include <QTest>

using namespace jxc;
using namespace jxc::test;

namespace {

const QString g1 = QStringLiteral("G1");
const QString g2 = QStringLiteral("G2");
const QString mainStore = QStringLiteral("100001");
const QString farStore = QStringLiteral("100002");

DraftLine line(const QString &goods, Decimal quantity, Decimal price, const QString &batch = {},
               const QString &expiry = {}) {
    DraftLine l{.goods = goods};
    l.quantity = quantity;
    l.price = price;
    l.batch = {batch, expiry, {}};
    return l;
}

const std::function<void(Draft &)> inFarStore = [](Draft &d) { d.warehouse = farStore; };

/// Two goods: one bought twice, sold and sent back, in two warehouses; one never seen.
void trade(Shop &shop) {
    shop.addGoods(g1,
                  {{u"g_sccs"_qs, u"江南农化"}, {u"g_jm"_qs, u"CGL"}, {u"gc_sn"_qs, u"10001001"}});
    shop.addGoods(g2, {{u"gc_sn"_qs, u"1000"}});
    shop.addUnit(g1, u"箱"_qs, 20, {{u"g_sptm"_qs, u"16901234567899"}});
    shop.post(u"CJ"_qs, day(1), {line(g1, 2, 3_d, u"B1"_qs, u"2026-04-10"_qs)});
    shop.post(u"CJ"_qs, day(5), {line(g1, 10, 3.3_d, u"B2"_qs, u"2026-03"_qs)}, onAccount);
    shop.post(u"CJ"_qs, day(6), {line(g1, 4, 4_d)}, inFarStore);
    shop.post(u"XS"_qs, day(7), {line(g1, 3, 5_d, u"B2"_qs, u"2026-03"_qs)});
    shop.post(u"CT"_qs, day(8), {line(g1, 1, 4_d)}, inFarStore);
}

/// One line a row; figures without the zeros that one engine fills them up with.
QStringList shown(const Rows &rows, const QString &fields) {
    static const QRegularExpression figure(u"^-?[0-9]+\\.[0-9]+$"_qs);
    QStringList lines;
    for (const Row &row : rows) {
        QStringList cells;
        for (const QString &field : fields.split(u' '))
            cells << (figure.match(row.text(field)).hasMatch() ? row.decimal(field).toText()
                                                               : row.text(field));
        lines << cells.join(u'|');
    }
    return lines;
}

QStringList sentences(const CostStory &story) {
    QStringList lines{story.opening};
    for (const CostStoryRow &row : story.rows)
        lines << row.sentence;
    return lines << story.conclusion;
}

} // namespace

class TestLookUps : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void stock_data() { addEngineRows(); }
    void stock();
    void search_data() { addEngineRows(); }
    void search();
    void batchesAndPrices_data() { addEngineRows(); }
    void batchesAndPrices();
    void movementsOfOneAndAllWarehouses_data() { addEngineRows(); }
    void movementsOfOneAndAllWarehouses();
    void documents_data() { addEngineRows(); }
    void documents();
    void everyKindOfDocument_data() { addEngineRows(); }
    void everyKindOfDocument();
    void tradeIsNet_data() { addEngineRows(); }
    void tradeIsNet();
    void othersWarehousesAreLeftOut_data() { addEngineRows(); }
    void othersWarehousesAreLeftOut();
    void whyThisCost_data() { addEngineRows(); }
    void whyThisCost();
    void whyOddCosts_data() { addEngineRows(); }
    void whyOddCosts();
    void expiryByDayAndMonth();
};

void TestLookUps::stock() {
    Shop shop;
    trade(shop);
    const QString fields = u"g_sn ck_sn kc_sl kc_zsl kc_ce kc_cbj kc_je"_qs;
    // 9 at 3.25 and 3 at 4.00 (a return at the price of the stock): 41.25 / 12
    QCOMPARE(shown(stockList(shop.session, {}), fields),
             QStringList({u"G1||12|12|0|3.44|41.25"_qs, u"G2||0|0|0|0|0"_qs}));
    StockFilter filter;
    filter.perWarehouse = true;
    QCOMPARE(shown(stockList(shop.session, filter), fields),
             QStringList({u"G1|100001|9|9|0|3.25|29.25"_qs, u"G1|100002|3|3|0|4|12"_qs}));
    filter = {.warehouse = farStore};
    QCOMPARE(shown(stockList(shop.session, filter), u"g_sn ck_name kc_sl"_qs).size(), 2);
    filter = {.level = StockLevel::none};
    QCOMPARE(shown(stockList(shop.session, filter), u"g_sn"_qs), QStringList{g2});

    shop.post(u"XS"_qs, day(9), {line(g2, 1, 5_d)});
    filter = {.level = StockLevel::negative};
    QCOMPARE(shown(stockList(shop.session, filter), u"g_sn kc_sl"_qs), QStringList{u"G2|-1"_qs});
    // Ordered, not yet here: the books are ahead of the shelf.
    shop.set(u"cs_sprk"_qs, 1);
    shop.post(u"CJ"_qs, day(10), {line(g2, 5, 2_d)}, laterOnAccount);
    QCOMPARE(shown(stockList(shop.session, {}), u"g_sn kc_sl kc_zsl kc_ce"_qs).at(1),
             u"G2|-1|4|5"_qs);
    // A disabled goods is forgotten once it is gone.
    shop.addGoods(u"G3"_qs);
    shop.db.execute(u"update jxc_goods set g_jy=1 where g_sn in ('G2','G3')"_qs);
    QCOMPARE(shown(stockList(shop.session, {}), u"g_sn"_qs), QStringList({g1, g2}));
}

void TestLookUps::search() {
    Shop shop;
    trade(shop);
    const auto found = [&](const QString &text) {
        return shown(stockList(shop.session, {.search = text}), u"g_sn"_qs);
    };
    for (const char16_t *text : {u"g1", u"690G1", u"16901234567899", u"农化", u"cg"})
        QCOMPARE(found(QString::fromUtf16(text)), QStringList{g1});
    for (const char16_t *text : {u"GL", u"690", u"%", u"_"})
        QCOMPARE(found(QString::fromUtf16(text)), QStringList());
    QCOMPARE(shown(stockList(shop.session, {.classCode = u"1000"_qs}), u"g_sn"_qs).size(), 2);
    QCOMPARE(shown(stockList(shop.session, {.classCode = u"10001001"_qs}), u"g_sn"_qs),
             QStringList{g1});
}

void TestLookUps::batchesAndPrices() {
    Shop shop;
    trade(shop);
    QCOMPARE(shown(batchesOf(shop.session, g1), u"ck_sn t_ph t_yxq t_sl days"_qs),
             QStringList({u"100001|B2|2026-03|7|0"_qs, u"100001|B1|2026-04-10|2|10"_qs,
                          u"100002||0000-00|3|"_qs}));
    QCOMPARE(batchesOf(shop.session, g1, farStore).size(), size_t(1));

    shop.addCustomer(u"100009"_qs, u"王大田"_qs, u"1000"_qs);
    shop.post(u"XS"_qs, day(9), {line(g1, 1, 6_d)}, [](Draft &d) { d.partner = u"100009"_qs; });
    const QString fields = u"own gl_kdrq ghs_name gl_sl gl_dj"_qs;
    const QString regular = shop.db.scalar(u"select kh_name from jxc_khxx where kh_sn='100001'"_qs);
    QCOMPARE(shown(latestPrices(shop.session, Trade::sale, g1, u"100009"_qs), fields),
             QStringList({u"1|2026-03-09|王大田|1|6"_qs, u"0|2026-03-09|王大田|1|6"_qs,
                          u"0|2026-03-07|"_qs + regular + u"|3|5"_qs}));
    QCOMPARE(shown(latestPrices(shop.session, Trade::purchase, g1, {}, 2), u"gl_kdrq gl_dj"_qs),
             QStringList({u"2026-03-06|4"_qs, u"2026-03-05|3.3"_qs}));
}

void TestLookUps::movementsOfOneAndAllWarehouses() {
    Shop shop;
    trade(shop);
    const QString fields = u"gl_kdrq title gl_in gl_out gl_kc gl_pjjj gl_kczje"_qs;
    const MovementFilter one{g1, mainStore, day(5), day(31)};
    QCOMPARE(shown(movements(shop.session, one), fields),
             QStringList({u"2026-03-05|期初|||2|3|6"_qs, u"2026-03-05|采购进货|10||12|3.25|39"_qs,
                          u"2026-03-07|商品销售||3|9|3.25|29.25"_qs}));
    const MovementFilter all{g1, {}, day(6), day(31)};
    QCOMPARE(shown(movements(shop.session, all), fields),
             QStringList({u"2026-03-06|期初|||12|3.25|39"_qs, u"2026-03-06|采购进货|4||16|4|55"_qs,
                          u"2026-03-07|商品销售||3|13|3.25|45.25"_qs,
                          u"2026-03-08|采购退货||1|12|4|41.25"_qs}));
    const MovementFilter none{g2, {}, day(1), day(31)};
    QCOMPARE(shown(movements(shop.session, none), fields),
             QStringList{u"2026-03-01|期初|||0||0"_qs});
}

void TestLookUps::documents() {
    Shop shop;
    trade(shop);
    const QString draft = shop.save(u"XS"_qs, day(9), {line(g2, 1, 7_d)});
    const Rows all = findDocuments(shop.session, {});
    QCOMPARE(
        shown(all, u"rq title amount state_text"_qs),
        QStringList({u"2026-03-09|商品销售单|7|未审核"_qs, u"2026-03-08|采购退货单|4|已审核"_qs,
                     u"2026-03-07|商品销售单|15|已审核"_qs, u"2026-03-06|采购进货单|16|已审核"_qs,
                     u"2026-03-05|采购进货单|33|已审核"_qs, u"2026-03-01|采购进货单|6|已审核"_qs}));
    const auto found = [&](const DocumentQuery &filter) {
        return shown(findDocuments(shop.session, filter), u"rq"_qs);
    };
    QCOMPARE(found({.codes = {u"CT"_qs}}), QStringList{day(8)});
    QCOMPARE(found({.from = day(6), .to = day(7)}), QStringList({day(7), day(6)}));
    QCOMPARE(found({.partnerType = u"kh"_qs, .partner = mainStore}).size(), 2);
    QCOMPARE(found({.warehouse = farStore}), QStringList({day(8), day(6)}));
    QCOMPARE(found({.state = DocumentState::draft}), QStringList{day(9)});
    QCOMPARE(found({.search = draft.mid(2)}), QStringList{day(9)});
    QCOMPARE(found({.goods = g2}), QStringList{day(9)});
    QCOMPARE(found({.goods = g1, .batch = u"B2"_qs}), QStringList({day(7), day(5)}));
    QCOMPARE(shown(documentLines(shop.session, u"XS"_qs, draft), u"g_sn dw_name sl dj zje"_qs),
             QStringList{u"G2|瓶|1|7|7"_qs});
}

/// Every kind is found and its lines are read, wherever its figures stand.
void TestLookUps::everyKindOfDocument() {
    Shop shop;
    shop.addGoods(g1);
    for (const DocumentSource &source : documentSources()) {
        const QString number = source.code + u"26030510001"_qs;
        const auto column = [](QString text) { return text.remove(0, 2); };
        Assignments header = {{source.number, number},
                              {column(source.date), day(5)},
                              {column(source.warehouse), mainStore},
                              {u"u_sn"_qs, mainStore}};
        if (source.status != u"1")
            header.push_back({column(source.status), 1});
        if (source.headerHasGoods)
            header.push_back({u"g_sn"_qs, u"G9"});
        shop.db.insertRow(source.header, header);
        Assignments lineRow = {{source.number, number},
                               {u"g_sn"_qs, g1},
                               {u"t_ph"_qs, u"B1"},
                               {column(source.quantity), 3}};
        if (!source.lineAmount.isEmpty())
            lineRow.push_back({column(source.lineAmount), 12.34_d});
        shop.db.insertRow(source.lines, lineRow);

        const Rows found = findDocuments(shop.session, {.codes = {source.code},
                                                        .from = day(5),
                                                        .to = day(5),
                                                        .warehouse = mainStore,
                                                        .state = DocumentState::approved,
                                                        .goods = g1,
                                                        .batch = u"B1"_qs});
        QCOMPARE(shown(found, u"title number state"_qs),
                 QStringList{source.title + u'|' + number + u"|1"_qs});
        if (source.amount.isEmpty())
            QCOMPARE(found[0].decimal(u"amount"), 12.34_d);
        QCOMPARE(shown(documentLines(shop.session, source.code, number), u"g_sn sl t_ph"_qs),
                 QStringList{u"G1|3|B1"_qs});
        QCOMPARE(findDocuments(shop.session, {.codes = {source.code}, .goods = u"G9"_qs}).size(),
                 size_t(source.headerHasGoods ? 1 : 0));
    }
    QCOMPARE(findDocuments(shop.session, {}).size(), documentSources().size());
}

void TestLookUps::tradeIsNet() {
    Shop shop;
    trade(shop);
    shop.save(u"CJ"_qs, day(9), {line(g1, 1, 3_d)}); // a draft does not count
    const QString fields = u"rq title yfje sfje yhje wfje"_qs;
    QCOMPARE(
        shown(findTrade(shop.session, Trade::purchase, {}), fields),
        QStringList({u"2026-03-08|采购退货单|-4|-4|0|0"_qs, u"2026-03-06|采购进货单|16|16|0|0"_qs,
                     u"2026-03-05|采购进货单|33|0|0|33"_qs, u"2026-03-01|采购进货单|6|6|0|0"_qs}));
    QCOMPARE(shown(findTrade(shop.session, Trade::sale, {.goods = g1}), fields),
             QStringList{u"2026-03-07|商品销售单|15|15|0|0"_qs});
}

void TestLookUps::othersWarehousesAreLeftOut() {
    Shop shop;
    trade(shop);
    shop.set(u"cs_cs002"_qs, 1);
    const Session clerk = shop.clerk(u"kcgl"_qs, {6});
    QVERIFY(batchesOf(clerk, g1).empty());
    shop.db.execute(u"update jxc_ckxx set ck_asn='100001,100002,' where ck_sn='100002'"_qs);
    QCOMPARE(shown(stockList(clerk, {}), u"g_sn kc_sl"_qs), QStringList({u"G1|3"_qs, u"G2|0"_qs}));
    QCOMPARE(batchesOf(clerk, g1).size(), size_t(1));
    QCOMPARE(movements(clerk, {g1, {}, day(1), day(31)}).size(), size_t(3));
    QCOMPARE(shown(findDocuments(clerk, {}), u"rq"_qs), QStringList({day(8), day(6)}));
    QCOMPARE(findTrade(clerk, Trade::purchase, {}).size(), size_t(2));
}

void TestLookUps::whyThisCost() {
    Shop shop;
    shop.addGoods(g1);
    shop.post(u"CJ"_qs, day(1), {line(g1, 8, 9_d)});
    shop.post(u"XS"_qs, day(2), {line(g1, 8, 12_d)});
    const QString first = shop.post(u"CJ"_qs, day(3), {line(g1, 2, 3_d)});
    const QString second = shop.post(u"CJ"_qs, day(5), {line(g1, 10, 3.3_d)});
    const QString sale = shop.post(u"XS"_qs, day(6), {line(g1, 3, 5_d)});
    const CostStory story = costStory(shop.session, {g1, mainStore}, {day(31)});
    QCOMPARE(story.cost, 3.25_d);
    // The stock was sold out on the second: what came before does not matter any more.
    QCOMPARE(
        sentences(story).mid(2),
        QStringList(
            {u"3月3日 采购进货单"_qs + first +
                 u" 进 2 瓶，单价 3.00：此前无库存，成本取本次单价，库存 2 瓶、成本 3.00"_qs,
             u"3月5日 采购进货单"_qs + second +
                 u" 进 10 瓶，单价 3.30：此前 2 瓶按 3.00，39.00 ÷ 12 瓶，库存 12 瓶、成本 3.25"_qs,
             u"3月6日 商品销售单"_qs + sale + u" 出 3 瓶：不改变成本，库存 9 瓶、成本 3.25"_qs,
             u"3月5日起成本为 3.25。"_qs}));
    QCOMPARE(story.opening, u"3月2日这一笔之后库存为零，从这里讲起。"_qs);
    QVERIFY(std::ranges::none_of(story.rows, &CostStoryRow::differs));
    // Up to one row of a day, and to a day before.
    const CostStory upToFirst =
        costStory(shop.session, {g1, mainStore}, {day(3), story.rows[1].id});
    QCOMPARE(upToFirst.cost, 3_d);
    QCOMPARE(costStory(shop.session, {g1, mainStore}, {day(1)}).opening,
             u"此前没有出入库记录。"_qs);
    // Only the latest of many rows.
    const CostStory cut = costStory(shop.session, {g1, mainStore}, {day(31)}, 2);
    QCOMPARE(cut.opening, u"3月5日之前库存 2 瓶，成本 3.00。"_qs);
    QCOMPARE(cut.rows.size(), size_t(2));
    // Whoever spoils a figure is found out.
    shop.db.execute(u"update jxc_goodslist set gl_pjjj=9 where gl_djh=?"_qs, {second});
    const CostStory spoilt = costStory(shop.session, {g1, mainStore}, {day(5)});
    QVERIFY(spoilt.rows.back().differs);
    QVERIFY(spoilt.rows.back().sentence.endsWith(u"（账面为 9.00，请做库存核对）"_qs));
}

void TestLookUps::whyOddCosts() {
    Shop shop;
    shop.addGoods(g1);
    QCOMPARE(sentences(costStory(shop.session, {g1, mainStore}, {day(31)})),
             QStringList({u"此前没有出入库记录。"_qs, u"成本按商品档案为 0.00。"_qs}));
    // Sold before it came: 4 short at 5.00, then 10 at 5.00.
    shop.db.execute(u"update jxc_goods set g_pjjj=5 where g_sn='G1'"_qs);
    shop.post(u"XS"_qs, day(1), {line(g1, 4, 8_d)});
    shop.post(u"CJ"_qs, day(2), {line(g1, 10, 5_d)});
    shop.post(u"CT"_qs, day(3), {line(g1, 6, 7_d)});
    const CostStory story = costStory(shop.session, {g1, mainStore}, {day(31)});
    QVERIFY(std::ranges::none_of(story.rows, &CostStoryRow::differs));
    const QStringList told = sentences(story);
    QVERIFY(told.at(1).endsWith(u"出 4 瓶：不改变成本，库存 -4 瓶、成本 5.00"_qs));
    QVERIFY(
        told.at(2).endsWith(u"此前 -4 瓶按 5.00，与本次 10 瓶方向相反，按绝对值平均，70.00 ÷ 14 "
                            u"瓶，库存 6 瓶、成本 5.00"_qs));
    QVERIFY(told.at(3).endsWith(u"库存归零，成本取本次单价，库存为零、成本 7.00"_qs));
    QCOMPARE(told.last(), u"3月3日起成本为 7.00。"_qs);
}

void TestLookUps::expiryByDayAndMonth() {
    const QDate today(2026, 3, 30);
    QCOMPARE(daysLeft(u"2026-03-31"_qs, today), std::optional<qint64>(1));
    QCOMPARE(daysLeft(u"2026-02"_qs, today), std::optional<qint64>(-30));
    for (const char16_t *never : {u"", u"0000-00", u"长期"})
        QCOMPARE(daysLeft(QString::fromUtf16(never), today), std::optional<qint64>());
}

QTEST_GUILESS_MAIN(TestLookUps)
#include "test_look_ups.moc"
