#include "core/backup.h"
#include "core/restore.h"
#include "db/backup_file.h"
#include "db/transaction.h"
#include "support/recording_prompter.h"
#include "support/test_database.h"

#include <QDir>
#include <QTest>
#include <atomic>
#include <set>
#include <thread>

using namespace jxc;
using namespace jxc::test;

namespace {

struct Shop {
    explicit Shop(Engine engine = currentEngine())
        : place(engine) {}

    TestDatabase place;
    Database &db = place.db();
    FixedClock clock{QDateTime({2024, 11, 14}, {21, 30, 5})};
    Session session{db, clock};
    RecordingPrompter yes{true};
    QTemporaryDir folder;
    QTemporaryDir data; ///< where replaced sets are kept

    void addGoods(const char16_t *name) { db.insertRow(u"jxc_goods"_qs, {{u"g_name"_qs, name}}); }
    QStringList goods() { return goodsOf(db); }
    static QStringList goodsOf(Database &db) {
        QStringList names;
        for (const Row &row : db.rows(u"select g_name from jxc_goods order by id"_qs))
            if (row.text(u"g_name").startsWith(u"药"))
                names << row.text(u"g_name");
        return names;
    }
    RestoreOutcome restore(const QString &file) {
        return restoreDatabase(session, yes, {file, data.path(), {}});
    }
    [[nodiscard]] QString backup(const char *name = "backup.DAT") const {
        const QString file = folder.filePath(QString::fromLatin1(name));
        writeBackupFile(place.location(), file);
        return file;
    }
    [[nodiscard]] QStringList files() const {
        return QDir(folder.path()).entryList(QDir::Files, QDir::Name);
    }
};

void write(const QString &name, const QByteArray &content) {
    QFile file(name);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        qFatal("cannot write");
    file.write(content);
}

void writtenAt(const QString &name, const QDateTime &time) {
    QFile file(name);
    if (!file.open(QIODevice::ReadWrite))
        qFatal("cannot open");
    if (!file.setFileTime(time, QFileDevice::FileModificationTime))
        qFatal("cannot set the time");
}

QByteArray read(const QString &name) {
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read");
    return file.readAll();
}

} // namespace

class TestBackup : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void manual_data() { addEngineRows(); }
    void manual();
    void automatic_data() { addEngineRows(); }
    void automatic();
    void deletesOldFilesOnly();
    void restoresAndKeeps_data() { addEngineRows(); }
    void restoresAndKeeps();
    void restoresIntoTheOtherEngine();
    void refusesWhatIsNoBackup_data() { addEngineRows(); }
    void refusesWhatIsNoBackup();
    void upgradesAnOlderBackup_data() { addEngineRows(); }
    void upgradesAnOlderBackup();
    void failedRestoreChangesNothing();
    void nothingCommittedIsMissing_data() { addEngineRows(); }
    void nothingCommittedIsMissing();
};

void TestBackup::manual() {
    Shop shop;
    shop.addGoods(u"药一");
    BackupSettings settings{{}, true, true, 4, 7};
    QCOMPARE(manualBackup(shop.session, shop.yes, settings).text, u"备份路径必须填写！"_qs);
    // The settings are kept though the folder is wrong.
    settings.folder = shop.folder.filePath(u"没有"_qs);
    QCOMPARE(manualBackup(shop.session, shop.yes, settings).text, u"备份失败，文件夹不存在！"_qs);
    loadGlobals(shop.session);
    QCOMPARE(shop.session.backup.folder, settings.folder);
    QVERIFY(shop.session.backup.automatic && shop.session.backup.onExit);
    QCOMPARE(shop.session.backup.intervalHours, 4);

    writtenAt(shop.backup("old.DAT"), shop.clock.now().addDays(-30));
    settings = {shop.folder.path(), false, true, 2, 7};
    const Outcome done = manualBackup(shop.session, shop.yes, settings);
    QVERIFY(done.isDone());
    QCOMPARE(done.text, u"备份完成！"_qs);
    QVERIFY(!shop.session.backup.automatic);
    QCOMPARE(shop.db.scalar(u"select count(*) from jxc_backup"_qs), u"1"_qs);
    const QString name = u"jxc24_11_14_21_30_05.DAT"_qs;
    QCOMPARE(shop.files(), (QStringList{name, u"old.DAT"_qs}));

    shop.addGoods(u"药二");
    shop.session.currentDatabaseFile = u"jxc.mdb"_qs;
    QVERIFY(
        manualBackup(shop.session, shop.yes, settings).isDone()); // the same second: overwritten
    QCOMPARE(shop.files().size(), 2);
    Database copy(Location::ofFile(shop.folder.filePath(name)));
    QCOMPARE(Shop::goodsOf(copy), shop.goods());
}

