#include "db/ddl.h"
#include "db/defaults.h"
#include "db/schema.h"

#include <QFile>
#include <QSet>
#include <QTest>

using namespace jxc;

class TestSchema : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void describesEveryTableOnce();
    void namesFitBothEngines();
    void ordersAndKeeps();
    void ddlIsAsReviewed_data();
    void ddlIsAsReviewed();
    void defaultRowsPerTable();
    void defaultRowsAreWhole();
};

void TestSchema::describesEveryTableOnce() {
    QCOMPARE(schema().tables().size(), size_t(165));
    size_t columns = 0;
    for (const Table &t : schema().tables()) {
        QVERIFY2(!t.columns.empty(), qPrintable(t.name));
        QCOMPARE(schema().find(t.name), &t);
        columns += t.columns.size();
    }
    QCOMPARE(columns, size_t(2036));
    QCOMPARE(column(u"jxc_goods", u"g_sn")->length, 32);
    QCOMPARE(column(u"jxc_goods", u"g_sn")->caption, QStringLiteral("商品编号"));
    QVERIFY(column(u"jxc_goods", u"g_jj")->type == ColumnType::Numeric);
    QVERIFY(column(u"jxc_goods", u"gx") == nullptr);
    QVERIFY_EXCEPTION_THROWN(table(u"jxc_nothing"), std::logic_error);
}

void TestSchema::namesFitBothEngines() {
    // PostgreSQL cuts names to 63 bytes without an error, and both engines hold tables and indexes
    // in one name space.
    QSet<QString> names;
    for (const Table &t : schema().tables()) {
        QVERIFY2(!names.contains(t.name), qPrintable(t.name));
        names.insert(t.name);
        for (const Index &index : t.indexes) {
            QVERIFY2(!names.contains(index.name) && index.name.size() <= 63,
                     qPrintable(index.name));
            names.insert(index.name);
        }
    }
}

void TestSchema::ordersAndKeeps() {
    const auto &tables = schema().tables();
    QCOMPARE(tables.front().name, QStringLiteral("jxc_skin"));
    QCOMPARE(tables.back().name, QStringLiteral("jxc_xsd"));
    QStringList kept;
    QStringList keyless;
    for (const Table &t : tables) {
        if (t.isMasterData)
            kept.append(t.name.mid(4));
        if (!t.hasPrimaryKey)
            keyless.append(t.name);
    }
    QCOMPARE(kept.join(u' '),
             QStringLiteral(
                 "skin goodsclass goods color dw ggxh ckxx kcsp ghsxx import ghstype zone khxx "
                 "khtype user admin company hyfl hyxx hyjbxx posprint gnb posfont backup role "
                 "mryt xtcs"));
    QCOMPARE(keyless.join(u' '), QStringLiteral("jxc_jxqd jxc_jxqsp"));
}

void TestSchema::ddlIsAsReviewed_data() {
    QTest::addColumn<Engine>("engine");
    QTest::newRow("sqlite") << Engine::Sqlite;
    QTest::newRow("postgres") << Engine::Postgres;
}

// The stored statements make every change of the layout visible in review. After a deliberate
// change run this test with JXC_UPDATE_EXPECTED=1.
void TestSchema::ddlIsAsReviewed() {
    QFETCH(const Engine, engine);
    QString generated;
    for (const Table &t : schema().tables())
        for (const QString &statement : createStatements(t, engine))
            generated += statement + QStringLiteral(";\n");

    QFile file(QStringLiteral(JXC_EXPECTED_DIR "/%1.sql")
                   .arg(QString::fromLatin1(QTest::currentDataTag())));
    if (qEnvironmentVariableIsSet("JXC_UPDATE_EXPECTED")) {
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(generated.toUtf8());
        return;
    }
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QStringList reviewed = QString::fromUtf8(file.readAll()).split(u'\n');
    const QStringList current = generated.split(u'\n');
    for (qsizetype i = 0; i < qMin(reviewed.size(), current.size()); ++i)
        QCOMPARE(current[i], reviewed[i]);
    QCOMPARE(current.size(), reviewed.size());
}

