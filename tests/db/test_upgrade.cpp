#include "db/creation.h"
#include "db/old_release.h"
#include "db/schema.h"
#include "db/upgrade.h"
#include "db/upgrade_steps.h"
#include "support/test_database.h"

#include <QTest>

using namespace jxc;
using namespace jxc::test;

namespace {

const QDate upgradeDay(2026, 3, 5);

/// Notes what the upgrade asks of the partner ledger.
struct Ledger {
    QStringList asked;
    UpgradeHooks hooks{
        [this](Database &, const QString &kind, const QString &number, const QString &fromDate) {
            asked << QStringList{kind, number, fromDate}.join(u' ');
        }};
};

QStringList upgrade(Database &db) {
    Ledger ledger;
    return upgradeDatabase(db, upgradeDay, ledger.hooks);
}

void setVersion(Database &db, const QString &date) {
    db.execute(u"update jxc_xtcs set cs_employdate=?"_qs, {date});
}

QString version(Database &db) {
    return db.scalar(u"select cs_employdate from jxc_xtcs"_qs);
}

/// Names, columns and rows of every table.
QStringList everything(Database &db) {
    QStringList lines;
    QStringList names = db.tableNames();
    names.sort();
    for (const QString &name : names) {
        if (!name.startsWith(u"jxc_"))
            continue;
        lines << name + u' ' + db.columnNames(name).join(u' ');
        for (const Row &row : db.rows(u"select * from %1 order by id"_qs.arg(name))) {
            QStringList fields;
            for (size_t i = 0; i < row.columns().names().size(); ++i)
                fields << row.text(i);
            lines << fields.join(u'|');
        }
    }
    return lines;
}

Row only(Database &db, const QString &sql) {
    const Rows rows = db.rows(sql);
    if (rows.size() != 1)
        qFatal("%d rows: %s", static_cast<int>(rows.size()), qPrintable(sql));
    return rows.front();
}

/// A few days of a shop before approval was introduced.
void insertOldBooks(Database &db) {
    const QStringList statements{
        u"update jxc_xtcs set cs_xsws=2"_qs,
        u"insert into jxc_goods (g_sn,g_name,dw_name,g_pjjj,g_sj,g_bzq) "
        "values ('28000010','草甘膦','瓶',2.55,4.5,24)"_qs,
        u"insert into jxc_kcsp (g_sn,ck_sn,kc_sl,kc_cbj) values ('28000010','100001',10.5,2.5)"_qs,
        u"insert into jxc_khxx (kh_sn,kh_name) values ('100002','老王')"_qs,
        u"insert into jxc_jhd (j_sn,ghs_sn,j_jhrq,a_name,j_yfje,j_sfje,j_yhje) values "
        "('CJ1','100007','2013-05-01','小张',90.1,90.1,9.9),"
        "('CJ2','100008','2013-05-02','小张',50,20,5)"_qs,
        u"insert into jxc_jhsp (j_sn,g_sn,jh_sl,jh_dj) values ('CJ1','28000010',12.5,2)"_qs,
        u"insert into jxc_lsxsd (gl_djh,ls_xsrq,a_name,ls_yfje,ls_sfje,ls_yhje) values "
        "('XS1','2013-05-03 10:20:30','小李',0.8,0.8,0.2)"_qs,
        u"insert into jxc_lsxssp (gl_djh,g_sn,ls_sl,ls_dj) values ('XS1','28000010',2,4.5)"_qs,
        u"insert into jxc_goodslist (gl_flag,gl_djh,gl_kdrq,g_sn,gl_dj,gl_sl,a_name,ck_sn) values "
        "('cj','CJ1','2013-05-01','28000010',2,12.5,'小张','100001'),"
        "('xs','XS1','2013-05-03 10:20:30','28000010',4.5,2,'小李','100001')"_qs,
        u"insert into jxc_kcdbd (gl_djh,db_dbrq,a_name) values ('DB1','2013-05-04','小张')"_qs,
        u"insert into jxc_dbsp (gl_djh,g_sn,db_sl) values ('DB1','28000010',0.1)"_qs,
        u"delete from jxc_xjyh"_qs,
        u"insert into jxc_xjyh (xj_rq,gl_djh,xj_kmmc,xj_je) values "
        "('2013-05-02','FK1','现金',20.1),('2013-05-01','','现金',100.3),"
        "('2013-05-03','SK1','工行帐号',7)"_qs,
        u"insert into jxc_rkd (gl_djh,rk_rq) values ('RK1','2013-05-05')"_qs,
        u"insert into jxc_rksp (gl_djh,g_sn,rk_sl,j_sn) values ('RK1','28000010',3,'CJ1'),"
        "('RK1','28000010',4,'CJ1')"_qs,
        u"insert into jxc_tkc (g_sn,ck_sn,t_ph,t_yxq,t_scrq,t_sl) values "
        "('28000010','100001','A1','2014-01-01','2013-01-01',4.1),"
        "('28000010','100001','A2','2014-01-01','2013-01-01',1),"
        "('28000010','100001','A1','2014-01-01','2013-02-01',5.2)"_qs,
        u"delete from jxc_fylx where fy_lx='运费'"_qs};
    for (const QString &statement : statements)
        db.execute(statement);
}

} // namespace

