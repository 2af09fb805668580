// Master data as the descriptions say: every kind through the same path, on both engines.
#include "core/operators.h"
#include "db/schema.h"
#include "master/master_kind.h"
#include "master/record.h"
#include "master/record_list.h"
#include "support/shop.h"

#include <QTest>

using namespace jxc;
using namespace jxc::test;

namespace {

const QString changed = u"该记录已被其他操作员修改，请刷新后重试！"_qs;

/// A shop that saves records and tells by which field a refusal came.
struct MasterShop : Shop {
    QString field;

    Outcome keep(const MasterKind &kind, Record &record) {
        return saveRecord(session, user, kind, record, &field);
    }
    /// Adds a row with these texts; every other required field takes its proposal.
    Record add(const MasterKind &kind, const QHash<QString, QString> &texts) {
        Record record = newRecord(session, kind);
        for (auto it = texts.begin(); it != texts.end(); ++it)
            record.set(it.key(), it.value());
        demand(keep(kind, record));
        return record;
    }
    Record named(const MasterKind &kind, const QString &name) {
        return add(kind, {{kind.nameColumn, name}});
    }
    Outcome remove(const MasterKind &kind, const Record &record) {
        return deleteRecord(session, user, kind, record.id);
    }
    QStringList codes(const MasterKind &kind, const ListRequest &request = {},
                      const Session *as = nullptr) {
        QStringList codes;
        for (const Row &row : listRecords(as == nullptr ? session : *as, kind, request))
            codes << row.text(kind.codeColumn);
        return codes;
    }
};

DraftLine oneOf(const QString &goods) {
    DraftLine line;
    line.goods = goods;
    line.quantity = 1;
    line.price = 5;
    return line;
}

const MasterKind &suppliers() {
    return masterKind(u"jxc_ghsxx");
}
const MasterKind &customers() {
    return masterKind(u"jxc_khxx");
}

} // namespace

class TestRecords : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void everyKindIsDescribedWhole();
    void everyKindIsKept_data() { addEngineRows(); }
    void everyKindIsKept();
    void firstFailureNamesItsField_data() { addEngineRows(); }
    void firstFailureNamesItsField();
    void textsAreStoredAsTheRulesSay_data() { addEngineRows(); }
    void textsAreStoredAsTheRulesSay();
    void nothingInANewRowIsNull_data() { addEngineRows(); }
    void nothingInANewRowIsNull();
    void picksBringTheirNames_data() { addEngineRows(); }
    void picksBringTheirNames();
    void namesAreRenamedWhereTheyAreHeld_data() { addEngineRows(); }
    void namesAreRenamedWhereTheyAreHeld();
    void onlyOneRowIsTheDefault_data() { addEngineRows(); }
    void onlyOneRowIsTheDefault();
    void anothersChangeIsNotOverwritten_data() { addEngineRows(); }
    void anothersChangeIsNotOverwritten();
    void deleting_data() { addEngineRows(); }
    void deleting();
    void usedRowsStay_data() { addEngineRows(); }
    void usedRowsStay();
    void lists_data() { addEngineRows(); }
    void lists();
    void warehouseRestriction_data() { addEngineRows(); }
    void warehouseRestriction();
};

void TestRecords::everyKindIsDescribedWhole() {
    for (const MasterKind &kind : masterKinds()) {
        QVERIFY2(!kind.noun.isEmpty() && kind.form.startsWith(u"TF_"_qs), qPrintable(kind.table));
        for (const MasterField &field : kind.fields) {
            const QString place = kind.table + u'.' + field.column;
            QVERIFY2(!field.caption.isEmpty(), qPrintable(place));
            if (!field.pick.table.isEmpty())
                for (const QString &name : {field.pick.valueColumn, field.pick.nameColumn})
                    QVERIFY2(column(field.pick.table, name) != nullptr, qPrintable(place));
        }
        for (const MasterColumn &listed : kind.columns)
            QVERIFY2(!listed.caption.isEmpty(), qPrintable(kind.table + u'.' + listed.column));
        for (const QString &name : kind.satellites + kind.notUsedBy)
            QVERIFY2(column(name, kind.codeColumn) != nullptr, qPrintable(name));
    }
}

