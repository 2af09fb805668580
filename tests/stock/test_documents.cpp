// The lists of documents and their lines.
#include "stock/documents.h"
#include "support/shop.h"

#include <QTest>

using namespace jxc;
using namespace jxc::test;

namespace {

const QString g1 = QStringLiteral("G1");
const QString g2 = QStringLiteral("G2");

DraftLine lineOf(const QString &goods, Decimal quantity, Decimal price) {
    DraftLine line{.goods = goods};
    line.quantity = quantity;
    line.price = price;
    return line;
}

/// The numbers that the filter shows, in its order.
QStringList numbers(Shop &shop, const DocumentFilter &filter) {
    QStringList all;
    for (const DocumentRow &row : listDocuments(shop.session, filter))
        all << row.number;
    return all;
}

} // namespace

class TestDocuments : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void salesByEveryFilter_data() { addEngineRows(); }
    void salesByEveryFilter();
    void restOfEveryKind_data() { addEngineRows(); }
    void restOfEveryKind();
    void linesOfEveryKind_data() { addEngineRows(); }
    void linesOfEveryKind();
};

void TestDocuments::salesByEveryFilter() {
    Shop shop;
    for (const QString &goods : {g1, g2})
        shop.addGoods(goods);
    shop.addCustomer(u"100002"_qs, u"张三_A"_qs, u"1000"_qs);
    const QString a = shop.save(u"XS"_qs, day(1), {lineOf(g1, 1, 9)});
    const QString b = shop.save(u"XS"_qs, day(9), {lineOf(g2, 1, 9)}, [](Draft &d) {
        d.partner = u"100002"_qs;
        d.note = u"送货"_qs;
    });
    const QString c = shop.save(u"XS"_qs, day(9), {lineOf(g1, 1, 9), lineOf(g1, 1, 8)},
                                [](Draft &d) { d.warehouse = u"100002"_qs; });
    const DocumentFilter all{.code = u"XS"_qs};
    const auto with = [&](const std::function<void(DocumentFilter &)> &narrow) {
        DocumentFilter f = all;
        narrow(f);
        return numbers(shop, f);
    };
    QCOMPARE(numbers(shop, all), QStringList({c, b, a}));
    QCOMPARE(with([](auto &f) { f.fromDate = day(2), f.toDate = day(9); }), QStringList({c, b}));
    QCOMPARE(with([](auto &f) { f.toDate = day(8); }), QStringList(a));
    QCOMPARE(with([](auto &f) { f.warehouse = u"100002"_qs; }), QStringList(c));
    QCOMPARE(with([](auto &f) { f.partner = u"100002"_qs; }), QStringList(b));
    QCOMPARE(with([](auto &f) { f.goods = g1; }), QStringList({c, a}));
    QCOMPARE(with([](auto &f) { f.operatorName = u"小王"_qs; }), QStringList());
    QCOMPARE(with([](auto &f) { f.search = u"三_a"_qs; }), QStringList(b));
    QCOMPARE(with([](auto &f) { f.search = u"送"_qs; }), QStringList(b));
    QCOMPARE(with([&](auto &f) { f.search = a.last(5); }).contains(a), true);
    QCOMPARE(with([](auto &f) { f.search = u"%"_qs; }), QStringList());
    shop.approve(a);
    QCOMPARE(numbers(shop, all), QStringList({c, b}));
    QCOMPARE(with([](auto &f) { f.approved = true; }), QStringList(a));
    const DocumentRow row = listDocuments(shop.session, all).at(1);
    QCOMPARE(row.partnerName, u"张三_A"_qs);
    QCOMPARE(row.warehouseName, shop.db.scalar(u"select ck_name from jxc_ckxx where "
                                               "ck_sn='100001'"_qs));
    QCOMPARE(row.note, u"送货"_qs);
}

void TestDocuments::restOfEveryKind() {
    Shop shop;
    shop.addGoods(g1);
    struct Case {
        QString code;
        bool forgiven;
        QStringList sums; ///< due, paid, off, rest
    };
    for (const Case &c : {Case{u"CJ"_qs, false, {u"20"_qs, u"5"_qs, u"0"_qs, u"12"_qs}},
                          Case{u"XS"_qs, true, {u"20"_qs, u"5"_qs, u"15"_qs, u"-3"_qs}},
                          Case{u"CT"_qs, false, {u"20"_qs, u"5"_qs, u"0"_qs, u"12"_qs}},
                          Case{u"XT"_qs, false, {u"20"_qs, u"5"_qs, u"0"_qs, u"12"_qs}}}) {
        shop.save(c.code, day(3), {lineOf(g1, 2, 10)}, [&](Draft &d) {
            d.paid = 5;
            d.restForgiven = c.forgiven;
        });
        // Three were settled later.
        for (const QString &later : {u"jxc_jhd set j_hkje"_qs, u"jxc_lsxsd set ls_hkje"_qs,
                                     u"jxc_thd set th_hkje"_qs, u"jxc_xsthd set th_hkje"_qs})
            shop.db.execute(u"update %1=3"_qs.arg(later));
        const DocumentRow row = listDocuments(shop.session, {.code = c.code}).at(0);
        QCOMPARE(
            QStringList({row.due.toText(), row.paid.toText(), row.off.toText(), row.rest.toText()}),
            c.sums);
    }
    shop.post(u"CJ"_qs, day(1), {lineOf(g1, 6, 10)}, laterOnAccount);
    shop.follow(shop.db.scalar(u"select max(j_sn) from jxc_jhd where j_status=1"_qs));
    QCOMPARE(listDocuments(shop.session, {.code = u"RK"_qs}).at(0).quantity, Decimal(6));
}

void TestDocuments::linesOfEveryKind() {
    Shop shop;
    shop.addGoods(g1, {{u"g_tym"_qs, u"吡虫啉"}});
    const QString receipt = shop.post(u"CJ"_qs, day(1), {lineOf(g1, 6, 10)}, laterOnAccount);
    const QString in = shop.follow(receipt);
    shop.set(u"cs_xsyh"_qs, 1);
    const QString sale =
        shop.save(u"XS"_qs, day(2), {lineOf(g1, 2, 15)}, [](Draft &d) { d.newTotal = 28; });
    auto lines = documentLines(shop.session, sale);
    QCOMPARE(lines.size(), size_t{2});
    QCOMPARE(lines[0].commonName, u"吡虫啉"_qs);
    QCOMPARE(lines[0].profit, Decimal(10));
    QCOMPARE(lines[0].expiry, QString());
    QCOMPARE(lines[1].total, Decimal(-2));
    lines = documentLines(shop.session, in);
    QCOMPARE(lines.at(0).sourceNumber, receipt);
    QCOMPARE(lines.at(0).baseQuantity, Decimal(6));
    shop.approve(in);
    QCOMPARE(documentLines(shop.session, receipt).at(0).done, Decimal(6));
    QVERIFY(documentLines(shop.session, u"??"_qs).empty());
}

QTEST_GUILESS_MAIN(TestDocuments)
#include "test_documents.moc"