void TestBackup::automatic() {
    Shop shop;
    QCOMPARE(backupDatabase(shop.session), QString()); // no settings: nothing, silently
    QVERIFY(saveBackupSettings(shop.session, shop.yes, {shop.folder.path(), true, true, 1, 7})
                .isDone());
    shop.session.currentDatabaseFile = u"分店A.mdb"_qs;
    writtenAt(shop.backup("old.DAT"), shop.clock.now().addDays(-8));
    const QString written = backupDatabase(shop.session);
    QCOMPARE(written, shop.folder.filePath(u"分店A24_11_14_21_30_05.DAT"_qs));
    QCOMPARE(checkBackupFile(written), BackupFault::none);
    QCOMPARE(shop.files().size(), 1);
    shop.db.execute(u"update jxc_backup set back_path='/没有/这个/文件夹'"_qs);
    QCOMPARE(backupDatabase(shop.session), QString());
}

void TestBackup::deletesOldFilesOnly() {
    Shop shop(Engine::Sqlite);
    const QDateTime now = shop.clock.now();
    const std::vector<std::pair<QString, QDateTime>> ages = {
        {u"eight.DAT"_qs, now.addDays(-8)},
        {u"justover.DAT"_qs, now.addDays(-7).addSecs(-1)},
        {u"seven.DAT"_qs, now.addDays(-7)},
        {u"old.txt"_qs, now.addDays(-90)},
        {u"old.DAT.bak"_qs, now.addDays(-90)}};
    for (const auto &[name, time] : ages) {
        write(shop.folder.filePath(name), "x");
        writtenAt(shop.folder.filePath(name), time);
    }
    QCOMPARE(deleteBackupFiles(shop.session, shop.folder.path()), 0); // no settings
    shop.db.execute(u"insert into jxc_backup (back_days) values (0)"_qs);
    QCOMPARE(deleteBackupFiles(shop.session, shop.folder.path()), 0);
    shop.db.execute(u"update jxc_backup set back_days=7"_qs);
    QCOMPARE(deleteBackupFiles(shop.session, shop.folder.path()), 2);
    QCOMPARE(shop.files(), (QStringList{u"old.DAT.bak"_qs, u"old.txt"_qs, u"seven.DAT"_qs}));
}

void TestBackup::restoresAndKeeps() {
    Shop shop;
    const auto otherWorkstation = shop.place.connect();
    shop.addGoods(u"药一");
    const QString file = shop.backup();
    const QByteArray bytes = read(file);
    shop.addGoods(u"药二");
    QCOMPARE(Shop::goodsOf(*otherWorkstation).size(), 2);

    QCOMPARE(shop.restore(u" "_qs).outcome.text, u"恢复路径必须填写！"_qs);
    RecordingPrompter no(false);
    QCOMPARE(restoreDatabase(shop.session, no, {file, shop.data.path(), {}}).outcome.kind,
             Outcome::Kind::declined);
    QCOMPARE(shop.goods().size(), 2);

    // A backup of that second is in the folder already; it is not overwritten.
    write(shop.data.filePath(u"jxc24_11_14_21_30_05.DAT"_qs), "precious");
    const RestoreOutcome restored = shop.restore(file);
    QVERIFY2(restored.outcome.isDone(), qPrintable(restored.outcome.text));
    QCOMPARE(restored.outcome.text, u"恢复完成！"_qs);
    QCOMPARE(shop.goods(), QStringList{u"药一"_qs});
    QCOMPARE(Shop::goodsOf(*otherWorkstation), QStringList{u"药一"_qs});
    QCOMPARE(read(file), bytes);
    QCOMPARE(restored.keptFile, shop.data.filePath(u"jxc24_11_14_21_30_06.DAT"_qs));
    QCOMPARE(QDir(shop.data.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot).size(), 2);

    // Both go on working, and what was replaced can be had back.
    otherWorkstation->insertRow(u"jxc_goods"_qs, {{u"g_name"_qs, u"药三"}});
    QCOMPARE(shop.goods().size(), 2);
    QVERIFY(shop.restore(restored.keptFile).outcome.isDone());
    QCOMPARE(shop.goods(), (QStringList{u"药一"_qs, u"药二"_qs}));
    shop.place.reopen();
    QCOMPARE(Shop::goodsOf(shop.place.db()), (QStringList{u"药一"_qs, u"药二"_qs}));
}

void TestBackup::restoresIntoTheOtherEngine() {
    for (const Engine from : engines()) {
        for (const Engine to : engines()) {
            Shop source(from);
            source.addGoods(u"药一");
            Shop target(to);
            QVERIFY(target.restore(source.backup()).outcome.isDone());
            QCOMPARE(target.goods(), QStringList{u"药一"_qs});
        }
    }
}