/// Adds, changes and deletes a row of every kind.
void TestRecords::everyKindIsKept() {
    MasterShop shop;
    for (const MasterKind &kind : masterKinds()) {
        QHash<QString, QString> texts{{kind.nameColumn, u"试验甲"_qs}};
        if (kind.table == u"jxc_goods")
            texts.insert(u"dw_name"_qs, u"盒"_qs);
        if (kind.table == u"jxc_hyfl") // behind the levels that are there
            texts.insert({{u"hl_jfxx"_qs, u"1000000"_qs}, {u"hl_jfsx"_qs, u"2000000"_qs}});
        if (kind.table == u"jxc_hyczzs")
            texts.insert({{u"hs_czje"_qs, u"500"_qs}, {u"hs_zsje"_qs, u"50"_qs}});
        Record record = shop.add(kind, texts);
        const QString logged =
            kind.noun + u'：' +
            (kind.codeColumn.isEmpty() ? QString() : record.text(kind.codeColumn) + u'，');
        QCOMPARE(shop.lastLog(), u"增加"_qs + logged + u"试验甲"_qs);
        if (!kind.mnemonicColumn.isEmpty())
            QCOMPARE(record.text(kind.mnemonicColumn), u"SYJ"_qs);

        record.set(kind.nameColumn, u"试验乙"_qs);
        Shop::demand(shop.keep(kind, record));
        QCOMPARE(shop.lastLog(), u"修改"_qs + logged + u"试验乙"_qs);
        const auto stored = loadRecord(shop.session, kind, record.id);
        QVERIFY(stored.has_value());
        QCOMPARE(stored->text(kind.nameColumn), u"试验乙"_qs);
        if (!kind.mnemonicColumn.isEmpty())
            QCOMPARE(stored->text(kind.mnemonicColumn), u"SYY"_qs);

        Shop::demand(shop.remove(kind, record));
        QCOMPARE(shop.user.takeAsked(),
                 QStringList{u"您的操作将删除%1：试验乙，确认吗？"_qs.arg(kind.noun)});
        QCOMPARE(shop.lastLog(), u"删除"_qs + logged + u"试验乙"_qs);
        QVERIFY(!loadRecord(shop.session, kind, record.id));
    }
}

void TestRecords::firstFailureNamesItsField() {
    MasterShop shop;
    shop.named(customers(), u"王家庄"_qs);
    struct Case {
        const MasterKind &kind;
        QString column, text, refusal;
    };
    const MasterKind &staff = masterKind(u"jxc_user");
    const MasterKind &colors = masterKind(u"jxc_color");
    const std::vector<Case> cases{
        {customers(), u"kh_name"_qs, u"  "_qs, u"客户名称必须填写！"_qs},
        {customers(), u"kh_name"_qs, u"王家庄"_qs, u"客户名称不能重复！"_qs},
        {customers(), u"kt_sn"_qs, u""_qs, u"客户类型必须填写！"_qs},
        {customers(), u"kt_sn"_qs, u"9"_qs, u"客户类型不存在！"_qs},
        {customers(), u"z_name"_qs, u"月球"_qs, u"所属地区不存在！"_qs},
        {customers(), u"kh_usn"_qs, u"100001,7,"_qs, u"业务员不存在！"_qs},
        {staff, u"u_tc"_qs, u"一成"_qs, u"提成比例格式不正确！"_qs},
        {staff, u"u_tc"_qs, u"-1"_qs, u"提成比例不能小于零！"_qs},
        {staff, u"u_tcfs"_qs, u"2"_qs, u"提成方式不存在！"_qs},
        {colors, u"color_date"_qs, u"2026-2-30"_qs, u"有效期至格式不正确！"_qs},
    };
    for (const Case &c : cases) {
        Record record = newRecord(shop.session, c.kind);
        record.set(c.kind.nameColumn, u"李家庄"_qs);
        record.set(c.column, c.text);
        const QStringList before = shop.everything();
        const Outcome outcome = shop.keep(c.kind, record);
        QCOMPARE(outcome.text, c.refusal);
        QCOMPARE(shop.field, c.column);
        QCOMPARE(shop.everything(), before);
    }
    Record both = newRecord(shop.session, customers());
    both.set(u"kt_sn"_qs, u"9"_qs);
    QCOMPARE(shop.keep(customers(), both).text, u"客户名称必须填写！"_qs);
}

