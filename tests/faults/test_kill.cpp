#include "faults/fault_shop.h"
#include "support/ctl_process.h"

#include <QRandomGenerator>
#include <QSet>
#include <QTest>
#include <QThread>

using namespace jxc;
using namespace jxc::test;
using namespace Qt::Literals::StringLiterals;

namespace {

/// The moments of the kills; JXC_SEED plays a run again.
QRandomGenerator &moments() {
    static QRandomGenerator generator = [] {
        bool given = false;
        quint32 seed = qEnvironmentVariable("JXC_SEED").toUInt(&given);
        if (!given)
            seed = QRandomGenerator::global()->generate();
        qInfo("JXC_SEED=%u", seed);
        return QRandomGenerator(seed);
    }();
    return generator;
}

/// Feeds the tool commands and kills it: after some answers and a little, or while it starts.
/// Answers the numbers that it reported done.
QStringList workUntilKilled(const QString &url, const QStringList &commands) {
    QProcess process;
    startCtl(process, url, {u"--yes"_s, u"batch"_s, u"-"_s});
    process.write(commands.join(u'\n').toUtf8() + '\n');
    process.closeWriteChannel();
    const int answers = static_cast<int>(moments().bounded(16U));
    QByteArray out;
    while (out.count('\n') < answers && process.state() == QProcess::Running) {
        process.waitForReadyRead(5000);
        out += process.readAllStandardOutput();
    }
    QThread::usleep(moments().bounded(answers == 0 ? 60'000U : 6'000U));
    process.kill();
    process.waitForFinished();
    out += process.readAllStandardOutput();
    QStringList reported;
    // A line that the kill cut short reports nothing.
    for (const QByteArray &line : out.first(out.lastIndexOf('\n') + 1).split('\n')) {
        if (line.isEmpty())
            continue;
        if (!line.endsWith(" ok"))
            qFatal("%s", line.constData());
        reported << QString::fromUtf8(line.chopped(3));
    }
    return reported;
}

} // namespace

class TestKill : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void whatWasReportedStays_data() { addEngineRows(); }
    void whatWasReportedStays();
    void aDayAtTheCounterStaysWhole_data() { addEngineRows(); }
    void aDayAtTheCounterStaysWhole();

private:
    static void workOff(FaultShop &shop, const QString &command, QStringList numbers,
                        bool approved);
};

/// Kills the tool and starts it anew until all numbers are approved, or all are drafts again.
void TestKill::workOff(FaultShop &shop, const QString &command, QStringList numbers,
                       bool approved) {
    int kills = 0;
    while (!numbers.isEmpty()) {
        QVERIFY2(++kills < 300, "no progress");
        QStringList commands;
        for (const QString &number : numbers)
            commands << command + u' ' + number;
        const QStringList reported = workUntilKilled(shop.url(), commands);
        // The check waits for what a server may still be finishing for the dead program.
        const CtlAnswer verified = runCtlOn(shop.url(), {u"verify"_s});
        QVERIFY2(verified.exitCode == 0, qPrintable(verified.shown()));
        QCOMPARE(verified.out, u"0 differences\n"_s);
        for (const QString &number : reported)
            QVERIFY2(shop.isApproved(number) == approved, qPrintable(number));
        const qsizetype before = numbers.size();
        numbers.removeIf([&](const QString &n) { return shop.isApproved(n) == approved; });
        // At most one more than it could report: the one it was killed over.
        QVERIFY(before - numbers.size() - reported.size() <= 1);
    }
    QVERIFY2(kills > 3, qPrintable(u"killed %1 times only"_s.arg(kills)));
}

void TestKill::whatWasReportedStays() {
    FaultShop shop(currentEngine());
    QStringList numbers;
    for (int i = 0; i < 12; ++i)
        numbers << shop.save(u"CJ"_s) << shop.save(u"XS"_s) << shop.save(u"XT"_s)
                << shop.save(u"CT"_s) << shop.saveSettlement(u"SK"_s);
    workOff(shop, u"approve"_s, numbers, true);
    if (QTest::currentTestFailed())
        return;
    std::reverse(numbers.begin(), numbers.end());
    workOff(shop, u"cancel"_s, numbers, false);
}

/// Kills a shop in the middle of its trade: receipts, members, recharges, gifts, day ends among it.
void TestKill::aDayAtTheCounterStaysWhole() {
    FaultShop shop(currentEngine());
    const auto receiptsNow = [&] {
        return shop.db().scalar(u"select count(*) from jxc_posxsd"_s).toInt();
    };
    int receipts = 0;
    for (int kill = 0; kill < 6; ++kill) {
        QCOMPARE(runCtlOn(shop.url(), {u"--yes"_s, u"reset"_s, u"all"_s}).exitCode, 0);
        QProcess process;
        startCtl(process, shop.url(),
                 {u"--yes"_s, u"demo"_s, u"--days"_s, u"60"_s, u"--seed"_s, QString::number(kill)});
        if (kill % 2 == 0) // else while it still fills the shop, or at once
            for (int i = 0; i < 3'000 && receiptsNow() == 0; ++i)
                QThread::msleep(10);
        QThread::msleep(moments().bounded(700U));
        process.kill();
        process.waitForFinished();
        const CtlAnswer verified = runCtlOn(shop.url(), {u"verify"_s});
        QVERIFY2(verified.out == u"0 differences\n"_s, qPrintable(verified.shown()));
        receipts += receiptsNow();
    }
    QVERIFY(receipts > 0);
}

QTEST_GUILESS_MAIN(TestKill)
#include "test_kill.moc"
