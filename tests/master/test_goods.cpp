// Goods with their units, barcodes and prices, their codes and their classes.
#include "master/barcodes.h"
#include "master/goods_bulk.h"
#include "master/goods_class.h"
#include "master/goods_details.h"
#include "master/goods_record.h"
#include "support/shop.h"

#include <QFile>
#include <QTest>

using namespace jxc;
using namespace jxc::test;

namespace {

const MasterKind &goodsKind() {
    return masterKind(u"jxc_goods");
}

struct GoodsShop : Shop {
    GoodsField field;

    GoodsRecord draft(const QString &name) {
        GoodsRecord record = newGoods(session);
        record.goods.set(u"g_name"_qs, name);
        record.goods.set(u"dw_name"_qs, u"盒"_qs);
        return record;
    }
    Outcome keep(GoodsRecord &record) { return saveGoods(session, user, record, &field); }
    GoodsRecord kept(GoodsRecord record) {
        demand(keep(record));
        return record;
    }
    GoodsRecord add(const QString &name) { return kept(draft(name)); }
    QString code(const GoodsRecord &record) { return record.goods.text(u"g_sn"); }

    static Record row(QStringView table, const QHash<QString, QString> &texts) {
        for (const GoodsGrid &grid : goodsGrids())
            if (grid.table == table) {
                Record record = newGoodsRow(grid);
                for (auto it = texts.begin(); it != texts.end(); ++it)
                    record.set(it.key(), it.value());
                return record;
            }
        qFatal("no such grid");
    }
    static Record unit(const QString &name, const QString &factor, const QString &barcode = {}) {
        return row(u"jxc_goodsdw",
                   {{u"dw_name"_qs, name}, {u"g_zhxs"_qs, factor}, {u"g_sptm"_qs, barcode}});
    }
    static Record barcode(const QString &code) {
        return row(u"jxc_goodstm", {{u"g_sptm"_qs, code}});
    }
    static Record price(const QString &name, const QString &figure) {
        return row(u"jxc_goodsprice", {{u"gp_name"_qs, name}, {u"gp_price"_qs, figure}});
    }
    /// What the three grids hold.
    QStringList grids(const QString &goods) {
        return texts(u"select dw_name from jxc_goodsdw where g_sn=? union all select g_sptm from "
                     "jxc_goodstm where g_sn=? union all select gp_name from jxc_goodsprice where "
                     "g_sn=?"_qs,
                     {goods, goods, goods});
    }
    qint64 addClass(qint64 parent, const QString &name) {
        qint64 id = 0;
        demand(addGoodsClass(session, user, parent, name, &id));
        return id;
    }
    GoodsClass goodsClass(qint64 id) {
        for (const GoodsClass &c : loadGoodsClasses(session))
            if (c.id == id)
                return c;
        return {};
    }
};

} // namespace

class TestGoods : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void checkDigit();
    void isKeptWithItsRows_data() { addEngineRows(); }
    void isKeptWithItsRows();
    void refusalsNameTheirCell_data() { addEngineRows(); }
    void refusalsNameTheirCell();
    void codes_data() { addEngineRows(); }
    void codes();
    void barcodes_data() { addEngineRows(); }
    void barcodes();
    void ownBarcodes_data() { addEngineRows(); }
    void ownBarcodes();
    void rulesOfTheRow_data() { addEngineRows(); }
    void rulesOfTheRow();
    void copies_data() { addEngineRows(); }
    void copies();
    void deletes_data() { addEngineRows(); }
    void deletes();
    void bulkEdit_data() { addEngineRows(); }
    void bulkEdit();
    void classes_data() { addEngineRows(); }
    void classes();
    void movesClasses_data() { addEngineRows(); }
    void movesClasses();
    void details_data() { addEngineRows(); }
    void details();
    void pictures();
};

void TestGoods::checkDigit() {
    QCOMPARE(ean13CheckDigit(u"400638133393"), QChar(u'1'));
    QCOMPARE(ean13CheckDigit(u"690123456789"), QChar(u'2'));
    QCOMPARE(ean13CheckDigit(u"000000000000"), QChar(u'0'));
}