void TestRecords::textsAreStoredAsTheRulesSay() {
    MasterShop shop;
    const Record customer = shop.add(
        customers(), {{u"kh_name"_qs, u" 农资(总)店.1 "_qs}, {u"kh_tele"_qs, u"0371-5566.1"_qs}});
    QCOMPARE(shop.texts(u"select kh_name,kh_tele,kh_jm from jxc_khxx where id=?"_qs, {customer.id}),
             QStringList{u"农资（总）店．1|0371-5566.1|NZZD1"_qs});
    // The row was found by what the user types, not by what is stored.
    QCOMPARE(shop.codes(customers(), {u"(总)"_qs}), QStringList{customer.text(u"kh_sn")});

    const Record clerk = shop.add(
        masterKind(u"jxc_user"),
        {{u"u_name"_qs, u"小赵"_qs}, {u"u_zdlr"_qs, u"12.345"_qs}, {u"u_tcfs"_qs, u"1"_qs}});
    QCOMPARE(
        shop.texts(u"select u_tcfs,u_tctxt,ck_sn,ck_name from jxc_user where id=?"_qs, {clerk.id}),
        QStringList{u"1|按毛利提成|-1|所有仓库"_qs});

    QCOMPARE(clerk.decimal(u"u_zdlr"), 12.35_d);

    // Half-width signs that stood there before are not touched by a change elsewhere.
    Record first = *loadRecordByCode(shop.session, suppliers(), u"100001"_qs);
    first.set(u"ghs_tele"_qs, u"110"_qs);
    Shop::demand(shop.keep(suppliers(), first));
    QVERIFY(loadRecord(shop.session, suppliers(), first.id)->text(u"ghs_note").contains(u','));
}

void TestRecords::nothingInANewRowIsNull() {
    MasterShop shop;
    const Record goods = shop.add(masterKind(u"jxc_goods"),
                                  {{u"g_name"_qs, u"草甘膦"_qs}, {u"dw_name"_qs, u"盒"_qs}});
    const auto row = shop.db.row(u"select * from jxc_goods where id=?"_qs, {goods.id});
    for (size_t i = 0; i < row->columns().names().size(); ++i)
        QVERIFY2(!row->isNull(i), qPrintable(row->columns().names()[i]));
}

void TestRecords::picksBringTheirNames() {
    MasterShop shop;
    const Record clerk = shop.named(masterKind(u"jxc_user"), u"小赵"_qs);
    Record customer = shop.add(customers(), {{u"kh_name"_qs, u"王家庄"_qs},
                                             {u"kt_sn"_qs, u"1002"_qs},
                                             {u"ck_sn"_qs, u"100002"_qs},
                                             {u"kh_usn"_qs, u"100001,100002,"_qs}});
    const QString names = u"select kt_name,ck_name,kh_uname from jxc_khxx where id=?"_qs;
    QCOMPARE(shop.texts(names, {customer.id}), QStringList{u"二级|东库|默认员工,小赵,"_qs});

    Shop::demand(addOperator(shop.session, shop.user, {u"小王"_qs, {}, {}, u"100001"_qs, {}}));
    const MasterKind &warehouses = masterKind(u"jxc_ckxx");
    Record warehouse = *loadRecordByCode(shop.session, warehouses, u"100002"_qs);
    warehouse.set(u"ck_asn"_qs, u"100001,100002"_qs);
    warehouse.set(u"ck_name"_qs, u"西库"_qs);
    Shop::demand(shop.keep(warehouses, warehouse));
    QCOMPARE(shop.texts(u"select ck_asn from jxc_ckxx where ck_sn='100002'"_qs),
             QStringList{u"100001,100002,"_qs});
    QCOMPARE(loadRecord(shop.session, warehouses, warehouse.id)->text(u"ck_aname"),
             u"admin,小王,"_qs);
    QCOMPARE(shop.texts(names, {customer.id}), QStringList{u"二级|西库|默认员工,小赵,"_qs});

    Record renamed = clerk;
    renamed.set(u"u_name"_qs, u"老赵"_qs);
    Shop::demand(shop.keep(masterKind(u"jxc_user"), renamed));
    QCOMPARE(shop.texts(names, {customer.id}), QStringList{u"二级|西库|默认员工,老赵,"_qs});
}