class TestUpgrade : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void stepsKeepTheirOrder();
    void currentSetRunsNoStep_data() { addEngineRows(); }
    void currentSetRunsNoStep();
    void oldLayoutBecomesCurrent_data() { addEngineRows(); }
    void oldLayoutBecomesCurrent();
    void oldDocumentsAreApproved_data() { addEngineRows(); }
    void oldDocumentsAreApproved();
    void oldStockOpensTheJournal_data() { addEngineRows(); }
    void oldStockOpensTheJournal();
    void oldMoneyKeepsItsBalances_data() { addEngineRows(); }
    void oldMoneyKeepsItsBalances();
    void newerSetRunsNewerStepsOnly_data() { addEngineRows(); }
    void newerSetRunsNewerStepsOnly();
    void emptyDateRunsAllOverCurrentTables_data() { addEngineRows(); }
    void emptyDateRunsAllOverCurrentTables();
    void failureLeavesEverything_data() { addEngineRows(); }
    void failureLeavesEverything();
    void narrowTextsAreWidened_data() { addEngineRows(); }
    void narrowTextsAreWidened();
    void setWithoutParametersIsRefused_data() { addEngineRows(); }
    void setWithoutParametersIsRefused();
};

void TestUpgrade::stepsKeepTheirOrder() {
    const auto &steps = upgradeSteps();
    QCOMPARE(steps.size(), size_t(65));
    size_t additions = 0;
    QSet<QString> tables;
    for (size_t i = 0; i < steps.size(); ++i) {
        for (const auto &addition : steps[i].additions) {
            additions += addition.columns.size();
            tables.insert(addition.table);
        }
        // By date, but for the one that was released after a newer one.
        if (steps[i].date == u"2014-02-16")
            QCOMPARE(steps[i - 1].date, u"2014-02-19"_qs);
        else if (i > 0)
            QVERIFY2(steps[i - 1].date < steps[i].date, qPrintable(steps[i].date));
    }
    QCOMPARE(additions, size_t(304));
    QCOMPARE(tables.size(), 51);
    QCOMPARE(steps.front().date, u"2013-10-31"_qs);
    QCOMPARE(steps.back().date, u"2019-04-27"_qs);
}

void TestUpgrade::currentSetRunsNoStep() {
    TestDatabase place(currentEngine());
    QStringList writes;
    place.db().setStatementObserver([&](const QString &sql, const Values &) {
        if (!sql.startsWith(u"select"))
            writes << sql;
    });
    QVERIFY(!needsUpgrade(place.db()));
    QCOMPARE(upgrade(place.db()), QStringList());
    QCOMPARE(writes, QStringList());
}

