// How long an approval takes, and how long the bare engine takes for the same statements.
#include "bare_engine.h"
#include "shop.h"

#include "stock/posting.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <algorithm>
#include <cstdio>
#include <sys/resource.h>

using namespace jxc;
using namespace jxc::bench;

namespace {

double quantile(std::vector<double> values, double q) {
    std::sort(values.begin(), values.end());
    return values[static_cast<size_t>(q * static_cast<double>(values.size() - 1))];
}

void report(const char *what, const std::vector<double> &values, const char *unit) {
    std::printf("  %-34s median %8.3f %s  (quartiles %.3f … %.3f)\n", what, quantile(values, 0.5),
                unit, quantile(values, 0.25), quantile(values, 0.75));
    std::fflush(stdout);
}

void approve(Shop &shop, const QString &number) {
    AgreeingPrompter yes;
    const Outcome outcome = approveDocument(shop.session(), yes, number);
    if (!outcome.isDone())
        qFatal("%s: %s", qPrintable(number), qPrintable(outcome.text));
}

/// Three shops alike: in one the program posts and is timed, in one it posts and is recorded, in
/// one the bare engine runs what was recorded.
class Pair {
public:
    Pair(Engine engine, const ShopSize &size)
        : m_timed(engine, size)
        , m_recorded(engine, size)
        , m_replayed(engine, size) {
        m_recorded.db().setStatementObserver([this](const QString &sql, const Values &values) {
            if (m_recording)
                m_statements.push_back({sql, values});
        });
        m_bare = BareEngine::open(m_replayed.location());
    }

    struct Times {
        double ours = 0, bare = 0; ///< milliseconds
    };

    Times post(int lines, int firstGoods, const QString &date) {
        for (Shop *shop : {&m_timed, &m_replayed})
            m_number = shop->draftReceipt(lines, firstGoods, date);
        m_recorded.draftReceipt(lines, firstGoods, date);
        Times times;
        QElapsedTimer timer;
        timer.start();
        approve(m_timed, m_number);
        times.ours = static_cast<double>(timer.nsecsElapsed()) / 1e6;

        m_statements.clear();
        m_recording = true;
        approve(m_recorded, m_number);
        m_recording = false;
        timer.start();
        for (const Recorded &statement : m_statements)
            m_bare->run(statement);
        times.bare = static_cast<double>(timer.nsecsElapsed()) / 1e6;
        return times;
    }

private:
    Shop m_timed, m_recorded, m_replayed;
    std::unique_ptr<BareEngine> m_bare;
    Recording m_statements;
    QString m_number;
    bool m_recording = false;
};

void measureReceipts(Engine engine, const char *title, const ShopSize &size, int lines,
                     const QString &date, int documents) {
    Pair pair(engine, size);
    std::vector<double> ours, bare, ratio;
    for (int i = -3; i < documents; ++i) {
        const Pair::Times t = pair.post(lines, lines > 1 ? (i + 3) % 3 * 50 : 0, date);
        if (i < 0)
            continue; // the first ones warm up
        ours.push_back(t.ours);
        bare.push_back(t.bare);
        ratio.push_back(t.ours / t.bare);
    }
    std::printf("%s, %s\n", title, qPrintable(test::engineName(engine)));
    report("program", ours, "ms");
    report("bare engine, same statements", bare, "ms");
    report("ratio", ratio, "  ");
}

/// Growth of the cost from a small to a large shop, program against bare engine, alternating.
void measureGrowth(Engine engine, const char *title, const ShopSize &smallSize,
                   const ShopSize &largeSize, int documents) {
    Pair small(engine, smallSize);
    Pair large(engine, largeSize);
    const QString date = QStringLiteral("2026-03-20");
    std::vector<double> ours, bare, ratio;
    for (int i = -5; i < documents; ++i) {
        const int first = (i + 5) % 15 * 10;
        const Pair::Times s = small.post(10, first, date);
        const Pair::Times l = large.post(10, first, date);
        if (i < 0)
            continue;
        ours.push_back(l.ours / s.ours);
        bare.push_back(l.bare / s.bare);
        ratio.push_back(ours.back() / bare.back());
    }
    std::printf("%s, %s\n", title, qPrintable(test::engineName(engine)));
    report("growth, program", ours, "  ");
    report("growth, bare engine", bare, "  ");
    report("growth against the bare engine's", ratio, "  ");
}

/// What an approval of 50 lines asks of the engine, for whoever wants to make it fewer.
void listStatements(Engine engine) {
    Shop shop(engine, {});
    approve(shop, shop.draftReceipt(50, 0, QStringLiteral("2026-03-20")));
    const QString number = shop.draftReceipt(50, 0, QStringLiteral("2026-03-20"));
    std::map<QString, int> counts;
    shop.db().setStatementObserver(
        [&counts](const QString &sql, const Values &) { ++counts[sql]; });
    approve(shop, number);
    shop.db().setStatementObserver({});
    for (const auto &[sql, count] : counts)
        std::printf("%4d %s\n", count, qPrintable(sql.left(150)));
}

void measureMemory(Engine engine) {
    Shop shop(engine, {.laterRows = 100'000});
    approve(shop, shop.draftReceipt(1, 0, QStringLiteral("2026-03-10")));
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    std::printf("peak memory with a walk of 100,000 rows, %s: %.0f MB\n",
                qPrintable(test::engineName(engine)),
                static_cast<double>(usage.ru_maxrss) / 1024.0);
}

} // namespace

int main(int argc, char **argv) {
    QCoreApplication application(argc, argv);
    const QStringList what = QCoreApplication::arguments().mid(1);
    const auto wanted = [&](const char *name) {
        return what.isEmpty() || what.contains(QLatin1String(name));
    };
    const QString today = QStringLiteral("2026-03-20");
    for (const Engine engine : test::engines()) {
        if (wanted("receipt"))
            measureReceipts(engine, "receipt of 50 lines", {}, 50, today, 200);
        if (wanted("backdated"))
            measureReceipts(engine, "receipt before 100,000 later rows of its goods",
                            {.laterRows = 100'000}, 1, QStringLiteral("2026-03-10"), 5);
        if (wanted("journal"))
            measureGrowth(engine, "journal of 1,000 and 1,000,000 rows of other goods",
                          {.otherJournal = 1'000}, {.otherJournal = 1'000'000}, 200);
        if (wanted("stock"))
            measureGrowth(engine, "beside 10,000 goods in stock", {}, {.stockedGoods = 10'000},
                          200);
        if (wanted("statements") && !what.isEmpty())
            listStatements(engine);
        if (wanted("memory") && !what.isEmpty())
            measureMemory(engine);
    }
    return 0;
}