void TestRecords::namesAreRenamedWhereTheyAreHeld() {
    MasterShop shop;
    shop.addGoods(u"10000001"_qs, {{u"gg_name"_qs, u"100ml"}});
    shop.addUnit(u"10000001"_qs, u"盒"_qs, 10_d);
    shop.post(u"CJ"_qs, day(2), {oneOf(u"10000001"_qs)});
    const MasterKind &units = masterKind(u"jxc_dw");
    const Record bottle = shop.named(units, u"瓶"_qs);
    for (const auto &[from, to] : {std::pair{u"瓶"_qs, u"支"_qs}, std::pair{u"盒"_qs, u"箱"_qs}}) {
        const auto row = shop.db.row(u"select id from jxc_dw where dw_name=?"_qs, {from});
        Record unit = *loadRecord(shop.session, units, row->integer(u"id"));
        unit.set(u"dw_name"_qs, to);
        Shop::demand(shop.keep(units, unit));
    }
    QCOMPARE(shop.texts(u"select dw_name from jxc_goods where g_sn='10000001' union all "
                        "select dw_name from jxc_goodsdw union all "
                        "select dw_name from jxc_goodslist"_qs),
             (QStringList{u"支"_qs, u"箱"_qs, u"瓶"_qs}));
    QCOMPARE(shop.remove(units, bottle).text, u"该单位已被使用，不能删除！"_qs);

    const MasterKind &expenses = masterKind(u"jxc_fylx");
    const auto freight = shop.db.row(u"select id from jxc_fylx where fy_lx='运费'"_qs);
    Record kept = *loadRecord(shop.session, expenses, freight->integer(u"id"));
    QCOMPARE(shop.remove(expenses, kept).text, u"系统默认数据，不能删除！"_qs);
    kept.set(u"fy_lx"_qs, u"车费"_qs);
    QCOMPARE(shop.keep(expenses, kept).text, u"系统默认数据，不能修改！"_qs);
    QCOMPARE(shop.field, u"fy_lx"_qs);
}

void TestRecords::onlyOneRowIsTheDefault() {
    MasterShop shop;
    const Record second =
        shop.add(suppliers(), {{u"ghs_name"_qs, u"县农资公司"_qs}, {u"ghs_default"_qs, u"1"_qs}});
    QCOMPARE(shop.texts(u"select ghs_sn from jxc_ghsxx where ghs_default<>0"_qs),
             QStringList{second.text(u"ghs_sn")});
    QVERIFY(!copiedRecord(shop.session, suppliers(), second).flag(u"ghs_default"));

    // The default row of a small list is what its field starts with.
    QCOMPARE(newRecord(shop.session, customers()).text(u"kt_name"), u"零售客户"_qs);
    const MasterKind &types = masterKind(u"jxc_khtype");
    Record type = *loadRecordByCode(shop.session, types, u"1002"_qs);
    type.set(u"kt_default"_qs, u"1"_qs);
    Shop::demand(shop.keep(types, type));
    QCOMPARE(newRecord(shop.session, customers()).text(u"kt_name"), u"二级"_qs);
}

