#include "db/creation.h"
#include "db/ddl.h"
#include "db/schema.h"
#include "db/transaction.h"
#include "support/test_database.h"

#include <QSet>
#include <QTest>

using namespace jxc;
using namespace jxc::test;

namespace {

const QDate firstDay(2026, 3, 1);

/// Every row of every table, as text.
QStringList content(Database &db) {
    QStringList lines;
    for (const Table &t : schema().tables()) {
        lines << t.name;
        for (const Row &row : db.rows(QStringLiteral("select * from %1 order by id").arg(t.name))) {
            QStringList fields;
            for (size_t i = 0; i < row.columns().names().size(); ++i) {
                const QString field = row.text(i);
                fields << (field.isNull() ? QStringLiteral("null") : field);
            }
            lines << fields.join(u'|');
        }
    }
    return lines;
}

QString count(Database &db, const QString &table) {
    return db.scalar(QStringLiteral("select count(*) from ") + table);
}

} // namespace

class TestCreation : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void makesEveryTable_data() { addEngineRows(); }
    void makesEveryTable();
    void resetsEqually_data() { addEngineRows(); }
    void resetsEqually();
    void businessResetKeepsMasterData_data() { addEngineRows(); }
    void businessResetKeepsMasterData();
    void failedResetChangesNothing_data() { addEngineRows(); }
    void failedResetChangesNothing();
};

void TestCreation::makesEveryTable() {
    TestDatabase place(currentEngine(), TestDatabase::Content::nothing);
    Database &db = place.db();
    resetAllTables(db, firstDay);

    const QStringList names = db.tableNames();
    for (const Table &t : schema().tables()) {
        QVERIFY2(names.contains(t.name), qPrintable(t.name));
        QStringList columns{QStringLiteral("id")};
        for (const Column &c : t.columns)
            columns << c.name;
        QCOMPARE(db.columnNames(t.name), columns);
        for (const Row &row : db.rows(QStringLiteral("select * from ") + t.name))
            for (const QString &column : row.columns().names())
                QVERIFY2(!row.isNull(column), qPrintable(t.name + u'.' + column));
    }
    const QString indexes =
        currentEngine() == Engine::Sqlite
            ? QStringLiteral(
                  "select name from sqlite_master where type='index' and sql is not null")
            : QStringLiteral("select indexname from pg_indexes where schemaname=current_schema() "
                             "and indexname not like '%pkey'");
    size_t declared = 0;
    for (const Table &t : schema().tables())
        declared += t.indexes.size();
    QCOMPARE(db.rows(indexes).size(), declared);

    QCOMPARE(db.scalar(u"select cs_employdate from jxc_xtcs"_qs), u"2019-04-27"_qs);
    QCOMPARE(db.scalar(u"select max(xj_rq) from jxc_xjyh"_qs), u"2026-03-01"_qs);
    QCOMPARE(count(db, u"jxc_posfont"_qs), u"2"_qs);
    // Figures arrive as figures: a text in their place would neither add nor compare.
    QVERIFY(db.exists(u"select id from jxc_hyfl where hl_jfsx+hl_zk=1000000"_qs));
}

void TestCreation::resetsEqually() {
    TestDatabase place(currentEngine());
    Database &db = place.db();
    const QStringList fresh = content(db);
    db.execute(u"insert into jxc_goods (g_sn,g_kc) values ('28000010',5)"_qs);
    db.execute(u"delete from jxc_role"_qs);
    db.execute(u"drop table jxc_tkc"_qs);
    resetAllTables(db, firstDay);
    const QStringList first = content(db);
    QCOMPARE(first, fresh);
    resetAllTables(db, firstDay);
    QCOMPARE(content(db), first);
}

void TestCreation::businessResetKeepsMasterData() {
    TestDatabase place(currentEngine());
    Database &db = place.db();
    db.execute(
        u"insert into jxc_goods (g_sn,g_name,g_kc,ghs_sn) values ('28000010','草甘膦',5,'100007')"_qs);
    db.execute(u"insert into jxc_kcsp (g_sn,ck_sn,kc_sl) values ('28000010','100001',5)"_qs);
    for (const QString &table : {u"jxc_goodslist"_qs, u"jxc_tkc"_qs})
        db.execute(QStringLiteral("insert into %1 (g_sn) values ('28000010')").arg(table));
    db.execute(u"insert into jxc_jhd (j_sn) values ('CJ2603010001')"_qs);
    db.execute(u"insert into jxc_fylx (fy_lx) values ('水电')"_qs);
    db.execute(u"update jxc_xtcs set cs_xsws=4"_qs);

    for (int i = 0; i < 2; ++i) {
        resetBusinessTables(db, firstDay.addDays(i));
        const auto goods = db.row(u"select * from jxc_goods where g_sn='28000010'"_qs);
        QVERIFY(goods.has_value());
        QCOMPARE(goods->text(u"g_name"), u"草甘膦"_qs);
        QCOMPARE(goods->decimal(u"g_kc"), Decimal(0));
        QCOMPARE(goods->text(u"ghs_sn"), u"100001"_qs);
        QCOMPARE(db.row(u"select kc_sl from jxc_kcsp"_qs)->decimal(u"kc_sl"), Decimal(5));
        QCOMPARE(db.scalar(u"select cs_xsws from jxc_xtcs"_qs), u"4"_qs);
        for (const QString &table : {u"jxc_goodslist"_qs, u"jxc_tkc"_qs, u"jxc_jhd"_qs})
            QCOMPARE(count(db, table), u"0"_qs);
        QCOMPARE(count(db, u"jxc_fylx"_qs), u"4"_qs);
        QCOMPARE(db.scalar(u"select max(xj_rq) from jxc_xjyh"_qs),
                 QStringLiteral("2026-03-0%1").arg(i + 1));
    }
}

void TestCreation::failedResetChangesNothing() {
    TestDatabase place(currentEngine());
    Database &db = place.db();
    db.execute(u"insert into jxc_goods (g_sn,g_kc) values ('28000010',5)"_qs);
    const QStringList before = content(db);
    for (const auto reset : {&resetAllTables, &resetBusinessTables}) {
        db.setStatementObserver([](const QString &sql, const Values &) {
            if (sql.startsWith(u"create table jxc_xsd "))
                throw DatabaseError({}, sql, {});
        });
        QVERIFY_EXCEPTION_THROWN(reset(db, firstDay), DatabaseError);
        db.setStatementObserver({});
        QVERIFY(!db.inTransaction());
        QCOMPARE(content(db), before);
    }
}

QTEST_GUILESS_MAIN(TestCreation)
#include "test_creation.moc"
