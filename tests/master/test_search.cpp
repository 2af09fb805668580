// Finding goods and partners while one types.
#include "master/finders.h"
#include "master/goods_bulk.h"
#include "master/goods_record.h"
#include "master/goods_search.h"
#include "support/shop.h"

#include <QTest>

using namespace jxc;
using namespace jxc::test;

namespace {

QStringList codes(const std::vector<GoodsHit> &hits) {
    QStringList list;
    for (const GoodsHit &hit : hits)
        list << hit.code;
    return list;
}

QStringList names(const std::vector<Found> &found) {
    QStringList list;
    for (const Found &one : found)
        list << one.name;
    return list;
}

const QString here = u"100001"_qs;

struct SearchShop : Shop {
    GoodsFinder finder{db};

    SearchShop() {
        add(u"10000001"_qs, u"草甘膦41%水剂"_qs, u"CGL41SJ"_qs, {{u"g_xspl"_qs, 5}});
        add(u"10000002"_qs, u"草铵膦"_qs, u"CAL"_qs, {{u"g_xspl"_qs, 9}, {u"g_cgpl"_qs, 1}});
        add(u"10000003"_qs, u"长沙绿宝"_qs, u"CSLB"_qs,
            {{u"g_sccs"_qs, u"湖南Bayer公司"},
             {u"g_tym"_qs, u"吡虫啉"},
             {u"color_name"_qs, u"PD20080001"},
             {u"g_cgpl"_qs, 7}});
        add(u"10000004"_qs, u"草甘膦停用"_qs, u"CGLTY"_qs, {{u"g_jy"_qs, 1}});
    }
    void add(const QString &code, const QString &name, const QString &mnemonic,
             const Assignments &more) {
        addGoods(code, more);
        db.execute(u"update jxc_goods set g_name=?,g_jm=? where g_sn=?"_qs, {name, mnemonic, code});
    }
    QStringList find(const QString &typed, GoodsUse use = GoodsUse::sale) {
        return codes(finder.find(typed, here, use));
    }
};

} // namespace

class TestSearch : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void whatFinds_data() { addEngineRows(); }
    void whatFinds();
    void theUsualOnesLead_data() { addEngineRows(); }
    void theUsualOnesLead();
    void barcodes_data() { addEngineRows(); }
    void barcodes();
    void atMostFifty_data() { addEngineRows(); }
    void atMostFifty();
    void followsChanges_data() { addEngineRows(); }
    void followsChanges();
    void partners_data() { addEngineRows(); }
    void partners();
    void others_data() { addEngineRows(); }
    void others();
};

void TestSearch::whatFinds() {
    SearchShop shop;
    shop.db.insertRow(
        u"jxc_kcsp"_qs,
        {{u"g_sn"_qs, u"10000003"}, {u"ck_sn"_qs, here}, {u"kc_sl"_qs, 4_d}, {u"kc_zsl"_qs, 3_d}});
    const QString third = u"10000003"_qs;
    for (const QString &typed : {u"10000003"_qs, u"cslb"_qs, u"cS"_qs, u"绿宝"_qs, u"虫啉"_qs,
                                 u"bayer"_qs, u"pd2008"_qs, u" CSL "_qs})
        QCOMPARE(shop.find(typed), QStringList{third});
    QCOMPARE(shop.find(u"zslb"_qs), QStringList{third}); // another reading of 长
    QCOMPARE(shop.find(u"slb"_qs), QStringList());       // the code is sought from its beginning
    QCOMPARE(shop.find(u"41%"_qs), QStringList{u"10000001"_qs});
    QCOMPARE(shop.find(u"停用"_qs), QStringList());
    QCOMPARE(shop.find(u"优惠"_qs), QStringList());
    QCOMPARE(shop.find(u"  "_qs), QStringList());
    const auto hits = shop.finder.find(u"CSLB"_qs, here, GoodsUse::sale);
    QVERIFY(hits[0].exact);
    QCOMPARE(hits[0].stock, 4_d);
    QCOMPARE(hits[0].bookStock, 3_d);
    QCOMPARE(shop.finder.find(u"CSLB"_qs, u"100002"_qs, GoodsUse::sale)[0].stock, 0_d);
}

