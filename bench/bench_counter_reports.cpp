// How long the counter's reports take over a million receipts of three years, nearly all settled.
#include "db/transaction.h"
#include "retail/counter_ranking.h"
#include "retail/counter_reports.h"
#include "retail/receipt_query.h"
#include "retail/settlement_query.h"
#include "retail/shift.h"
#include "support/shop.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <algorithm>
#include <cstdio>

using namespace jxc;
using namespace jxc::test;

namespace {

constexpr int receipts = 1'000'000, perDay = 900, perPiece = 20'000, goodsKept = 500;
const QDate firstDay(2023, 4, 1);

QString numberOf(const QString &prefix, int i) {
    return prefix + firstDay.addDays(i / perDay).toString(u"yyMMdd") +
           QString::number(10'000 + i % perDay);
}

QString momentOf(int i) {
    return firstDay.addDays(i / perDay).toString(Qt::ISODate) +
           QTime(8, 0).addSecs(i % perDay * 40).toString(u" hh:mm:ss");
}

/// Every second receipt has the bestseller on it.
QString goodsOf(int i, int line) {
    return QString::number(10'000'000 + (line == 1 && i % 2 == 0 ? 0 : (i + line * 7) % goodsKept));
}

/// Of every twenty receipts one is a return; a third name a member.
void insertReceipts(Database &db, int from, int to) {
    std::vector<Values> sales, returns, saleLines, returnLines;
    for (int i = from; i < to; ++i) {
        const bool isReturn = i % 20 == 0;
        const QString number = numberOf(isReturn ? u"XT"_qs : u"XS"_qs, i);
        const QString settlement =
            receipts - i < perDay ? QString() : numberOf(u"RJ"_qs, i / perDay * perDay);
        (isReturn ? returns : sales)
            .push_back({number, i % 3 == 0 ? u"100002"_qs : QString(), momentOf(i), u"100001"_qs,
                        Decimal(22), Decimal(30), Decimal(8), Decimal(30),
                        i % 2 == 0 ? u"admin"_qs : u"小王"_qs, settlement});
        for (int line = 0; line < 2; ++line)
            (isReturn ? returnLines : saleLines)
                .push_back({number, goodsOf(i, line), Decimal(11), Decimal(1), Decimal(1),
                            Decimal(11), Decimal(8)});
    }
    const auto header = QStringLiteral(
        "gl_djh,hy_sn,pos_xsrq,ck_sn,pos_yfje,pos_sfje,pos_zlje,pos_xj,a_name,pos_rjid");
    const auto line = QStringLiteral("gl_djh,g_sn,pos_dj,pos_sl,pos_zsl,pos_zje,pos_zcb");
    Transaction transaction(db);
    db.insertRows(u"jxc_posxsd"_qs, header.split(u','), sales);
    db.insertRows(u"jxc_posthd"_qs, header.split(u','), returns);
    db.insertRows(u"jxc_posxssp"_qs, line.split(u','), saleLines);
    db.insertRows(u"jxc_posthsp"_qs, line.split(u','), returnLines);
    transaction.commit();
}

template<class Query>
void measure(const char *what, const Query &query) {
    std::vector<qint64> times;
    size_t found = 0;
    for (int i = 0; i < 5; ++i) {
        QElapsedTimer timer;
        timer.start();
        found = query();
        times.push_back(timer.nsecsElapsed());
    }
    std::sort(times.begin(), times.end());
    std::printf("  %-40s %6lld.%lld ms, %zu rows\n", what,
                static_cast<long long>(times[2] / 1'000'000),
                static_cast<long long>(times[2] / 100'000 % 10), found);
    std::fflush(stdout);
}

CounterFilter days(const QDate &from, const QDate &to) {
    CounterFilter filter;
    filter.from = from.toString(Qt::ISODate);
    filter.to = to.toString(Qt::ISODate);
    return filter;
}

void run(Engine engine) {
    std::printf("counter reports, %s\n", qPrintable(engineName(engine)));
    useEngine(engine);
    Shop shop;
    for (int i = 0; i < goodsKept; ++i)
        shop.addGoods(QString::number(10'000'000 + i));
    for (int from = 0; from < receipts; from += perPiece)
        insertReceipts(shop.db, from, std::min(receipts, from + perPiece));
    if (engine == Engine::Postgres)
        shop.db.execute(u"analyze"_qs);
    const QDate last = firstDay.addDays((receipts - 1) / perDay);
    shop.clock.set(QDateTime(last, QTime(23, 0)));
    const Session &session = shop.session;
    const QDate month = last.addDays(-30);
    const CounterFilter day = days(last, last), thisMonth = days(month, last);
    measure("journal of a day", [&] { return listReceipts(session, day).size(); });
    measure("goods of a day", [&] { return counterGoods(session, day).size(); });
    measure("goods of a month", [&] { return counterGoods(session, thisMonth).size(); });
    measure("goods of three years",
            [&] { return counterGoods(session, days(firstDay, last)).size(); });
    CounterFilter bestseller = day;
    bestseller.goods = u"10000000"_qs;
    measure("lines of the bestseller of a day",
            [&] { return counterLineList(session, bestseller).size(); });
    bestseller.from = thisMonth.from;
    measure("lines of the bestseller of a month",
            [&] { return counterLineList(session, bestseller).size(); });
    CounterFilter oneGoods = thisMonth;
    oneGoods.goods = u"10000007"_qs;
    measure("lines of a goods of a month",
            [&] { return counterLineList(session, oneGoods).size(); });
    measure("ranking of a month", [&] {
        return counterRanking(session, thisMonth, RankedBy::goods, RankMeasure::amount, 50).size();
    });
    measure("members of a month", [&] { return counterMembers(session, thisMonth).size(); });
    measure("takings of a day", [&] { return tillFigures(session, day).size(); });
    measure("running shift",
            [&] { return static_cast<size_t>(runningShift(session).figures.sales); });
    measure("what stands unsettled",
            [&] { return static_cast<size_t>(unsettledReceipts(session).receipts); });
}

} // namespace

int main(int argc, char **argv) {
    const QCoreApplication application(argc, argv);
    for (const Engine engine : engines())
        run(engine);
}