void TestRecords::anothersChangeIsNotOverwritten() {
    MasterShop shop;
    Record mine = shop.named(customers(), u"王家庄"_qs);
    Record theirs = mine;
    theirs.set(u"kh_tele"_qs, u"110"_qs);
    Shop::demand(shop.keep(customers(), theirs));
    mine.set(u"kh_name"_qs, u"王家屯"_qs);
    QCOMPARE(shop.keep(customers(), mine).text, changed);
    // What a document writes meanwhile is no change of the row's own.
    shop.db.execute(u"update jxc_khxx set kh_lwje=5,kh_pl=3 where id=?"_qs, {mine.id});
    theirs.set(u"kh_tele"_qs, u"119"_qs);
    Shop::demand(shop.keep(customers(), theirs));
    QCOMPARE(shop.figures(u"select kh_lwje from jxc_khxx where id=?"_qs, {mine.id}), u"5"_qs);
    Shop::demand(shop.remove(customers(), theirs));
    QCOMPARE(shop.keep(customers(), theirs).text, changed);
    QCOMPARE(shop.remove(customers(), theirs).text, changed);
}

void TestRecords::deleting() {
    MasterShop shop;
    for (const char16_t *table :
         {u"jxc_ghsxx", u"jxc_khxx", u"jxc_ckxx", u"jxc_user", u"jxc_dept"}) {
        const MasterKind &kind = masterKind(table);
        QCOMPARE(shop.remove(kind, *loadRecordByCode(shop.session, kind, u"100001"_qs)).text,
                 u"系统默认数据，不能删除！"_qs);
    }
    const Record customer = shop.named(customers(), u"王家庄"_qs);
    shop.user.answers = {false};
    QCOMPARE(int(shop.remove(customers(), customer).kind), int(Outcome::Kind::declined));
    QVERIFY(loadRecord(shop.session, customers(), customer.id));

    // A warehouse from which everything was taken back goes with its empty rows.
    shop.addGoods(u"10000001"_qs);
    shop.db.insertRow(
        u"jxc_kcsp"_qs,
        {{u"g_sn"_qs, u"10000001"}, {u"ck_sn"_qs, u"100002"}, {u"kc_sl"_qs, 0}, {u"kc_zsl"_qs, 0}});
    const MasterKind &warehouses = masterKind(u"jxc_ckxx");
    Shop::demand(
        shop.remove(warehouses, *loadRecordByCode(shop.session, warehouses, u"100002"_qs)));
    QCOMPARE(shop.figures(u"select count(*) from jxc_kcsp where ck_sn='100002'"_qs), u"0"_qs);
}

void TestRecords::usedRowsStay() {
    MasterShop shop;
    const Record supplier = shop.named(suppliers(), u"县农资公司"_qs);
    const Record customer = shop.named(customers(), u"王家庄"_qs);
    const Record clerk = shop.named(masterKind(u"jxc_user"), u"小赵"_qs);
    const Record other = shop.named(masterKind(u"jxc_user"), u"小钱"_qs);
    shop.addGoods(u"10000001"_qs);
    shop.save(u"XS"_qs, day(1), {oneOf(u"10000001"_qs)},
              [&](Draft &d) { d.partner = customer.text(u"kh_sn"); });
    shop.db.insertRow(u"jxc_ysyfk"_qs,
                      {{u"k_type"_qs, u"ghs"}, {u"k_ghskh"_qs, supplier.text(u"ghs_sn")}});
    shop.db.execute(u"update jxc_khxx set kh_usn='100001,100002,' where kh_sn='100001'"_qs);

    const QString disable = u"\r\n\r\n可以将其禁用！"_qs;
    QCOMPARE(shop.remove(suppliers(), supplier).text,
             QString(u"该供货商已被使用，不能删除！"_qs + disable));
    QCOMPARE(shop.remove(customers(), customer).text,
             QString(u"该客户已被使用，不能删除！"_qs + disable));
    QCOMPARE(shop.remove(masterKind(u"jxc_user"), clerk).text,
             QString(u"该员工已被使用，不能删除！"_qs + disable));
    Shop::demand(shop.remove(masterKind(u"jxc_user"), other));
    // The journal's supplier column holds customers' codes too: that does not make a supplier used.
    const Record twin = shop.named(suppliers(), u"同号"_qs);
    shop.db.insertRow(u"jxc_goodslist"_qs, {{u"ghs_sn"_qs, twin.text(u"ghs_sn")}});
    Shop::demand(shop.remove(suppliers(), twin));
}