void TestGoods::isKeptWithItsRows() {
    GoodsShop shop;
    GoodsRecord record = shop.draft(u"草甘膦(41%)水剂"_qs);
    record.goods.set(u"g_sj"_qs, u"12.345"_qs);
    record.goods.set(u"gg_name"_qs, u"500ml"_qs);
    record.units = {shop.unit(u"袋"_qs, u"20"_qs, u"7001"_qs), newGoodsRow(goodsGrids()[1])};
    record.barcodes = {shop.barcode(u"7002"_qs), shop.barcode(u"7003"_qs)};
    record.prices = {shop.price(u"团购"_qs, u"9.5"_qs)};
    QVERIFY(record.isChanged());
    record = shop.kept(record);
    QVERIFY(!record.isChanged());
    QCOMPARE(shop.code(record), u"02000001"_qs);
    QCOMPARE(shop.texts(u"select g_name,g_jm,gg_jm,gc_sn,ghs_sn from jxc_goods where g_sn=?"_qs,
                        {shop.code(record)}),
             QStringList{u"草甘膦(41％)水剂|CGL41SJ|500ML|1000|100001"_qs});
    QCOMPARE(shop.figures(u"select g_sj,g_dzll,g_kc from jxc_goods where g_sn=?"_qs,
                          {shop.code(record)}),
             u"12.35 1 0"_qs);
    QCOMPARE(shop.grids(shop.code(record)),
             (QStringList{u"袋"_qs, u"7002"_qs, u"7003"_qs, u"团购"_qs}));
    QCOMPARE(shop.lastLog(), u"增加商品：02000001，草甘膦(41％)水剂"_qs);

    record.units[0].set(u"g_zhxs"_qs, u"25"_qs);
    record.barcodes.erase(record.barcodes.begin());
    QVERIFY(record.isChanged());
    record = shop.kept(record);
    QCOMPARE(shop.figures(u"select g_zhxs from jxc_goodsdw"_qs), u"25"_qs);
    QCOMPARE(shop.grids(shop.code(record)), (QStringList{u"袋"_qs, u"7003"_qs, u"团购"_qs}));

    // Another workstation changed the unit meanwhile.
    GoodsRecord stale = *loadGoods(shop.session, record.goods.id);
    QCOMPARE(stale.goods.text(u"gc_name"), u"默认类别"_qs);
    QCOMPARE(stale.goods.text(u"ghs_name"), u"普通供货商"_qs);
    record.units[0].set(u"g_zhxs"_qs, u"30"_qs);
    record = shop.kept(record);
    stale.prices.clear();
    QCOMPARE(shop.keep(stale).text, u"该记录已被其他操作员修改，请刷新后重试！"_qs);
}

void TestGoods::refusalsNameTheirCell() {
    GoodsShop shop;
    struct Case {
        std::function<void(GoodsRecord &)> change;
        QString refusal, table;
        int row;
        QString column;
    };
    const QString goods = u"jxc_goods"_qs;
    const QString units = u"jxc_goodsdw"_qs;
    const std::vector<Case> cases{
        {[](GoodsRecord &r) { r.goods.set(u"g_name"_qs, {}); }, u"商品名称必须填写！"_qs, goods, -1,
         u"g_name"_qs},
        {[](GoodsRecord &r) { r.goods.set(u"dw_name"_qs, u"斗"_qs); }, u"单位不存在！"_qs, goods,
         -1, u"dw_name"_qs},
        {[](GoodsRecord &r) { r.goods.set(u"g_lsj"_qs, u"8元"_qs); }, u"零售价格式不正确！"_qs,
         goods, -1, u"g_lsj"_qs},
        {[](GoodsRecord &r) { r.goods.set(u"g_zdkc"_qs, u"1.5"_qs); }, u"最低库存格式不正确！"_qs,
         goods, -1, u"g_zdkc"_qs},
        {[](GoodsRecord &r) { r.goods.set(u"g_iscf"_qs, u"1"_qs); }, u"处方药必须填写批准文号！"_qs,
         goods, -1, u"color_name"_qs},
        {[](GoodsRecord &r) { r.units = {GoodsShop::unit(u"盒"_qs, u"20"_qs)}; },
         u"单位不能重复！"_qs, units, 0, u"dw_name"_qs},
        {[](GoodsRecord &r) {
             r.units = {GoodsShop::unit(u"袋"_qs, u"20"_qs), GoodsShop::unit(u"袋"_qs, u"5"_qs)};
         },
         u"单位不能重复！"_qs, units, 1, u"dw_name"_qs},
        {[](GoodsRecord &r) { r.units = {GoodsShop::unit(u"袋"_qs, u"0"_qs)}; },
         u"转换系数必须大于零！"_qs, units, 0, u"g_zhxs"_qs},
        {[](GoodsRecord &r) {
             r.prices = {GoodsShop::price(u"团购"_qs, u"1"_qs), GoodsShop::price({}, u"2"_qs)};
         },
         u"价格名称必须填写！"_qs, u"jxc_goodsprice"_qs, 1, u"gp_name"_qs},
    };
    for (const Case &c : cases) {
        GoodsRecord record = shop.draft(u"草甘膦"_qs);
        c.change(record);
        const QStringList before = shop.everything();
        QCOMPARE(shop.keep(record).text, c.refusal);
        QCOMPARE(shop.field.table, c.table);
        QCOMPARE(shop.field.row, c.row);
        QCOMPARE(shop.field.column, c.column);
        QCOMPARE(shop.everything(), before);
        QVERIFY(record.goods.isNew());
    }
}