void TestUpgrade::oldLayoutBecomesCurrent() {
    TestDatabase place(currentEngine());
    Database &db = place.db();
    const QString indexes =
        currentEngine() == Engine::Sqlite
            ? u"select name from sqlite_master where type='index' and sql is not null order by 1"_qs
            : u"select indexname from pg_indexes where schemaname=current_schema() order by 1"_qs;
    const auto indexNames = [&] {
        QStringList names;
        for (const Row &row : db.rows(indexes))
            names << row.text(size_t{0});
        return names;
    };
    const QStringList indexed = indexNames();
    makeOldRelease(db);
    insertOldBooks(db);
    db.execute(u"drop table jxc_gspcs"_qs);
    db.execute(u"alter table jxc_khxx drop column kh_note"_qs); // every release had it

    QVERIFY(needsUpgrade(db));
    const QStringList ran = upgrade(db);
    QCOMPARE(ran.size(), 65);
    for (qsizetype i = 0; i < ran.size(); ++i)
        QCOMPARE(ran[i], upgradeSteps()[size_t(i)].date);
    QCOMPARE(version(db), u"2019-04-27"_qs);
    QVERIFY(!needsUpgrade(db));

    for (const Table &t : schema().tables()) {
        const QStringList names = db.columnNames(t.name);
        for (const Column &c : t.columns)
            QVERIFY2(names.contains(c.name), qPrintable(t.name + u'.' + c.name));
    }
    QCOMPARE(indexNames(), indexed);
    QCOMPARE(db.rows(u"select id from jxc_gspcs"_qs).size(), size_t(13));
    for (const UpgradeStep &step : upgradeSteps())
        for (const auto &addition : step.additions)
            for (const AddedColumn &added : addition.columns)
                QVERIFY2(!db.exists(u"select id from %1 where %2 is null"_qs.arg(
                             addition.table, added.column.name)),
                         qPrintable(addition.table + u'.' + added.column.name));
}

void TestUpgrade::oldDocumentsAreApproved() {
    TestDatabase place(currentEngine());
    Database &db = place.db();
    makeOldRelease(db);
    insertOldBooks(db);
    upgrade(db);

    const Row receipt = only(db, u"select * from jxc_jhd where j_sn='CJ1'"_qs);
    QCOMPARE(receipt.integer(u"j_status"), 1);
    QCOMPARE(receipt.text(u"j_checker"), u"小张"_qs);
    QCOMPARE(receipt.text(u"j_chkrq"), u"2013-05-01"_qs);
    QCOMPARE(receipt.text(u"j_kmmc"), u"现金"_qs);
    const Row sale = only(db, u"select * from jxc_lsxsd"_qs);
    QCOMPARE(sale.integer(u"ls_status"), 1);
    QCOMPARE(sale.text(u"ls_chkrq"), u"2013-05-03"_qs);
    QCOMPARE(only(db, u"select * from jxc_kcdbd"_qs).text(u"db_checker"), u"小张"_qs);

    const Row line = only(db, u"select * from jxc_jhsp"_qs);
    for (const auto *quantity : {u"jh_zsl", u"jh_rksl"})
        QCOMPARE(line.decimal(quantity), Decimal::fromText(u"12.5"));
    QCOMPARE(line.decimal(u"jh_dzl"), Decimal(1));
    const Row saleLine = only(db, u"select * from jxc_lsxssp"_qs);
    QCOMPARE(saleLine.decimal(u"g_lsj"), Decimal::fromText(u"4.5")); // no layout has it
    QCOMPARE(saleLine.decimal(u"ls_cksl"), Decimal(2));
    QCOMPARE(saleLine.decimal(u"g_zhxs"), Decimal(1));

    const Row transfer = only(db, u"select * from jxc_dbsp"_qs);
    QCOMPARE(transfer.decimal(u"db_dj"), Decimal::fromText(u"2.55"));
    QCOMPARE(transfer.decimal(u"db_sj"), Decimal::fromText(u"4.5"));
    QCOMPARE(transfer.decimal(u"db_zje"), Decimal::fromText(u"0.255"));
    QCOMPARE(only(db, u"select * from jxc_rkd"_qs).text(u"ghs_sn"), u"100007"_qs);

    const Row goods = only(db, u"select * from jxc_goods where g_sn='28000010'"_qs);
    QCOMPARE(goods.decimal(u"g_lsj"), Decimal::fromText(u"4.5"));
    QCOMPARE(goods.decimal(u"g_bzq"), Decimal(0));
    QCOMPARE(db.rows(u"select id from jxc_goodsclass where gc_key=gc_cid"_qs).size(), size_t(2));
    QCOMPARE(only(db, u"select * from jxc_fylx where fy_lx='运费'"_qs).text(u"fy_note"),
             u"运费支出"_qs);
    only(db, u"select * from jxc_fylx where fy_lx='包装费'"_qs);
}