void TestSchema::defaultRowsPerTable() {
    const std::map<QString, size_t> expected{
        {u"skin"_qs, 1},    {u"goodsclass"_qs, 2}, {u"goods"_qs, 1},   {u"color"_qs, 2},
        {u"dw"_qs, 2},      {u"ggxh"_qs, 2},       {u"ckxx"_qs, 1},    {u"ghsxx"_qs, 1},
        {u"ghstype"_qs, 3}, {u"zone"_qs, 3},       {u"khxx"_qs, 1},    {u"khtype"_qs, 6},
        {u"user"_qs, 1},    {u"admin"_qs, 1},      {u"role"_qs, 1},    {u"company"_qs, 1},
        {u"xjyh"_qs, 3},    {u"yhzh"_qs, 3},       {u"fkfs"_qs, 2},    {u"hyfl"_qs, 2},
        {u"hyxx"_qs, 1},    {u"hyyh"_qs, 1},       {u"jfsz"_qs, 1},    {u"posprint"_qs, 1},
        {u"gnb"_qs, 12},    {u"posfont"_qs, 2},    {u"poscs"_qs, 1},   {u"fylx"_qs, 4},
        {u"fd"_qs, 1},      {u"tmdy"_qs, 1},       {u"mryt"_qs, 16},   {u"txdisp"_qs, 1},
        {u"kdgs"_qs, 23},   {u"dept"_qs, 1},       {u"gspcs"_qs, 13},  {u"yjlx"_qs, 17},
        {u"hjxx"_qs, 1},    {u"xtcs"_qs, 1},       {u"import"_qs, 60},
    };
    for (const Table &t : schema().tables()) {
        const auto found = expected.find(t.name.mid(4));
        const size_t count = found == expected.end() ? 0 : found->second;
        QVERIFY2(defaultRows(t, QDate(2024, 5, 1)).size() == count, qPrintable(t.name));
    }
}

void TestSchema::defaultRowsAreWhole() {
    const auto value = [](QStringView tableName, QStringView columnName, size_t row = 0) {
        const Table &t = table(tableName);
        const auto index = t.column(columnName) - t.columns.data();
        return defaultRows(t, QDate(2024, 5, 1)).at(row).at(index);
    };
    QCOMPARE(value(u"jxc_xjyh", u"xj_rq", 2), u"2024-05-01"_qs);
    QCOMPARE(value(u"jxc_posprint", u"pp_jz2"), u"管理软件 岚舟通是专家"_qs);
    QCOMPARE(value(u"jxc_yhzh", u"yh_type", 1), u"工行合计 "_qs);
    QCOMPARE(value(u"jxc_hyyh", u"hh_note"), u"实际款=所付存款*1"_qs);
    QCOMPARE(value(u"jxc_role", u"qtcz"), QString(60, u'1'));
    QCOMPARE(value(u"jxc_xtcs", u"cs_employdate"), u"2019-04-27"_qs);
    QCOMPARE(value(u"jxc_goods", u"g_pjjj"), u"0"_qs);
    QVERIFY(!value(u"jxc_goods", u"g_sptm").isNull()); // empty, never null
    // Every importable field is one; a transfer line also shows names that the goods have.
    const Table &import = table(u"jxc_import");
    for (const DefaultRow &row : defaultRows(import, QDate(2024, 5, 1))) {
        const bool known = column(row[2], row[0]) != nullptr;
        const bool shown = row[2] == u"jxc_dbsp" && column(u"jxc_goods", row[0]) != nullptr;
        QVERIFY2(known || shown, qPrintable(row.join(u' ')));
    }
}

QTEST_APPLESS_MAIN(TestSchema)
#include "test_schema.moc"
