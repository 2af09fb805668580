// 库存核对: finds what was spoilt and puts it right.
#include "services/stock_check.h"
#include "services/verify.h"
#include "support/shop.h"

#include <QTest>

using namespace jxc;
using namespace jxc::test;

namespace {

QStringList shown(const Rows &rows) {
    QStringList lines;
    for (const Row &row : rows)
        lines << QStringList{row.text(u"g_sn"), row.text(u"g_name"), row.text(u"ck_sn"),
                             row.text(u"item"), row.text(u"t_ph"),   row.text(u"found"),
                             row.text(u"due"),  row.text(u"diff")}
                     .join(u'|');
    return lines;
}

} // namespace

class TestStockCheck : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void findsAndRepairs_data() { addEngineRows(); }
    void findsAndRepairs();
};

void TestStockCheck::findsAndRepairs() {
    Shop shop;
    shop.addGoods(u"G1"_qs);
    shop.addGoods(u"G2"_qs);
    for (const QString &goods : {u"G1"_qs, u"G2"_qs}) {
        DraftLine line{.goods = goods};
        line.quantity = 10;
        line.price = 2;
        line.batch.number = u"B1"_qs;
        shop.post(u"CJ"_qs, day(1), {line});
    }
    QVERIFY(checkStock(shop.session).empty());
    const QStringList right =
        shop.texts(u"select kc_sl,kc_zsl,kc_cbj from jxc_kcsp order by id"_qs);

    shop.db.execute(u"update jxc_kcsp set kc_sl=9,kc_zsl=12 where g_sn='G1'"_qs);
    shop.db.execute(u"update jxc_goods set g_kc=9 where g_sn='G1'"_qs);
    shop.db.execute(u"update jxc_tkc set t_sl=7.5 where g_sn='G2'"_qs);
    shop.db.execute(u"insert into jxc_tkc (g_sn,ck_sn,t_ph,t_yxq,t_scrq,t_sl) values "
                    "('G9','100002','X','','',3)"_qs);
    QCOMPARE(shown(checkStock(shop.session)),
             QStringList({u"G1|农药G1|100001|帐面库存||12|10|2"_qs,
                          u"G1|农药G1|100001|实际库存||9|10|-1"_qs,
                          u"G2|农药G2|100001|批号库存|B1|7.5|10|-2.5"_qs,
                          u"G9||100002|批号库存|X|3|0|3"_qs, u"G1|农药G1||库存合计||9|10|-1"_qs}));

    int repaired = 0;
    shop.user.answers = {false};
    const QStringList before = shop.everything();
    QCOMPARE(repairStock(shop.session, shop.user, &repaired).kind, Outcome::Kind::declined);
    QCOMPARE(shop.everything(), before);
    Shop::demand(repairStock(shop.session, shop.user, &repaired));
    QCOMPARE(repaired, 5);
    QCOMPARE(shop.user.takeAsked().last(), u"您的操作将按已审核的单据重新计算库存，确认吗？"_qs);
    QCOMPARE(shop.lastLog(), u"库存核对，修复5项"_qs);
    QVERIFY(checkStock(shop.session).empty());
    QVERIFY(verifyBooks(shop.db).empty());
    QCOMPARE(shop.texts(u"select kc_sl,kc_zsl,kc_cbj from jxc_kcsp order by id"_qs), right);

    // A row that was lost comes back, one that stands twice counts once.
    shop.db.execute(u"delete from jxc_kcsp where g_sn='G1'"_qs);
    shop.db.execute(u"insert into jxc_kcsp (g_sn,ck_sn,kc_sl,kc_zsl,kc_cbj,kc_xssl) values "
                    "('G2','100001',1,1,2,0)"_qs);
    Shop::demand(repairStock(shop.session, shop.user, &repaired));
    QCOMPARE(repaired, 4);
    QCOMPARE(shop.stock(u"G1"_qs), u"10 10 0 2"_qs);
    QVERIFY(checkStock(shop.session).empty());
}

QTEST_GUILESS_MAIN(TestStockCheck)
#include "test_stock_check.moc"