void TestSearch::theUsualOnesLead() {
    SearchShop shop;
    QCOMPARE(shop.find(u"c"_qs), (QStringList{u"10000002"_qs, u"10000001"_qs, u"10000003"_qs}));
    QCOMPARE(shop.find(u"c"_qs, GoodsUse::purchase),
             (QStringList{u"10000003"_qs, u"10000002"_qs, u"10000001"_qs}));
    shop.add(u"10000009"_qs, u"草"_qs, u"C"_qs, {});
    QCOMPARE(shop.find(u"c"_qs).first(), u"10000009"_qs);
    QCOMPARE(shop.find(u"草"_qs).first(), u"10000009"_qs);
}

void TestSearch::barcodes() {
    SearchShop shop;
    shop.addUnit(u"10000001"_qs, u"箱"_qs, 20_d, {{u"g_sptm"_qs, u"6931"}});
    shop.db.insertRow(u"jxc_goodstm"_qs, {{u"g_sn"_qs, u"10000002"}, {u"g_sptm"_qs, u"6932"}});
    const auto unit = shop.finder.findBarcode(u"6931"_qs, here);
    QCOMPARE(codes(unit), QStringList{u"10000001"_qs});
    QCOMPARE(unit[0].barcodeUnit, u"箱"_qs);
    QCOMPARE(unit[0].barcodeFactor, 20_d);
    QCOMPARE(unit[0].barcode, u"6931"_qs);
    const auto further = shop.finder.find(u"6932"_qs, here, GoodsUse::sale);
    QCOMPARE(codes(further), QStringList{u"10000002"_qs});
    QCOMPARE(further[0].barcodeUnit, u"瓶"_qs);
    QCOMPARE(further[0].barcodeFactor, 1_d);
    QCOMPARE(codes(shop.finder.findBarcode(u"69010000003"_qs, here)), QStringList{u"10000003"_qs});
    QCOMPARE(shop.find(u"693"_qs), QStringList()); // only a whole barcode
    QCOMPARE(codes(shop.finder.findBarcode(u"69010000004"_qs, here)), QStringList()); // disabled
}

void TestSearch::atMostFifty() {
    SearchShop shop;
    for (int i = 0; i < 60; ++i)
        shop.addGoods(QString::number(20'000'000 + i));
    QCOMPARE(shop.find(u"20"_qs).size(), 50);
    QCOMPARE(shop.find(u"20000059"_qs), QStringList{u"20000059"_qs});
}

void TestSearch::followsChanges() {
    SearchShop shop;
    QCOMPARE(shop.find(u"百草枯"_qs), QStringList());
    // Another workstation keeps the goods.
    const auto other = shop.place.connect();
    Session there(*other, shop.clock);
    there.currentOperatorName = u"admin"_qs;
    GoodsRecord goods = newGoods(there);
    goods.goods.set(u"g_name"_qs, u"百草枯，水剂"_qs);
    goods.goods.set(u"dw_name"_qs, u"盒"_qs);
    Shop::demand(saveGoods(there, shop.user, goods));
    const QString code = goods.goods.text(u"g_sn");
    QCOMPARE(shop.find(u"百草枯"_qs), QStringList{code});
    goods.goods.set(u"g_name"_qs, u"敌草快"_qs);
    Shop::demand(saveGoods(there, shop.user, goods));
    QCOMPARE(shop.find(u"百草枯"_qs), QStringList());
    QCOMPARE(shop.find(u"dck"_qs), QStringList{code});
    goods.goods.set(u"g_jy"_qs, u"1"_qs);
    Shop::demand(saveGoods(there, shop.user, goods));
    QCOMPARE(shop.find(u"dck"_qs), QStringList());
    BulkChange change;
    change.disabled = false;
    Shop::demand(bulkEditGoods(there, shop.user, {goods.goods.id}, change));
    QCOMPARE(shop.find(u"dck"_qs), QStringList{code});
    Shop::demand(deleteRecord(there, shop.user, masterKind(u"jxc_goods"), goods.goods.id));
    QCOMPARE(shop.find(u"dck"_qs), QStringList());
    shop.db.execute(u"delete from jxc_log"_qs);
    QCOMPARE(shop.find(u"cslb"_qs), QStringList{u"10000003"_qs});
}

