#include "faults/fault_shop.h"

#include <QFile>
#include <QProcess>
#include <QTest>

using namespace jxc;
using namespace jxc::test;
using namespace Qt::Literals::StringLiterals;

namespace {

const QString fullText = u"磁盘空间不足，本次操作没有保存！"_s;

/// Approves drafts until the disk is full and answers the one that found no room; nothing of it may
/// have been written.
QString fillUp(FaultShop &shop, const QStringList &drafts) {
    for (const QString &number : drafts) {
        const Digest before = digestOf(shop.db());
        const Outcome outcome = shop.approve(number);
        if (outcome.isDone())
            continue;
        if (outcome.kind != Outcome::Kind::failed || outcome.text != fullText)
            qFatal("%s", qPrintable(outcome.text));
        const QString changed = differing(before, digestOf(shop.db()));
        if (!changed.isEmpty())
            qFatal("changed: %s", qPrintable(changed));
        return number;
    }
    return {};
}

QStringList manyDrafts(FaultShop &shop, int lines) {
    QStringList numbers;
    for (int i = 0; i < 60; ++i) {
        Draft d = shop.draft(u"CJ"_s);
        d.lines.resize(static_cast<size_t>(lines), d.lines.front());
        numbers << shop.save(d);
    }
    return numbers;
}

bool command(const QString &program, const QStringList &arguments) {
    return QProcess::execute(program, arguments) == 0;
}

/// A disk of its own, which a balloon fills but for a little.
class SmallDisk {
public:
    explicit SmallDisk(const QString &owner = {}) {
        m_mounted =
            m_folder.isValid() && command(u"mount"_s, {u"-t"_s, u"tmpfs"_s, u"-o"_s, u"size=24m"_s,
                                                       u"tmpfs"_s, m_folder.path()});
        if (m_mounted && !owner.isEmpty())
            m_mounted = command(u"chown"_s, {owner, m_folder.path()}) &&
                        command(u"chmod"_s, {u"700"_s, m_folder.path()});
    }
    ~SmallDisk() {
        if (m_mounted)
            command(u"umount"_s, {u"-l"_s, m_folder.path()});
    }
    SmallDisk(const SmallDisk &) = delete;
    SmallDisk &operator=(const SmallDisk &) = delete;

    [[nodiscard]] bool isMounted() const { return m_mounted; }
    [[nodiscard]] QString path() const { return m_folder.path(); }
    void fillBut(int kilobytes) {
        QFile balloon(path() + u"/balloon"_s);
        if (!balloon.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
            qFatal("no balloon");
        const QByteArray block(4096, 'x');
        qint64 size = 0;
        while (balloon.write(block) == block.size())
            size += block.size();
        balloon.resize(size - qint64{kilobytes} * 1024);
    }
    void makeRoom() { QFile::remove(path() + u"/balloon"_s); }

private:
    QTemporaryDir m_folder{QStringLiteral("/tmp/jxc-small-XXXXXX")};
    bool m_mounted = false;
};

} // namespace

class TestFullDisk : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void fileMayNotGrow();
    void fileSystemIsFull();
    void serverIsFull();
};

void TestFullDisk::fileMayNotGrow() {
    FaultShop shop(Engine::Sqlite);
    const QStringList drafts = manyDrafts(shop, 20);
    const auto limit = [&](const QString &pages) {
        return shop.db().scalar(u"pragma max_page_count="_s + pages);
    };
    const QString now = shop.db().scalar(u"pragma page_count"_s);
    QCOMPARE(limit(now), now);
    const QString refused = fillUp(shop, drafts);
    QVERIFY(!refused.isEmpty());
    QVERIFY(!shop.isApproved(refused));
    QCOMPARE(faultsOf(shop.witness()), QString());
    limit(u"1000000"_s);
    FaultShop::demand(shop.approve(refused));
    QCOMPARE(faultsOf(shop.witness()), QString());
}

/// The write-ahead log finds no room, also while it commits.
void TestFullDisk::fileSystemIsFull() {
    SmallDisk disk;
    if (!disk.isMounted())
        QSKIP("no small file system can be mounted here");
    { const TestDatabase templateIsMade(Engine::Sqlite); }
    const QByteArray usual = qgetenv("TMPDIR");
    qputenv("TMPDIR", disk.path().toLocal8Bit());
    FaultShop shop(Engine::Sqlite);
    qputenv("TMPDIR", usual);
    QVERIFY(shop.url().startsWith(disk.path()));
    QStringList drafts = manyDrafts(shop, 20);
    for (const int kilobytes : {0, 4, 12, 28, 60, 200}) {
        // Room that the log took before would do for the approvals that follow.
        shop.db().scalar(u"pragma wal_checkpoint(truncate)"_s);
        disk.fillBut(kilobytes);
        const QString refused = fillUp(shop, drafts);
        QVERIFY(!refused.isEmpty());
        QVERIFY(!shop.isApproved(refused));
        QCOMPARE(faultsOf(shop.witness()), QString());
        disk.makeRoom();
        FaultShop::demand(shop.approve(refused));
        QCOMPARE(faultsOf(shop.witness()), QString());
        drafts.removeIf([&](const QString &number) { return shop.isApproved(number); });
    }
}

void TestFullDisk::serverIsFull() {
    const auto all = engines();
    if (std::find(all.begin(), all.end(), Engine::Postgres) == all.end())
        QSKIP("no PostgreSQL server: JXC_TEST_POSTGRES is not set");
    SmallDisk disk(u"postgres"_s);
    if (!disk.isMounted())
        QSKIP("no small file system can be mounted for the server here");
    FaultShop shop(Engine::Postgres);
    const QStringList drafts = manyDrafts(shop, 20);
    Database &db = shop.db();
    const QString space = u"small_%1"_s.arg(QCoreApplication::applicationPid());
    db.execute(u"create tablespace %1 location '%2'"_s.arg(space, disk.path()));
    db.execute(u"alter table jxc_goodslist set tablespace "_s + space);
    disk.fillBut(0);
    const QString refused = fillUp(shop, drafts);
    QVERIFY(!refused.isEmpty());
    QVERIFY(!shop.isApproved(refused));
    QCOMPARE(faultsOf(shop.witness()), QString());
    disk.makeRoom();
    FaultShop::demand(shop.approve(refused));
    QCOMPARE(faultsOf(shop.witness()), QString());
    db.execute(u"alter table jxc_goodslist set tablespace pg_default"_s);
    db.execute(u"drop tablespace "_s + space);
}

QTEST_GUILESS_MAIN(TestFullDisk)
#include "test_full_disk.moc"