void TestGoods::codes() {
    GoodsShop shop;
    // What only looks alike does not count.
    for (const char16_t *code : {u"0200000A", u"02A", u"020000005", u"02000008", u"99999"})
        shop.addGoods(QString::fromUtf16(code));
    QCOMPARE(shop.code(shop.add(u"甲"_qs)), u"02000009"_qs);
    const qint64 id = shop.addClass(1, u"种子"_qs);
    shop.db.execute(u"update jxc_goodsclass set gc_cid=28 where id=?"_qs, {id});
    GoodsRecord seed = shop.draft(u"乙"_qs);
    seed.goods.set(u"gc_cid"_qs, u"28"_qs);
    QCOMPARE(proposedGoodsCode(shop.session, seed), u"28000001"_qs);
    QCOMPARE(shop.code(shop.kept(seed)), u"28000001"_qs);

    shop.set(u"cs_spbh"_qs, 0);
    GoodsRecord typed = newGoods(shop.session);
    QCOMPARE(shop.code(typed), u"28000002"_qs);
    typed = shop.draft(u"丙"_qs);
    typed.goods.set(u"g_sn"_qs, u"KSF-1.5"_qs);
    typed = shop.kept(typed);
    QCOMPARE(shop.code(typed), u"KSF-1.5"_qs);
    GoodsRecord again = shop.draft(u"丁"_qs);
    again.goods.set(u"g_sn"_qs, u"KSF-1.5"_qs);
    QCOMPARE(shop.keep(again).text, u"商品编号不能重复！"_qs);
    // A code that stands on documents stays.
    typed.goods.set(u"g_sn"_qs, u"ANDERS"_qs);
    typed.goods.set(u"g_name"_qs, u"丙二"_qs);
    Shop::demand(shop.keep(typed));
    QCOMPARE(loadGoods(shop.session, typed.goods.id)->goods.text(u"g_sn"), u"KSF-1.5"_qs);
}

void TestGoods::barcodes() {
    GoodsShop shop;
    GoodsRecord first = shop.draft(u"甲"_qs);
    first.goods.set(u"g_sptm"_qs, u"6901"_qs);
    first.units = {shop.unit(u"袋"_qs, u"10"_qs, u"6902"_qs)};
    first.barcodes = {shop.barcode(u"6903"_qs)};
    first = shop.kept(first);
    Shop::demand(shop.keep(first)); // its own do not count

    const QString repeated = u"商品条码不能重复！"_qs;
    for (const QString &taken : {u"6901"_qs, u"6902"_qs, u"6903"_qs}) {
        GoodsRecord own = shop.draft(u"乙"_qs);
        own.goods.set(u"g_sptm"_qs, taken);
        QCOMPARE(shop.keep(own).text, repeated);
        GoodsRecord unit = shop.draft(u"乙"_qs);
        unit.units = {shop.unit(u"袋"_qs, u"10"_qs, taken)};
        QCOMPARE(shop.keep(unit).text, repeated);
        QCOMPARE(shop.field.table, u"jxc_goodsdw"_qs);
        GoodsRecord further = shop.draft(u"乙"_qs);
        further.barcodes = {shop.barcode(u"1"_qs), shop.barcode(taken)};
        QCOMPARE(shop.keep(further).text, repeated);
        QCOMPARE(shop.field.row, 1);
    }
    GoodsRecord within = shop.draft(u"乙"_qs);
    within.goods.set(u"g_sptm"_qs, u"7"_qs);
    within.units = {shop.unit(u"袋"_qs, u"10"_qs, u"7"_qs)};
    QCOMPARE(shop.keep(within).text, repeated);

    shop.set(u"cs_barunique"_qs, 0);
    Shop::demand(shop.keep(within));
    GoodsRecord further = shop.draft(u"丙"_qs);
    further.barcodes = {shop.barcode(u"6903"_qs)};
    QCOMPARE(shop.keep(further).text,
             repeated); // the further barcodes stay unique among themselves
}