void TestRecords::lists() {
    MasterShop shop;
    const Record wang = shop.add(customers(), {{u"kh_name"_qs, u"王家庄50%合作社"_qs},
                                               {u"kh_tele"_qs, u"13800001111"_qs},
                                               {u"z_name"_qs, u"地市区域"_qs}});
    const Record gone =
        shop.add(customers(), {{u"kh_name"_qs, u"李家庄"_qs}, {u"kh_forbid"_qs, u"1"_qs}});
    const QStringList all{u"100001"_qs, wang.text(u"kh_sn")};
    QCOMPARE(shop.codes(customers()), all);
    QCOMPARE(shop.codes(customers(), {{}, true}), QStringList(all) << gone.text(u"kh_sn"));
    for (const QString &search : {u"家庄"_qs, u"wjz"_qs, u"0000111"_qs, u"100002"_qs, u"0%"_qs})
        QCOMPARE(shop.codes(customers(), {search}), QStringList{wang.text(u"kh_sn")});
    QCOMPARE(shop.codes(customers(), {u"%%"_qs}), QStringList());
    QCOMPARE(shop.codes(customers(),
                        {{}, false, {{u"z_name"_qs, ListFilter::How::equal, u"地市区域"_qs}}}),
             QStringList{wang.text(u"kh_sn")});

    shop.addGoods(u"10000001"_qs, {{u"gc_cid"_qs, 2}, {u"gc_sn"_qs, u"1000"}, {u"g_kc"_qs, 3}});
    shop.addGoods(u"10000002"_qs, {{u"gc_cid"_qs, 1}, {u"gc_sn"_qs, u""}});
    shop.addUnit(u"10000002"_qs, u"箱"_qs, 10_d, {{u"g_sptm"_qs, u"77001"}});
    const MasterKind &goods = masterKind(u"jxc_goods");
    const Rows rows = listRecords(shop.session, goods);
    QCOMPARE(rows.size(), size_t{2}); // the discount goods is in no list
    QCOMPARE(rows[0].text(u"gc_name"), u"默认类别"_qs);
    QCOMPARE(shop.codes(goods, {u"7700"_qs}), QStringList{u"10000002"_qs});
    QCOMPARE(shop.codes(goods, {{}, false, {{u"gc_sn"_qs, ListFilter::How::beginsWith, u"10"_qs}}}),
             QStringList{u"10000001"_qs});
    QCOMPARE(shop.codes(goods, {{}, false, {{u"g_kc"_qs, ListFilter::How::notZero}}}),
             QStringList{u"10000001"_qs});
}

void TestRecords::warehouseRestriction() {
    MasterShop shop;
    shop.add(customers(), {{u"kh_name"_qs, u"东庄"_qs}, {u"ck_sn"_qs, u"100002"_qs}});
    shop.add(customers(), {{u"kh_name"_qs, u"主庄"_qs}, {u"ck_sn"_qs, u"100001"_qs}});
    Session clerk = shop.clerk(u"qtcz"_qs, {3, 5});
    shop.db.execute(u"update jxc_ckxx set ck_asn='100002,' where ck_sn='100002'"_qs);
    shop.set(u"cs_cs002"_qs, 1);
    const MasterKind &warehouses = masterKind(u"jxc_ckxx");
    QCOMPARE(shop.codes(warehouses, {}, &clerk), QStringList{u"100002"_qs});
    QCOMPARE(shop.codes(customers(), {}, &clerk), (QStringList{u"100001"_qs, u"100002"_qs}));
    QCOMPARE(shop.codes(warehouses).size(), 2);
    const auto picks = listPicks(clerk, customers().field(u"ck_sn")->pick);
    QCOMPARE(picks.size(), size_t{2});
    QCOMPARE(picks[0].name, u"所有仓库"_qs);
    QCOMPARE(picks[1].value, u"100002"_qs);
}

QTEST_APPLESS_MAIN(TestRecords)
#include "test_records.moc"
