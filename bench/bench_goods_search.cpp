// How long a key takes in the goods field of a shop with very many goods.
#include "base/pinyin.h"
#include "core/session.h"
#include "db/transaction.h"
#include "master/goods_search.h"
#include "support/test_database.h"

#include <QElapsedTimer>
#include <algorithm>
#include <cstdio>

using namespace jxc;

namespace {

const QStringList &heads() {
    static const QStringList words{QStringLiteral("草甘膦"),   QStringLiteral("草铵膦"),
                                   QStringLiteral("吡虫啉"),   QStringLiteral("代森锰锌"),
                                   QStringLiteral("烯酰吗啉"), QStringLiteral("长效尿素"),
                                   QStringLiteral("复合肥"),   QStringLiteral("玉米种"),
                                   QStringLiteral("水稻种"),   QStringLiteral("调节剂")};
    return words;
}

void fill(Database &db, int count) {
    const QStringList columns{QStringLiteral("g_sn"),   QStringLiteral("g_name"),
                              QStringLiteral("g_jm"),   QStringLiteral("g_tym"),
                              QStringLiteral("g_sccs"), QStringLiteral("color_name"),
                              QStringLiteral("g_sptm"), QStringLiteral("g_cgpl"),
                              QStringLiteral("g_xspl"), QStringLiteral("g_jy")};
    std::vector<Values> rows;
    for (int i = 0; i < count; ++i) {
        const QString head = heads()[i % heads().size()];
        const QString name = QStringLiteral("%1%2号%3ml").arg(head).arg(i / 10).arg(i % 7 * 100);
        rows.push_back({QString::number(10'000'000 + i), name, pinyinInitials(name), head,
                        QStringLiteral("县农药厂%1分厂").arg(i % 300),
                        QStringLiteral("PD%1").arg(20'000'000 + i),
                        QString::number(6'900'000'000'000 + i), i % 50, i % 70, 0});
    }
    Transaction transaction(db);
    db.insertRows(QStringLiteral("jxc_goods"), columns, rows);
    transaction.commit();
}

void measure(GoodsFinder &finder, const QString &typed) {
    std::vector<double> times;
    size_t hits = 0;
    for (int i = 0; i < 15; ++i) {
        QElapsedTimer timer;
        timer.start();
        hits = finder.find(typed, QStringLiteral("100001"), GoodsUse::sale).size();
        times.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
    }
    std::sort(times.begin(), times.end());
    std::printf("  %-16s %2zu hits  median %6.2f ms  worst %6.2f ms\n", qPrintable(typed), hits,
                times[times.size() / 2], times.back());
}

} // namespace

int main() {
    for (const Engine engine : test::engines()) {
        test::TestDatabase place(engine);
        fill(place.db(), 100'000);
        std::printf("%s, 100,000 goods\n", qPrintable(test::engineName(engine)));
        GoodsFinder finder(place.db());
        std::vector<double> steps;
        for (bool more = true; more;) {
            QElapsedTimer timer;
            timer.start();
            more = finder.readAhead();
            steps.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
        }
        double whole = 0;
        for (const double step : steps)
            whole += step;
        std::printf("  reading ahead: %.0f ms in %zu steps, the longest %.0f ms\n", whole,
                    steps.size(), *std::max_element(steps.begin(), steps.end()));
        for (const char16_t *typed : {u"c", u"cg", u"cgl1", u"草", u"县农药厂29", u"PD2005",
                                      u"1005", u"6900000050000", u"zzz"})
            measure(finder, QString::fromUtf16(typed));
    }
}
