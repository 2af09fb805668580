#include "model/workload.h"
#include "support/test_database.h"

#include <QRandomGenerator>
#include <QTest>

using namespace jxc;
using namespace jxc::test;

/// A shop at random, kept twice: by the program and by a plain reference. JXC_SEED repeats a run,
/// JXC_ROUNDS sets the number of actions of each.
class TestRandomBooks : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void agreeWithTheReference_data();
    void agreeWithTheReference();
};

void TestRandomBooks::agreeWithTheReference_data() {
    QTest::addColumn<Engine>("engine");
    QTest::addColumn<quint32>("seed");
    std::vector<quint32> seeds;
    bool given = false;
    const auto wanted = qEnvironmentVariable("JXC_SEED").toUInt(&given);
    if (given)
        seeds = {wanted};
    else
        for (int run = 0; run < 3; ++run)
            seeds.push_back(QRandomGenerator::global()->generate());
    for (const Engine engine : engines())
        for (const quint32 seed : seeds)
            QTest::addRow("%s, JXC_SEED=%u", qPrintable(engineName(engine)), seed)
                << engine << seed;
}

void TestRandomBooks::agreeWithTheReference() {
    QFETCH(quint32, seed);
    bool given = false;
    int rounds = qEnvironmentVariableIntValue("JXC_ROUNDS", &given);
    if (!given)
        rounds = 120;
    TestDatabase place(currentEngine());
    Workload shop(seed, place.db());
    qInfo("JXC_SEED=%u: %d actions; %s", seed, rounds, qPrintable(shop.parametersText()));
    QString difference;
    int done = 0;
    while (done < rounds && difference.isEmpty()) {
        difference = shop.step();
        ++done;
    }
    if (difference.isEmpty())
        difference = shop.verify();
    if (difference.isEmpty())
        difference = shop.takeAllBack();
    if (difference.isEmpty())
        difference = shop.verify();
    const QString trail = shop.trail().mid(shop.trail().size() - 12).join(QStringLiteral("\n  "));
    QVERIFY2(
        difference.isEmpty(),
        qPrintable(QStringLiteral("JXC_SEED=%1, action %2\nlast actions:\n  %3\ndifference in %4")
                       .arg(seed)
                       .arg(done)
                       .arg(trail, difference)));
}

QTEST_GUILESS_MAIN(TestRandomBooks)
#include "test_random_books.moc"
