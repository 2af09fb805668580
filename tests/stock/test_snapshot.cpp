// The monthly stock value.
#include "stock/posting.h"
#include "stock/snapshot.h"
#include "support/shop.h"

#include <QTest>

using namespace jxc;
using namespace jxc::test;

namespace {

DraftLine lineOf(const QString &goods, Decimal quantity, Decimal price) {
    DraftLine line{.goods = goods};
    line.quantity = quantity;
    line.price = price;
    return line;
}

QString value(Shop &shop, const QString &month, const QString &warehouse) {
    return shop.figures(u"select js_sl,js_zje from jxc_kcjs where js_rq=? and ck_sn=?"_qs,
                        {month, warehouse});
}

} // namespace

class TestSnapshot : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void followsEveryPosting_data() { addEngineRows(); }
    void followsEveryPosting();
    void oneWarehouseAlone_data() { addEngineRows(); }
    void oneWarehouseAlone();
};

/// 10 at 5.00 and 3 at 2.50 are 13, worth 57.50.
void TestSnapshot::followsEveryPosting() {
    Shop shop;
    shop.addGoods(u"G1"_qs);
    shop.addGoods(u"G2"_qs);
    const QString receipt =
        shop.post(u"CJ"_qs, day(5), {lineOf(u"G1"_qs, 10, 5), lineOf(u"G2"_qs, 3, 2.5_d)});
    QCOMPARE(value(shop, u"2026-03"_qs, u"100001"_qs), u"13 57.5"_qs);
    QCOMPARE(value(shop, u"2026-03"_qs, u"100002"_qs), u"0 0"_qs);
    // What is to come is not there yet.
    shop.post(u"CJ"_qs, day(6), {lineOf(u"G1"_qs, 5, 5)}, laterOnAccount);
    QCOMPARE(value(shop, u"2026-03"_qs, u"100001"_qs), u"13 57.5"_qs);
    // A document of February refreshes February, with what is there now.
    const QString sale = shop.post(u"XS"_qs, u"2026-02-27"_qs, {lineOf(u"G1"_qs, 4, 8)});
    QCOMPARE(value(shop, u"2026-02"_qs, u"100001"_qs), u"9 37.5"_qs);
    QCOMPARE(value(shop, u"2026-03"_qs, u"100001"_qs), u"13 57.5"_qs);
    shop.cancel(sale);
    QCOMPARE(value(shop, u"2026-02"_qs, u"100001"_qs), u"13 57.5"_qs);
    shop.cancel(receipt);
    QCOMPARE(value(shop, u"2026-03"_qs, u"100001"_qs), u"0 0"_qs);
    // One row a month and warehouse, one of the discount goods a warehouse.
    QCOMPARE(shop.texts(u"select js_rq,ck_sn from jxc_kcjs where js_rq in ('2026-02','2026-03') "
                        "order by js_rq,ck_sn"_qs),
             (QStringList{u"2026-02|100001"_qs, u"2026-02|100002"_qs, u"2026-03|100001"_qs,
                          u"2026-03|100002"_qs}));
    QCOMPARE(shop.texts(u"select ck_sn from jxc_kcsp where g_sn='00000000' order by ck_sn"_qs),
             (QStringList{u"100001"_qs, u"100002"_qs}));
}

void TestSnapshot::oneWarehouseAlone() {
    Shop shop;
    shop.addGoods(u"G1"_qs);
    shop.post(u"CJ"_qs, day(5), {lineOf(u"G1"_qs, 10, 5)});
    shop.post(u"CJ"_qs, day(5), {lineOf(u"G1"_qs, 4, 6)},
              [](Draft &d) { d.warehouse = u"100002"_qs; });
    shop.db.execute(u"update jxc_kcjs set js_sl=1,js_zje=1"_qs);
    updateKcjsCk(shop.db, u"100002"_qs, u"2026-03"_qs);
    QCOMPARE(value(shop, u"2026-03"_qs, u"100001"_qs), u"1 1"_qs);
    QCOMPARE(value(shop, u"2026-03"_qs, u"100002"_qs), u"4 24"_qs);
    shop.db.execute(u"delete from jxc_kcsp where ck_sn='100002'"_qs);
    updateKcjsCk(shop.db, u"100002"_qs, u"2026-03"_qs);
    QCOMPARE(value(shop, u"2026-03"_qs, u"100002"_qs), u"0 0"_qs);
}

QTEST_GUILESS_MAIN(TestSnapshot)
#include "test_snapshot.moc"
