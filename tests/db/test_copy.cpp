#include "db/backup_file.h"
#include "db/copy.h"
#include "db/schema.h"
#include "db/transaction.h"
#include "support/test_database.h"

#include <QTest>
#include <atomic>
#include <thread>

using namespace jxc;
using namespace jxc::test;

namespace {

/// Rows with what a copy could lose: nulls beside empty texts, figures that doubles round, quotes,
/// backslashes, characters outside the basic plane, gaps in the ids.
void fillAwkwardly(Database &db) {
    Transaction transaction(db);
    for (int i = 0; i < 2500; ++i) // more than one chunk
        db.insertRow(u"jxc_goodslist"_qs, {{u"g_sn"_qs, QString::number(i)},
                                           {u"gl_sl"_qs, Decimal::fromText(u"0.1")},
                                           {u"gl_dj"_qs, Decimal::fromText(u"0.000007")}});
    db.insertRow(u"jxc_goods"_qs, {{u"g_sn"_qs, u"28000010"},
                                   {u"g_name"_qs, u"草甘膦 \"41%\" \\ {a,b} '𠮷'"},
                                   {u"g_jm"_qs, u""},
                                   {u"g_sj"_qs, Value()},
                                   {u"g_jj"_qs, Decimal::fromText(u"8589934591.123457")}});
    db.insertRow(u"jxc_jxqd"_qs, {{u"gl_djh"_qs, u"JX1"}});
    db.insertRow(u"jxc_log"_qs, {{u"log_note"_qs, u"一"}});
    db.insertRow(u"jxc_log"_qs, {{u"log_note"_qs, u"二"}});
    db.execute(u"delete from jxc_log where log_note='二'"_qs);
    transaction.commit();
}

/// Every row of every table, figures in the one form that both engines can be read in.
QStringList content(Database &db) {
    QStringList lines;
    for (const Table &t : schema().tables())
        for (const Row &row : db.rows(QStringLiteral("select * from %1 order by id").arg(t.name))) {
            QStringList fields{t.name, row.text(u"id")};
            for (const Column &column : t.columns)
                fields << (row.isNull(column.name) ? QStringLiteral("null")
                           : column.isText()       ? row.text(column.name)
                                                   : row.decimal(column.name).toText());
            lines << fields.join(u'|');
        }
    return lines;
}

std::vector<std::pair<Engine, Engine>> ways() {
    std::vector<std::pair<Engine, Engine>> all;
    for (const Engine from : engines())
        for (const Engine to : engines())
            all.emplace_back(from, to);
    return all;
}

} // namespace

class TestCopy : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void copiesEveryWay();
    void differencesAreNamed_data() { addEngineRows(); }
    void differencesAreNamed();
    void failedCopyLeavesTheTarget_data() { addEngineRows(); }
    void failedCopyLeavesTheTarget();
    void repeatedIdsOfKeylessTables_data() { addEngineRows(); }
    void repeatedIdsOfKeylessTables();
    void backupIsCompleteWhileOthersCommit_data() { addEngineRows(); }
    void backupIsCompleteWhileOthersCommit();
    void backupFilesAreChecked();
};

void TestCopy::copiesEveryWay() {
    for (const auto &[fromEngine, toEngine] : ways()) {
        TestDatabase from(fromEngine);
        TestDatabase to(toEngine, TestDatabase::Content::nothing);
        fillAwkwardly(from.db());
        QVERIFY(!holdsAccountSet(to.db()));
        int calls = 0;
        copyAccountSet(from.db(), to.db(), [&](int, int, const QString &) { ++calls; });
        QCOMPARE(calls, static_cast<int>(schema().tables().size()));
        QVERIFY(holdsAccountSet(to.db()));
        to.reopen();
        QCOMPARE(content(to.db()), content(from.db()));
        QCOMPARE(compareAccountSets(from.db(), to.db()), QStringList());
        // The id of the row that is gone is not given out again.
        QCOMPARE(to.db().insertRow(u"jxc_log"_qs, {{u"log_note"_qs, u"三"}}), 3);
        // Once more over what stands there.
        copyAccountSet(from.db(), to.db());
        QCOMPARE(content(to.db()), content(from.db()));
    }
}

void TestCopy::differencesAreNamed() {
    TestDatabase from(currentEngine());
    fillAwkwardly(from.db());
    TestDatabase to(Engine::Sqlite, TestDatabase::Content::nothing);
    copyAccountSet(from.db(), to.db());
    to.db().execute(u"update jxc_goodslist set gl_sl=0.100001 where g_sn='7'"_qs);
    to.db().execute(u"update jxc_goods set g_name='草' where g_sn='28000010'"_qs);
    to.db().execute(u"delete from jxc_jxqd"_qs);
    const QString all = compareAccountSets(from.db(), to.db()).join(u'\n');
    QVERIFY2(all.contains(u"jxc_goodslist.gl_sl：250，250.000001"_qs), qPrintable(all));
    QVERIFY2(all.contains(u"jxc_goods.g_name"_qs), qPrintable(all));
    QVERIFY2(all.contains(u"jxc_jxqd 记录数：1，0"_qs), qPrintable(all));
}