void TestGoods::ownBarcodes() {
    GoodsShop shop;
    shop.set(u"cs_tmzdsc"_qs, 1);
    GoodsRecord first = shop.add(u"甲"_qs);
    QCOMPARE(first.goods.text(u"g_sptm"), u"2000000000015"_qs);
    shop.addGoods(u"77"_qs);
    shop.db.execute(u"update jxc_goods set g_sptm='2000000000022' where g_sn='77'"_qs);
    QCOMPARE(shop.add(u"乙"_qs).goods.text(u"g_sptm"), u"2000000000039"_qs);
    first.goods.set(u"g_sptm"_qs, {});
    QCOMPARE(shop.kept(first).goods.text(u"g_sptm"), QString()); // only a new one gets it
    // Older rows note the whole code.
    shop.db.insertRow(u"jxc_txm"_qs, {{u"tm_code"_qs, u"2000000001005"}});
    QCOMPARE(shop.add(u"丙"_qs).goods.text(u"g_sptm"), u"2000000001012"_qs);
}

void TestGoods::rulesOfTheRow() {
    GoodsShop shop;
    GoodsRecord record = shop.draft(u"甲"_qs);
    record.goods.set(u"g_iscf"_qs, u"1"_qs);
    record.goods.set(u"color_name"_qs, u"蓝色"_qs);
    record = shop.kept(record);
    QCOMPARE(record.goods.text(u"color_jm"), u"MKE B"_qs);
    record.goods.set(u"dw_name"_qs, u"袋"_qs);
    record = shop.kept(record);
    QVERIFY(!baseUnitIsFixed(shop.session, record));
    shop.db.insertRow(u"jxc_goodslist"_qs, {{u"g_sn"_qs, shop.code(record)}});
    QVERIFY(baseUnitIsFixed(shop.session, record));
    record.goods.set(u"dw_name"_qs, u"盒"_qs);
    QCOMPARE(shop.keep(record).text, u"该商品已有业务发生，不能修改单位！"_qs);
    QCOMPARE(shop.field.column, u"dw_name"_qs);
}

void TestGoods::copies() {
    GoodsShop shop;
    GoodsRecord first = shop.draft(u"甲"_qs);
    first.goods.set(u"g_sptm"_qs, u"6901"_qs);
    first.goods.set(u"g_lsj"_qs, u"8"_qs);
    first.units = {shop.unit(u"袋"_qs, u"10"_qs, u"6902"_qs)};
    first.barcodes = {shop.barcode(u"6903"_qs)};
    first = shop.kept(first);
    shop.db.execute(u"update jxc_goods set g_kc=5,g_pjjj=3"_qs);
    GoodsRecord copy = copiedGoods(shop.session, *loadGoods(shop.session, first.goods.id));
    QVERIFY(copy.isChanged());
    copy = shop.kept(copy);
    QCOMPARE(shop.code(copy), u"02000002"_qs);
    QCOMPARE(shop.figures(u"select g_lsj,g_kc,g_pjjj from jxc_goods where g_sn='02000002'"_qs),
             u"8 0 0"_qs);
    QCOMPARE(shop.texts(u"select dw_name,g_sptm from jxc_goodsdw where g_sn='02000002'"_qs),
             QStringList{u"袋|"_qs});
    QVERIFY(copy.barcodes.empty());
}