void TestSearch::partners() {
    Shop shop;
    shop.db.execute(u"update jxc_khxx set kh_pl=100"_qs);
    shop.addCustomer(u"100002"_qs, u"王家庄合作社"_qs, u"1000"_qs);
    shop.addCustomer(u"100003"_qs, u"李家庄"_qs, u"1000"_qs);
    shop.addCustomer(u"100004"_qs, u"重庆庄"_qs, u"1000"_qs);
    shop.db.execute(u"update jxc_khxx set kh_jm='WJZHZS',kh_tele='13800001111',kh_address='东乡',"
                    "kh_lxr='老王',kh_pl=3,kh_lwje=12.5 where kh_sn='100002'"_qs);
    shop.db.execute(u"update jxc_khxx set kh_pl=9 where kh_sn='100003'"_qs);
    const auto find = [&](const QString &typed) {
        return names(findNamed(shop.session, Sought::customer, typed));
    };
    for (const QString &typed :
         {u"100002"_qs, u"wjz"_qs, u"王家"_qs, u"0000111"_qs, u"东乡"_qs, u"老王"_qs})
        QCOMPARE(find(typed), QStringList{u"王家庄合作社"_qs});
    QCOMPARE(find(u"zqz"_qs), QStringList{u"重庆庄"_qs}); // no code of its own, another reading
    QCOMPARE(find(u"家庄"_qs), (QStringList{u"李家庄"_qs, u"王家庄合作社"_qs}));
    QCOMPARE(find({}).first(), u"普通客户"_qs);
    QCOMPARE(findNamed(shop.session, Sought::customer, u"wjz"_qs)[0].balance, 12.5_d);
    shop.db.execute(u"update jxc_khxx set kh_forbid=1 where kh_sn='100002'"_qs);
    QCOMPARE(find(u"wjz"_qs), QStringList());
    QCOMPARE(names(findNamed(shop.session, Sought::supplier, u"ptghs"_qs)),
             QStringList{u"普通供货商"_qs});

    Session clerk = shop.clerk(u"xsgl"_qs, {1});
    shop.db.execute(u"update jxc_ckxx set ck_asn='100002,' where ck_sn='100002'"_qs);
    shop.db.execute(u"update jxc_khxx set ck_sn='100001' where kh_sn='100003'"_qs);
    shop.db.execute(u"update jxc_khxx set ck_sn='-1' where kh_sn='100004'"_qs);
    shop.set(u"cs_cs002"_qs, 1);
    QCOMPARE(names(findNamed(clerk, Sought::customer, u"庄"_qs)), QStringList{u"重庆庄"_qs});
    QCOMPARE(names(findNamed(clerk, Sought::warehouse, {})), QStringList{u"东库"_qs});
}

void TestSearch::others() {
    Shop shop;
    QCOMPARE(names(findNamed(shop.session, Sought::warehouse, u"zck"_qs)),
             QStringList{u"主仓库"_qs});
    QVERIFY(findNamed(shop.session, Sought::warehouse, {})[0].isDefault);
    QCOMPARE(names(findNamed(shop.session, Sought::account, u"gh"_qs)),
             QStringList{u"工行帐号"_qs});
    shop.db.insertRow(u"jxc_user"_qs, {{u"u_sn"_qs, u"100002"},
                                       {u"u_name"_qs, u"小赵"},
                                       {u"u_jm"_qs, u"XZ"},
                                       {u"u_xs"_qs, 1},
                                       {u"u_cg"_qs, 0},
                                       {u"u_jy"_qs, 0},
                                       {u"u_xspl"_qs, 5}});
    const auto find = [&](EmployeeDuty duty) {
        return names(findNamed(shop.session, Sought::employee, {}, duty));
    };
    QCOMPARE(find(EmployeeDuty::sale), (QStringList{u"小赵"_qs, u"默认员工"_qs}));
    QCOMPARE(find(EmployeeDuty::purchase), QStringList{u"默认员工"_qs});
    QCOMPARE(names(findNamed(shop.session, Sought::employee, u"xz"_qs)), QStringList{u"小赵"_qs});
}

QTEST_APPLESS_MAIN(TestSearch)
#include "test_search.moc"