void TestBackup::refusesWhatIsNoBackup() {
    Shop shop;
    shop.addGoods(u"药一");
    const QByteArray good = read(shop.backup());
    QByteArray scribbled = good;
    scribbled.replace(good.size() / 2, 8192, QByteArray(8192, 'x'));
    const std::vector<std::pair<QByteArray, QString>> files = {
        {"no database at all", u"备份文件不可识别，不能恢复！"_qs},
        {{}, u"备份文件不可识别，不能恢复！"_qs},
        {good.left(good.size() / 3), u"备份文件已损坏，不能恢复！"_qs},
        {scribbled, u"备份文件已损坏，不能恢复！"_qs}};
    for (const auto &[content, text] : files) {
        const QString name = shop.folder.filePath(u"chosen.DAT"_qs);
        write(name, content);
        const RestoreOutcome refused = shop.restore(name);
        QCOMPARE(refused.outcome.kind, Outcome::Kind::refused);
        QCOMPARE(refused.outcome.text, text);
    }
    QCOMPARE(shop.restore(shop.folder.filePath(u"missing.DAT"_qs)).outcome.kind,
             Outcome::Kind::refused);
    QVERIFY(shop.yes.asked.isEmpty());
    QCOMPARE(shop.goods(), QStringList{u"药一"_qs});
    QVERIFY(QDir(shop.data.path()).isEmpty());
}

void TestBackup::upgradesAnOlderBackup() {
    Shop shop;
    shop.addGoods(u"药一");
    const QString file = shop.backup();
    {
        Database old(Location::ofFile(file));
        old.execute(u"drop table jxc_posfont"_qs);
        old.execute(u"alter table jxc_posxssp drop column t_zp"_qs);
    }
    QVERIFY(shop.restore(file).outcome.isDone());
    QVERIFY(!needsUpgrade(shop.db));
    QCOMPARE(shop.db.scalar(u"select count(*) from jxc_posfont"_qs), u"2"_qs);
    QVERIFY(shop.db.columnNames(u"jxc_posxssp"_qs).contains(u"t_zp"_qs));
    QCOMPARE(shop.goods(), QStringList{u"药一"_qs});
}

/// Pages of another size cannot be copied into the open file; its tables are. What fails half-way
/// there leaves everything as it was, and no file of a set that was not replaced.
void TestBackup::failedRestoreChangesNothing() {
    Shop shop(Engine::Sqlite);
    shop.addGoods(u"药一");
    const QString file = shop.backup();
    {
        Database sized(Location::ofFile(file));
        (void)sized.scalar(u"pragma journal_mode=delete"_qs);
        (void)sized.scalar(u"pragma page_size=8192"_qs);
        sized.execute(u"vacuum"_qs);
    }
    shop.addGoods(u"药二");
    shop.db.setStatementObserver([](const QString &sql, const Values &) {
        if (sql.startsWith(u"insert into jxc_xtcs "))
            throw DatabaseError(u"磁盘空间不足"_qs, sql, {});
    });
    const RestoreOutcome failed = shop.restore(file);
    QCOMPARE(failed.outcome.kind, Outcome::Kind::failed);
    QCOMPARE(failed.outcome.text, u"磁盘空间不足"_qs);
    QCOMPARE(shop.goods(), (QStringList{u"药一"_qs, u"药二"_qs}));
    QVERIFY(QDir(shop.data.path()).isEmpty());
    shop.db.setStatementObserver({});
    QVERIFY(shop.restore(file).outcome.isDone());
    QCOMPARE(shop.goods(), QStringList{u"药一"_qs});
}

/// Another workstation goes on posting while a set is restored. What it committed is in the set
/// that was kept, or in the new one.
void TestBackup::nothingCommittedIsMissing() {
    Shop shop;
    const QString file = shop.backup();
    std::atomic<bool> stop = false;
    std::atomic<int> committed = 0;
    std::thread writer([&] {
        const auto db = shop.place.connect();
        while (!stop) {
            try {
                Transaction transaction(*db);
                db->insertRow(u"jxc_djbz"_qs, {{u"dj_pl"_qs, committed + 1}});
                transaction.commit();
                ++committed;
            } catch (const BusyError &) { // the restore holds the lock
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(1)); // a clerk is no faster
        }
    });
    while (committed < 5)
        std::this_thread::yield();
    const RestoreOutcome restored = shop.restore(file);
    const int after = committed;
    while (committed < after + 5)
        std::this_thread::yield();
    stop = true;
    writer.join();
    QVERIFY2(restored.outcome.isDone(), qPrintable(restored.outcome.text));

    std::set<qint64> found;
    const auto gather = [&](Database &db) {
        for (const Row &row : db.rows(u"select dj_pl from jxc_djbz where dj_pl>0"_qs))
            found.insert(row.integer(u"dj_pl"));
    };
    gather(shop.db);
    QVERIFY(!found.empty()); // the writer's connection survived
    Database kept(Location::ofFile(restored.keptFile));
    gather(kept);
    QCOMPARE(static_cast<int>(found.size()), committed.load());
}

QTEST_GUILESS_MAIN(TestBackup)
#include "test_backup.moc"