void TestGoods::deletes() {
    GoodsShop shop;
    GoodsRecord record = shop.draft(u"甲"_qs);
    record.units = {shop.unit(u"袋"_qs, u"10"_qs)};
    record.barcodes = {shop.barcode(u"6903"_qs)};
    record.prices = {shop.price(u"团购"_qs, u"9"_qs)};
    record = shop.kept(record);
    const QString code = shop.code(record);
    const Assignments stock{{u"g_sn"_qs, code}, {u"ck_sn"_qs, u"100001"}, {u"kc_sl"_qs, 0}};
    shop.db.insertRow(u"jxc_kcsp"_qs, stock);
    shop.db.execute(u"update jxc_kcsp set kc_zsl=1 where g_sn=?"_qs, {code});
    const auto remove = [&] {
        return deleteRecord(shop.session, shop.user, goodsKind(), record.goods.id);
    };
    QCOMPARE(remove().text, u"该商品已被使用，不能删除！\r\n\r\n可以将其禁用！"_qs);
    shop.db.execute(u"update jxc_kcsp set kc_zsl=0 where g_sn=?"_qs, {code});
    shop.db.insertRow(u"jxc_khbj"_qs, {{u"g_sn"_qs, code}});
    Shop::demand(remove());
    QCOMPARE(shop.grids(code), QStringList());
    QCOMPARE(shop.figures(u"select count(*) from jxc_kcsp where g_sn=?"_qs, {code}), u"0"_qs);

    const auto discount = loadRecordByCode(shop.session, goodsKind(), u"00000000"_qs);
    QCOMPARE(deleteRecord(shop.session, shop.user, goodsKind(), discount->id).text,
             u"系统默认数据，不能删除！"_qs);
}

void TestGoods::bulkEdit() {
    GoodsShop shop;
    const GoodsRecord first = shop.add(u"甲"_qs);
    GoodsRecord second = shop.draft(u"乙"_qs);
    second.goods.set(u"color_name"_qs, u"红色"_qs);
    second = shop.kept(second);
    const std::vector<qint64> both{first.goods.id, second.goods.id};
    const qint64 seeds = shop.addClass(1, u"种子"_qs);
    BulkChange change;
    change.classNumber = shop.goodsClass(seeds).number;
    change.disabled = true;
    Shop::demand(bulkEditGoods(shop.session, shop.user, both, change));
    QCOMPARE(shop.texts(u"select gc_cid,gc_sn,g_jy from jxc_goods where g_sn<>'00000000'"_qs),
             (QStringList{u"3|1001|1"_qs, u"3|1001|1"_qs}));
    QCOMPARE(shop.lastLog(), u"批量修改商品，共2种"_qs);
    BulkChange restrict;
    restrict.restricted = true;
    const QStringList before = shop.everything();
    QCOMPARE(bulkEditGoods(shop.session, shop.user, both, restrict).text,
             u"商品“甲”：\r\n\r\n处方药必须填写批准文号！"_qs);
    QCOMPARE(shop.everything(), before);
    Shop::demand(bulkEditGoods(shop.session, shop.user, {second.goods.id}, restrict));
    QCOMPARE(bulkEditGoods(shop.session, shop.user, {}, restrict).text, u"请先选择一条记录！"_qs);
}

void TestGoods::classes() {
    GoodsShop shop;
    const qint64 seeds = shop.addClass(1, u"种子"_qs);
    const qint64 corn = shop.addClass(shop.goodsClass(seeds).key, u"玉米"_qs);
    QCOMPARE(
        shop.texts(u"select gc_sn,gc_name,gc_jm,gc_key,gc_cid,gc_pid from jxc_goodsclass order "
                   "by id"_qs)
            .mid(1),
        (QStringList{u"1000|默认类别|MRLB|2|2|1"_qs, u"1001|种子|ZZ|3|3|1"_qs,
                     u"10011000|玉米|YM|4|4|3"_qs}));
    QCOMPARE(shop.lastLog(), u"增加商品类别：10011000，玉米"_qs);
    QCOMPARE(addGoodsClass(shop.session, shop.user, 1, u"种子"_qs).text, u"商品类别不能重复！"_qs);
    QCOMPARE(addGoodsClass(shop.session, shop.user, 1, u" "_qs).text, u"商品类别必须填写！"_qs);
    shop.addClass(shop.goodsClass(corn).key, u"种子"_qs); // elsewhere the name is free
    Shop::demand(renameGoodsClass(shop.session, shop.user, corn, u"玉米种"_qs));
    QCOMPARE(shop.goodsClass(corn).mnemonic, u"YMZ"_qs);

    const auto remove = [&](qint64 id) {
        return deleteGoodsClass(shop.session, shop.user, id).text;
    };
    const QString isDefault = u"系统默认数据，不能删除！"_qs;
    QCOMPARE(remove(loadGoodsClasses(shop.session).front().id), isDefault);
    QCOMPARE(remove(loadGoodsClasses(shop.session)[1].id), isDefault);
    QCOMPARE(remove(seeds), u"该类别下还有子类别，不能删除！"_qs);
    const qint64 rice = shop.addClass(1, u"水稻"_qs);
    GoodsRecord goods = shop.draft(u"甲"_qs);
    goods.goods.set(u"gc_cid"_qs, QString::number(shop.goodsClass(rice).number));
    goods = shop.kept(goods);
    QCOMPARE(remove(rice), u"该类别下还有商品，不能删除！"_qs);
    Shop::demand(deleteRecord(shop.session, shop.user, goodsKind(), goods.goods.id));
    QCOMPARE(remove(rice), QString());
}