void TestUpgrade::oldStockOpensTheJournal() {
    TestDatabase place(currentEngine());
    Database &db = place.db();
    makeOldRelease(db);
    insertOldBooks(db);
    upgrade(db);

    const Row before = only(db, u"select * from jxc_goodslist where gl_djh='XS1'"_qs);
    QCOMPARE(before.text(u"gl_note"), u"[-前期数据-]"_qs);
    QCOMPARE(before.text(u"gl_checker"), u"小李"_qs);
    QCOMPARE(before.text(u"gl_chkrq"), u"2013-05-03"_qs);
    QCOMPARE(before.decimal(u"gl_pjjj"), Decimal::fromText(u"4.5"));
    QCOMPARE(before.decimal(u"gl_kc"), Decimal(0));

    const Row opening = only(db, u"select * from jxc_goodslist where gl_flag='qc'"_qs);
    QCOMPARE(opening.text(u"gl_kdrq"), u"2013-05-03 10:20:31"_qs);
    QCOMPARE(opening.text(u"ghs_name"), u"期初结转"_qs);
    QCOMPARE(opening.text(u"gl_note"), u"期初结转"_qs);
    QCOMPARE(opening.text(u"g_name"), u"草甘膦"_qs);
    QCOMPARE(opening.text(u"ck_name"), u"主仓库"_qs);
    QCOMPARE(opening.decimal(u"gl_sl"), Decimal::fromText(u"10.5"));
    QCOMPARE(opening.decimal(u"gl_kc"), Decimal::fromText(u"10.5"));
    QCOMPARE(opening.decimal(u"gl_pjjj"), Decimal::fromText(u"2.55"));
    QCOMPARE(opening.decimal(u"gl_kczje"), Decimal::fromText(u"26.78")); // 26.775
    const Row stock = only(db, u"select * from jxc_kcsp"_qs);
    QCOMPARE(stock.decimal(u"kc_zsl"), Decimal::fromText(u"10.5"));

    // Batches that differed by production date only are one now, and none is lost.
    const Rows batches = db.rows(u"select t_ph,t_scrq,t_sl from jxc_tkc order by id"_qs);
    QCOMPARE(batches.size(), size_t(2));
    QCOMPARE(batches[0].decimal(u"t_sl"), Decimal::fromText(u"9.3"));
    QCOMPARE(batches[1].decimal(u"t_sl"), Decimal(1));
    QCOMPARE(batches[0].text(u"t_scrq"), QString());
}

void TestUpgrade::oldMoneyKeepsItsBalances() {
    TestDatabase place(currentEngine());
    Database &db = place.db();
    makeOldRelease(db);
    insertOldBooks(db);
    Ledger ledger;
    upgradeDatabase(db, upgradeDay, ledger.hooks);
    QCOMPARE(ledger.asked, QStringList({u"kh 100001 2014-04-01"_qs, u"kh 100002 2014-04-01"_qs}));

    // In the order of days, an account for itself; 100.3, then 20.1 paid out of it.
    const Rows cash = db.rows(u"select * from jxc_xjyh where xj_kmmc='现金' order by xj_rq,id"_qs);
    QCOMPARE(cash[0].decimal(u"xj_ljje"), Decimal::fromText(u"100.3"));
    QCOMPARE(cash[1].decimal(u"xj_je"), Decimal::fromText(u"-20.1"));
    QCOMPARE(cash[1].decimal(u"xj_ljje"), Decimal::fromText(u"80.2"));
    QCOMPARE(cash[1].text(u"xj_chk"), u"1"_qs);
    const Row bank = only(db, u"select * from jxc_xjyh where xj_kmmc='工行帐号'"_qs);
    QCOMPARE(bank.decimal(u"xj_ljje"), Decimal(7));

    // A discount joins the amount due of what was paid in full, and of nothing else.
    const auto due = [&](const QString &number) {
        return only(db, u"select j_yfje from jxc_jhd where j_sn='%1'"_qs.arg(number))
            .decimal(u"j_yfje");
    };
    QCOMPARE(due(u"CJ1"_qs), Decimal(100));
    QCOMPARE(due(u"CJ2"_qs), Decimal(50));
    QCOMPARE(only(db, u"select ls_yfje from jxc_lsxsd"_qs).decimal(u"ls_yfje"), Decimal(1));
}

