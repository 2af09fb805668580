// Saving the system settings: checks, log, globals, and the re-costing that other decimals need.
#include "db/schema.h"
#include "master/system_parameters.h"
#include "services/save_parameters.h"
#include "support/shop.h"

#include <QTest>

using namespace jxc;
using namespace jxc::test;

namespace {

using Changes = QHash<QString, QString>;

DraftLine line(Decimal quantity, Decimal price) {
    DraftLine line;
    line.goods = u"10000001"_qs;
    line.quantity = quantity;
    line.price = price;
    return line;
}

struct SettingsShop : Shop {
    QString field;

    Outcome keep(const Changes &changed, const RewalkProgress &progress = {}) {
        return saveParameters(session, user, changed, progress, &field);
    }
    /// Stock, cost and value after every row of the journal.
    QStringList journal() {
        QStringList rows;
        for (const Row &row :
             db.rows(u"select gl_kc,gl_pjjj,gl_kczje from jxc_goodslist order by id"_qs))
            rows << row.decimal(u"gl_kc").toText() + u' ' + row.decimal(u"gl_pjjj").toText() +
                        u' ' + row.decimal(u"gl_kczje").toText();
        return rows;
    }
};

} // namespace

class TestSaveParameters : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void everySettingIsDescribed();
    void savesWhatChanged_data() { addEngineRows(); }
    void savesWhatChanged();
    void refusals_data() { addEngineRows(); }
    void refusals();
    void openLinesKeepTheSwitch_data() { addEngineRows(); }
    void openLinesKeepTheSwitch();
    void decimalsRecost_data() { addEngineRows(); }
    void decimalsRecost();
    void costOfAnOverdrawnOpeningStays_data() { addEngineRows(); }
    void costOfAnOverdrawnOpeningStays();
    void stoppedOrDeclinedNothingChanges_data() { addEngineRows(); }
    void stoppedOrDeclinedNothingChanges();
};

void TestSaveParameters::everySettingIsDescribed() {
    QCOMPARE(parameterPages(),
             (QStringList{u"公司"_qs, u"小数"_qs, u"采购"_qs, u"销售"_qs, u"库存"_qs,
                          u"商品条码"_qs, u"单据打印"_qs, u"权限"_qs, u"POS"_qs, u"短信支付"_qs}));
    QStringList columns;
    for (const SystemParameter &parameter : systemParameters()) {
        QVERIFY2(!parameter.field.caption.isEmpty(), qPrintable(parameter.field.column));
        QVERIFY2(!columns.contains(parameter.field.column), qPrintable(parameter.field.column));
        columns << parameter.field.column;
    }
    // Every column with a label is there, but for the layout's date.
    for (const Column &column : table(u"jxc_xtcs").columns)
        QCOMPARE(columns.contains(column.name),
                 !column.caption.isEmpty() && column.name != u"cs_employdate"_qs);
}

void TestSaveParameters::savesWhatChanged() {
    SettingsShop shop;
    Changes all = loadSystemParameters(shop.session);
    QCOMPARE(all.value(u"cs_cs005"_qs), u"90"_qs);
    all[u"cs_cs005"_qs] = u"120"_qs;
    all[u"cs_tax"_qs] = u"9"_qs;
    all[u"c_name"_qs] = u" 利民(农资)店"_qs;
    const QString before = shop.db.scalar(u"select cs_employdate from jxc_xtcs"_qs);
    Shop::demand(shop.keep(all));
    QCOMPARE(shop.lastLog(), u"修改系统设置：公司名称，默认税率，近效期预警天数"_qs);
    QCOMPARE(shop.session.company.name, u"利民（农资）店"_qs);
    QCOMPARE(shop.session.parameters.nearExpiryDays, 120);
    QCOMPARE(shop.session.parameters.taxRate, 9_d);
    QCOMPARE(shop.db.scalar(u"select cs_employdate from jxc_xtcs"_qs), before);

    Changes many;
    for (const SystemParameter &parameter : systemParameters())
        if (parameter.field.kind == ValueKind::flag && parameter.field.column != u"cs_zjews"_qs)
            many[parameter.field.column] =
                all.value(parameter.field.column) == u"1" ? u"0"_qs : u"1"_qs;
    Shop::demand(shop.keep(many));
    QCOMPARE(shop.lastLog().size(), 200);
    const QStringList unchanged = shop.everything();
    Shop::demand(shop.keep(many));
    QCOMPARE(shop.everything(), unchanged);
}

void TestSaveParameters::refusals() {
    SettingsShop shop;
    const QString places = u"小数位数必须在0到6之间！"_qs;
    const std::vector<std::tuple<QString, QString, QString>> cases{
        {u"cs_xsws"_qs, u"7"_qs, places},
        {u"cs_posfkws"_qs, u"-1"_qs, places},
        {u"cs_jews"_qs, u"两"_qs, u"金额小数位数格式不正确！"_qs},
        {u"cs_tax"_qs, u"-3"_qs, u"默认税率不能小于零！"_qs},
        {u"cs_xsjgts"_qs, u"3"_qs, u"售价过低提示不存在！"_qs},
        {u"c_name"_qs, u""_qs, u"公司名称必须填写！"_qs},
        {u"c_jc"_qs, u" "_qs, u"简称必须填写！"_qs}};
    for (const auto &[column, text, refusal] : cases) {
        const QStringList before = shop.everything();
        QCOMPARE(shop.keep({{column, text}, {u"cs_cs005"_qs, u"5"_qs}}).text, refusal);
        QCOMPARE(shop.field, column);
        QCOMPARE(shop.everything(), before);
    }
}