void TestGoods::movesClasses() {
    GoodsShop shop;
    const qint64 seeds = shop.addClass(1, u"种子"_qs);
    const qint64 corn = shop.addClass(shop.goodsClass(seeds).key, u"玉米"_qs);
    const qint64 sweet = shop.addClass(shop.goodsClass(corn).key, u"甜玉米"_qs);
    const qint64 field = shop.addClass(1, u"大田"_qs);
    const qint64 grain = shop.addClass(shop.goodsClass(field).key, u"粮食"_qs);
    GoodsRecord goods = shop.draft(u"甲"_qs);
    goods.goods.set(u"gc_cid"_qs, QString::number(shop.goodsClass(sweet).number));
    goods = shop.kept(goods);
    const auto move = [&](qint64 id, qint64 parent) {
        return moveGoodsClass(shop.session, shop.user, id, shop.goodsClass(parent).key).text;
    };
    QCOMPARE(move(corn, grain), QString());
    QCOMPARE(shop.goodsClass(corn).code, u"100210001000"_qs);
    QCOMPARE(shop.goodsClass(sweet).code, u"1002100010001000"_qs);
    QCOMPARE(shop.texts(u"select gc_sn from jxc_goods where g_sn=?"_qs, {shop.code(goods)}),
             QStringList{u"1002100010001000"_qs});
    QCOMPARE(move(field, corn), u"不能移动到自己的子类别！"_qs);
    QCOMPARE(move(field, seeds), u"商品类别最多4级！"_qs);
    QCOMPARE(shop.goodsClass(field).code, u"1002"_qs);
}

void TestGoods::details() {
    GoodsShop shop;
    shop.addGoods(u"10000001"_qs);
    DraftLine line;
    line.goods = u"10000001"_qs;
    line.quantity = 3;
    line.price = 5;
    line.batch = {u"B2"_qs, u"2027-01-01"_qs, u"2025-01-01"_qs};
    DraftLine plain = line;
    plain.batch = {};
    DraftLine early = line;
    early.batch = {u"B1"_qs, u"2026-12-01"_qs, u"2025-01-01"_qs};
    shop.post(u"CJ"_qs, day(2), {plain, line, early});
    QStringList batches;
    for (const Row &row : goodsBatches(shop.db, u"10000001"_qs))
        batches << row.text(u"t_ph") + u'|' + row.text(u"ck_name");
    QCOMPARE(batches, (QStringList{u"B1|主仓库"_qs, u"B2|主仓库"_qs, u"|主仓库"_qs}));
    const Rows stock = goodsStock(shop.db, u"10000001"_qs);
    QCOMPARE(stock.size(), size_t{1});
    QCOMPARE(stock[0].decimal(u"kc_zsl"), 9_d);
}

void TestGoods::pictures() {
    QTemporaryDir home;
    const QString file = home.filePath(u"a.JPG"_qs);
    QFile(file).open(QIODevice::WriteOnly);
    QCOMPARE(goodsPicture(home.path(), u"0/1"_qs), QString());
    QCOMPARE(storeGoodsPicture(home.path(), u"0/1"_qs, home.filePath(u"a.bmp"_qs)),
             u"图片格式不正确！"_qs);
    QCOMPARE(storeGoodsPicture(home.path(), u"0/1"_qs, file), QString());
    QVERIFY(goodsPicture(home.path(), u"0/1"_qs).endsWith(u"data/picture/0_1.jpg"_qs));
    QVERIFY(!storeGoodsPicture(home.path(), u"0/1"_qs, home.filePath(u"gone.png"_qs)).isEmpty());
    QVERIFY(!goodsPicture(home.path(), u"0/1"_qs).isEmpty()); // the old one stays
    removeGoodsPicture(home.path(), u"0/1"_qs);
    QCOMPARE(goodsPicture(home.path(), u"0/1"_qs), QString());
}

QTEST_APPLESS_MAIN(TestGoods)
#include "test_goods.moc"
