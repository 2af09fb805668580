#include "db/transaction.h"
#include "faults/fault_shop.h"
#include "support/ctl_process.h"

#include <QTest>
#include <thread>

using namespace jxc;
using namespace jxc::test;
using namespace Qt::Literals::StringLiterals;

namespace {

const QString busyText = u"数据库正忙，其他操作员正在使用，请稍后再试！"_s;

/// Approves all, takes every second one back, approves these again.
QByteArray commandsFor(const QStringList &numbers) {
    QStringList commands;
    for (const QString &number : numbers)
        commands << u"approve "_s + number;
    for (qsizetype i = 0; i < numbers.size(); i += 2)
        commands << u"cancel "_s + numbers[i] << u"approve "_s + numbers[i];
    return commands.join(u'\n').toUtf8() + '\n';
}

/// What one workstation stores while the others do.
void saveAtOnce(const Location &location, const Draft &draft, int times, QStringList *numbers) {
    Database db(location);
    const FixedClock clock(QDateTime(QDate(2026, 3, 20), QTime(9, 0)));
    Session session(db, clock);
    session.currentOperatorName = u"admin"_s;
    session.currentOperatorNo = session.currentRoleNo = administratorNo;
    RecordingPrompter yes;
    for (int i = 0; i < times; ++i) {
        QString number;
        const Outcome outcome = saveDraft(session, yes, draft, &number);
        *numbers << (outcome.isDone() ? number : outcome.text);
    }
}

} // namespace

class TestManyAtOnce : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void approvalsOfTheSameGoods_data() { addEngineRows(); }
    void approvalsOfTheSameGoods();
    void theSameDocument_data() { addEngineRows(); }
    void theSameDocument();
    void numbersAreDrawnOnce_data() { addEngineRows(); }
    void numbersAreDrawnOnce();
    void lockedTooLong_data() { addEngineRows(); }
    void lockedTooLong();
    void anotherProgramLeaves_data() { addEngineRows(); }
    void anotherProgramLeaves();
};

void TestManyAtOnce::approvalsOfTheSameGoods() {
    const size_t workstations = currentEngine() == Engine::Sqlite ? 2 : 8;
    FaultShop shop(currentEngine());
    std::vector<QStringList> work(workstations);
    for (QStringList &numbers : work)
        for (int i = 0; i < 4; ++i)
            numbers << shop.save(u"CJ"_s) << shop.save(u"XS"_s) << shop.save(u"XT"_s);
    std::vector<std::unique_ptr<QProcess>> processes;
    for (const QStringList &numbers : work) {
        processes.push_back(std::make_unique<QProcess>());
        startCtl(*processes.back(), shop.url(), {u"--yes"_s, u"batch"_s, u"-"_s});
        processes.back()->write(commandsFor(numbers));
        processes.back()->closeWriteChannel();
    }
    for (size_t i = 0; i < workstations; ++i) {
        QVERIFY(processes[i]->waitForFinished(60'000));
        const QString out = QString::fromUtf8(processes[i]->readAllStandardOutput());
        QVERIFY2(processes[i]->exitCode() == 0, qPrintable(out));
        QCOMPARE(out.count(u" ok\n"), work[i].size() * 2);
        for (const QString &number : work[i])
            QVERIFY2(shop.isApproved(number), qPrintable(number));
    }
    QCOMPARE(faultsOf(shop.witness()), QString());
}

/// Two clerks press the button on one document: one of them is told, the goods move once.
void TestManyAtOnce::theSameDocument() {
    FaultShop shop(currentEngine());
    QStringList numbers;
    for (int i = 0; i < 8; ++i)
        numbers << shop.save(u"XS"_s);
    std::vector<std::unique_ptr<QProcess>> processes;
    for (int i = 0; i < 3; ++i) {
        processes.push_back(std::make_unique<QProcess>());
        startCtl(*processes.back(), shop.url(), QStringList{u"--yes"_s, u"approve"_s} + numbers);
    }
    QStringList answers;
    for (const auto &process : processes) {
        QVERIFY(process->waitForFinished(60'000));
        answers +=
            QString::fromUtf8(process->readAllStandardOutput()).split(u'\n', Qt::SkipEmptyParts);
    }
    QCOMPARE(answers.size(), 24);
    for (const QString &number : numbers) {
        QCOMPARE(answers.count(number + u" ok"_s), 1);
        QCOMPARE(
            answers.count(number + u" refused: 单据已被其他操作员修改或审核，请刷新后重试！"_s), 2);
    }
    QCOMPARE(faultsOf(shop.witness()), QString());
}

void TestManyAtOnce::numbersAreDrawnOnce() {
    constexpr size_t workstations = 8;
    constexpr int each = 6;
    FaultShop shop(currentEngine());
    const Draft draft = shop.draft(u"XS"_s);
    std::vector<QStringList> numbers(workstations);
    std::vector<std::thread> threads;
    for (QStringList &own : numbers)
        threads.emplace_back(saveAtOnce, shop.place().location(), draft, each, &own);
    for (std::thread &thread : threads)
        thread.join();
    QStringList all;
    for (const QStringList &own : numbers)
        all += own;
    for (const QString &number : all)
        QVERIFY2(number.startsWith(u"XS260310"), qPrintable(number));
    QCOMPARE(all.size(), static_cast<qsizetype>(workstations) * each);
    QCOMPARE(all.removeDuplicates(), 0);
    for (const QString &number : all) {
        QCOMPARE(shop.db().scalar(u"select count(*) from jxc_lsxsd where gl_djh=?"_s, {number}),
                 u"1"_s);
        QCOMPARE(shop.db().scalar(u"select count(*) from jxc_lsxssp where gl_djh=?"_s, {number}),
                 u"3"_s);
    }
}

/// Somebody else keeps the lock longer than anyone waits; the server's wait takes its fifteen
/// seconds.
void TestManyAtOnce::lockedTooLong() {
    FaultShop shop(currentEngine());
    const QString number = shop.save(u"CJ"_s);
    const Digest before = digestOf(shop.witness());
    if (currentEngine() == Engine::Sqlite)
        shop.db().rows(u"pragma busy_timeout=100"_s);
    {
        const Transaction held(shop.witness());
        const Outcome outcome = shop.approve(number);
        QCOMPARE(outcome.kind, Outcome::Kind::failed);
        QCOMPARE(outcome.text, busyText);
        QVERIFY(!shop.db().inTransaction());
    }
    QCOMPARE(differing(before, digestOf(shop.witness())), QString());
    FaultShop::demand(shop.approve(number));
    QCOMPARE(faultsOf(shop.witness()), QString());
}

/// What is saved after another program came and went is there for the next one too, however often
/// this program opened the account set.
void TestManyAtOnce::anotherProgramLeaves() {
    FaultShop shop(currentEngine());
    { const auto third = shop.place().connect(); }
    QCOMPARE(runCtlOn(shop.url(), {u"verify"_s}).exitCode, 0);
    const QString number = shop.save(u"CJ"_s);
    QCOMPARE(runCtlOn(shop.url(), {u"approve"_s, number}).out, number + u" ok\n"_s);
    QVERIFY(shop.isApproved(number));
    FaultShop::demand(shop.cancel(number));
    QCOMPARE(runCtlOn(shop.url(), {u"approve"_s, number}).out, number + u" ok\n"_s);
}

QTEST_GUILESS_MAIN(TestManyAtOnce)
#include "test_many_at_once.moc"