void TestSaveParameters::openLinesKeepTheSwitch() {
    SettingsShop shop;
    shop.addGoods(u"10000001"_qs);
    shop.set(u"cs_sprk"_qs, 1);
    shop.set(u"cs_spck"_qs, 1);
    const Changes off{{u"cs_sprk"_qs, u"0"_qs}};
    const QString receipt = shop.post(u"CJ"_qs, day(2), {line(0.8_d, 5_d)}, laterOnAccount);
    QCOMPARE(shop.keep(off).text, u"还有未入库的采购商品，不能关闭商品入库！"_qs);
    // 0.1 and 0.7 are not 0.8 to the embedded engine.
    shop.db.execute(u"update jxc_jhsp set jh_rksl=0.1,jh_qxsl=0.7"_qs);
    Shop::demand(shop.keep(off));

    shop.post(u"XS"_qs, day(3), {line(1_d, 5_d)}, laterOnAccount);
    QCOMPARE(shop.keep({{u"cs_spck"_qs, u"0"_qs}}).text,
             u"还有未出库的销售商品，不能关闭商品出库！"_qs);
    QCOMPARE(shop.field, u"cs_spck"_qs);
}

void TestSaveParameters::decimalsRecost() {
    SettingsShop shop;
    shop.addGoods(u"10000001"_qs);
    shop.post(u"CJ"_qs, day(2), {line(3_d, 1_d)});
    shop.post(u"CJ"_qs, day(3), {line(3_d, 1.01_d)});
    shop.post(u"XS"_qs, day(4), {line(2_d, 5_d)});
    shop.post(u"CJ"_qs, day(5), {line(3_d, 1.02_d)});
    QCOMPARE(shop.journal(),
             (QStringList{u"3 1 3"_qs, u"6 1.01 6.06"_qs, u"4 1.01 4.04"_qs, u"7 1.01 7.07"_qs}));
    QList<std::pair<int, int>> told;
    const auto progress = [&](int done, int total) {
        told << std::pair(done, total);
        return true;
    };
    Shop::demand(shop.keep({{u"cs_xsws"_qs, u"4"_qs}, {u"cs_jews"_qs, u"3"_qs}}, progress));
    QCOMPARE(shop.user.takeAsked(),
             QStringList{u"您的操作将修改小数位数，并重新计算所有商品的成本，确认吗？"_qs});
    // The first row stands as it is, the rows after it do not.
    QCOMPARE(shop.journal(), (QStringList{u"3 1 3"_qs, u"6 1.005 6.03"_qs, u"4 1.005 4.02"_qs,
                                          u"7 1.0114 7.08"_qs}));
    QCOMPARE(shop.figures(u"select k.kc_cbj,g.g_pjjj from jxc_kcsp k,jxc_goods g where "
                          "g.g_sn=k.g_sn and k.g_sn='10000001'"_qs),
             u"1.0114 1.0114"_qs);
    QCOMPARE(told.first(), (std::pair{0, 1}));
    QCOMPARE(told.last(), (std::pair{1, 1}));
    QCOMPARE(shop.session.parameters.priceDecimals, 4);
    QCOMPARE(shop.lastLog(), u"修改系统设置：单价小数位数，金额小数位数"_qs);

    // Amounts in the price's decimals again, and back to where it was.
    Shop::demand(shop.keep({{u"cs_zjews"_qs, u"0"_qs}}));
    QCOMPARE(shop.user.takeAsked().size(), 1);
    Shop::demand(shop.keep({{u"cs_xsws"_qs, u"2"_qs}}));
    QCOMPARE(shop.journal().last(), u"7 1.01 7.07"_qs);
    QCOMPARE(shop.figures(u"select js_zje from jxc_kcjs where js_rq='2026-03' and "
                          "ck_sn='100001'"_qs),
             u"7.07"_qs);
    // The counter's decimals round nothing that is booked.
    shop.user.takeAsked();
    Shop::demand(shop.keep({{u"cs_posfkws"_qs, u"1"_qs}}));
    QCOMPARE(shop.user.takeAsked(), QStringList());
}

void TestSaveParameters::costOfAnOverdrawnOpeningStays() {
    SettingsShop shop;
    shop.addGoods(u"10000001"_qs, {{u"g_pjjj"_qs, 4_d}});
    shop.post(u"XS"_qs, day(2), {line(2_d, 5_d)});
    shop.db.execute(u"update jxc_goods set g_pjjj=9"_qs);
    Shop::demand(shop.keep({{u"cs_xsws"_qs, u"3"_qs}}));
    QCOMPARE(shop.journal(), QStringList{u"-2 4 -8"_qs});
}

void TestSaveParameters::stoppedOrDeclinedNothingChanges() {
    SettingsShop shop;
    shop.addGoods(u"10000001"_qs);
    shop.post(u"CJ"_qs, day(2), {line(3_d, 1_d)});
    shop.post(u"CJ"_qs, day(3), {line(3_d, 1.01_d)});
    const QStringList before = shop.everything();
    const Changes more{{u"cs_xsws"_qs, u"4"_qs}};
    QCOMPARE(shop.keep(more, [](int, int) { return false; }).text,
             u"操作已停止，没有修改任何数据！"_qs);
    QCOMPARE(shop.everything(), before);
    shop.user.answers = {false};
    QCOMPARE(int(shop.keep(more).kind), int(Outcome::Kind::declined));
    QCOMPARE(shop.everything(), before);
    QCOMPARE(shop.session.parameters.priceDecimals, 2);
}

QTEST_APPLESS_MAIN(TestSaveParameters)
#include "test_save_parameters.moc"