void TestCopy::failedCopyLeavesTheTarget() {
    TestDatabase from(Engine::Sqlite);
    TestDatabase to(currentEngine());
    to.db().insertRow(u"jxc_goods"_qs, {{u"g_sn"_qs, u"1"}});
    const QStringList before = content(to.db());

    // The embedded engine holds texts of any length; the copy says where one is too long.
    from.db().execute(u"update jxc_ckxx set ck_sn='1234567890'"_qs);
    try {
        copyAccountSet(from.db(), to.db());
        QFAIL("a text too long was taken");
    } catch (const DatabaseError &error) {
        QVERIFY(error.userText().contains(u"jxc_ckxx"_qs));
    }
    QCOMPARE(content(to.db()), before);

    from.db().execute(u"alter table jxc_posxssp drop column t_zp"_qs);
    QVERIFY_EXCEPTION_THROWN(copyAccountSet(from.db(), to.db()), DatabaseError);
    QCOMPARE(content(to.db()), before);
}

void TestCopy::repeatedIdsOfKeylessTables() {
    if (currentEngine() == Engine::Sqlite)
        QSKIP("ids cannot repeat there");
    TestDatabase from(currentEngine());
    TestDatabase to(Engine::Sqlite, TestDatabase::Content::nothing);
    for (const auto *number : {u"JX1", u"JX2"})
        from.db().insertRow(u"jxc_jxqd"_qs, {{u"id"_qs, 5}, {u"gl_djh"_qs, number}});
    copyAccountSet(from.db(), to.db());
    QCOMPARE(to.db().rows(u"select id from jxc_jxqd"_qs).size(), size_t{2});
    QCOMPARE(compareAccountSets(from.db(), to.db()), QStringList());
}

/// Another workstation books money from one account to another all the time; in every backup the
/// two still make nothing.
void TestCopy::backupIsCompleteWhileOthersCommit() {
    TestDatabase place(currentEngine());
    fillAwkwardly(place.db());
    place.db().execute(u"delete from jxc_xjyh"_qs);
    std::atomic<bool> stop = false;
    std::atomic<int> commits = 0;
    std::thread writer([&] {
        const auto db = place.connect();
        while (!stop) {
            Transaction transaction(*db);
            db->insertRow(u"jxc_xjyh"_qs, {{u"xj_je"_qs, Decimal(1)}});
            db->insertRow(u"jxc_xjyh"_qs, {{u"xj_je"_qs, Decimal(-1)}});
            transaction.commit();
            ++commits;
        }
    });
    const QTemporaryDir folder;
    QStringList faults;
    const auto fault = [&](const QString &text) { faults << text; };
    for (int i = 0; i < 5; ++i) {
        const int before = commits;
        while (commits < before + 3)
            std::this_thread::yield();
        const int known = commits;
        const QString file = folder.filePath(QStringLiteral("%1.DAT").arg(i));
        writeBackupFile(place.location(), file);
        if (checkBackupFile(file) != BackupFault::none)
            fault(u"not whole"_qs);
        Database copy(Location::ofFile(file));
        const auto row = copy.row(u"select count(*) as n,sum(xj_je) as total from jxc_xjyh"_qs);
        if (row->integer(u"n") < 2 * known)
            fault(u"a commit is missing"_qs);
        if (row->integer(u"n") % 2 != 0 || !row->decimal(u"total").isZero())
            fault(u"half a commit"_qs);
    }
    stop = true;
    writer.join();
    QCOMPARE(faults, QStringList());
}

void TestCopy::backupFilesAreChecked() {
    TestDatabase place(Engine::Sqlite);
    fillAwkwardly(place.db());
    const QTemporaryDir folder;
    const QString good = folder.filePath(u"药 1%.DAT"_qs);
    writeBackupFile(place.location(), good);
    QFile file(good);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
    file.close();
    QCOMPARE(checkBackupFile(good), BackupFault::none);
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList{u"药 1%.DAT"_qs});

    const auto checked = [&](const QByteArray &content) {
        const QString name = folder.filePath(u"bad.DAT"_qs);
        QFile bad(name);
        if (!bad.open(QIODevice::WriteOnly | QIODevice::Truncate))
            qFatal("cannot write");
        bad.write(content);
        bad.close();
        return checkBackupFile(name);
    };
    QCOMPARE(checked({}), BackupFault::notOurs);
    QCOMPARE(checked("PK\x03\x04 some archive"), BackupFault::notOurs);
    QCOMPARE(checked(bytes.left(bytes.size() / 2)), BackupFault::damaged);
    QByteArray scribbled = bytes;
    scribbled.replace(bytes.size() / 2, 4096, QByteArray(4096, 'x'));
    QCOMPARE(checked(scribbled), BackupFault::damaged);
    QCOMPARE(checkBackupFile(folder.filePath(u"missing.DAT"_qs)), BackupFault::notOurs);

    TestDatabase other(Engine::Sqlite, TestDatabase::Content::nothing);
    other.db().execute(u"create table notes (id integer)"_qs);
    QCOMPARE(checkBackupFile(other.location().file), BackupFault::notOurs);
}

QTEST_GUILESS_MAIN(TestCopy)
#include "test_copy.moc"