void TestUpgrade::newerSetRunsNewerStepsOnly() {
    TestDatabase place(currentEngine());
    Database &db = place.db();
    db.execute(u"insert into jxc_jhd (j_sn,j_status) values ('CJ1',0)"_qs);
    setVersion(db, u"2014-02-15"_qs);
    const QStringList ran = upgrade(db);
    // The middle one is older than what the step before it wrote, and runs all the same.
    QCOMPARE(ran.mid(0, 4),
             QStringList({u"2014-02-18"_qs, u"2014-02-19"_qs, u"2014-02-16"_qs, u"2015-02-19"_qs}));
    QCOMPARE(only(db, u"select * from jxc_jhd"_qs).integer(u"j_status"), 0);

    setVersion(db, u"2014-02-19"_qs);
    QCOMPARE(upgrade(db).front(), u"2015-02-19"_qs);
    QCOMPARE(version(db), u"2019-04-27"_qs);
}

void TestUpgrade::emptyDateRunsAllOverCurrentTables() {
    TestDatabase place(currentEngine());
    Database &db = place.db();
    insertOldBooks(db);
    db.execute(u"update jxc_kcsp set kc_zsl=3"_qs);
    db.execute(u"update jxc_jhsp set jh_rksl=1"_qs);
    setVersion(db, {});
    QCOMPARE(upgrade(db).size(), 65);
    QCOMPARE(only(db, u"select * from jxc_jhd where j_sn='CJ1'"_qs).integer(u"j_status"), 1);
    // What a column held already is kept.
    QCOMPARE(only(db, u"select * from jxc_kcsp"_qs).decimal(u"kc_zsl"), Decimal(3));
    QCOMPARE(only(db, u"select * from jxc_jhsp"_qs).decimal(u"jh_rksl"), Decimal(1));
    const Row opening = only(db, u"select * from jxc_goodslist where gl_flag='qc'"_qs);
    for (const QString &name : opening.columns().names())
        QVERIFY2(!opening.isNull(name), qPrintable(name));
    QCOMPARE(upgrade(db), QStringList());
}

void TestUpgrade::failureLeavesEverything() {
    TestDatabase place(currentEngine());
    Database &db = place.db();
    makeOldRelease(db);
    insertOldBooks(db);
    const QStringList before = everything(db);
    const QStringList victims{u"insert into jxc_goodslist"_qs,
                              u"alter table jxc_posxssp add column t_addr"_qs,
                              u"create index if not exists"_qs, u"commit"_qs};
    for (const QString &victim : victims) {
        bool reached = false;
        db.setStatementObserver([&](const QString &sql, const Values &) {
            if (!sql.startsWith(victim))
                return;
            reached = true;
            throw DatabaseError({}, sql, {});
        });
        QVERIFY_EXCEPTION_THROWN(upgrade(db), DatabaseError);
        db.setStatementObserver({});
        QVERIFY2(reached, qPrintable(victim));
        QCOMPARE(everything(db), before);
    }
    QCOMPARE(upgrade(db).size(), 65); // and is done when tried again
}

void TestUpgrade::narrowTextsAreWidened() {
    TestDatabase place(currentEngine());
    Database &db = place.db();
    if (currentEngine() == Engine::Postgres) { // the embedded engine has no widths
        db.execute(u"alter table jxc_goods alter column g_name type varchar(20)"_qs);
        db.execute(u"alter table jxc_hyxx alter column hy_sr type date using null"_qs);
    }
    setVersion(db, u"2015-01-01"_qs);
    upgrade(db);
    const QString name(64, u'药');
    db.execute(u"insert into jxc_goods (g_name) values (?)"_qs, {name});
    QVERIFY(db.exists(u"select id from jxc_goods where g_name=?"_qs, {name}));
    db.execute(u"update jxc_hyxx set hy_sr='1980-1'"_qs);
    QCOMPARE(db.scalar(u"select hy_sr from jxc_hyxx"_qs), u"1980-1"_qs);
}

void TestUpgrade::setWithoutParametersIsRefused() {
    TestDatabase place(currentEngine());
    Database &db = place.db();
    db.execute(u"insert into jxc_jhd (j_sn,j_status) values ('CJ1',0)"_qs);
    db.execute(u"delete from jxc_xtcs"_qs);
    QVERIFY_EXCEPTION_THROWN(upgrade(db), DatabaseError);
    QCOMPARE(only(db, u"select * from jxc_jhd"_qs).integer(u"j_status"), 0);
}

QTEST_GUILESS_MAIN(TestUpgrade)
#include "test_upgrade.moc"
