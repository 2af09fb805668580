// How long the look-ups take in a shop of ten thousand goods and half a million journal rows.
#include "db/transaction.h"
#include "retail/member_query.h"
#include "retail/member_search.h"
#include "shop.h"
#include "stock/cost_story.h"
#include "stock/movement_query.h"
#include "stock/stock_query.h"
#include "stock/trade_query.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <algorithm>
#include <cstdio>

using namespace jxc;
using namespace jxc::bench;

namespace {

constexpr int sales = 100'000;
constexpr int members = 20'000;

/// Sales without postings: the lists read the documents, not the journal.
void insertSales(Database &db) {
    Transaction transaction(db);
    std::vector<Values> headers;
    std::vector<Values> lines;
    for (int i = 0; i < sales; ++i) {
        const QString number = QStringLiteral("XS26%1").arg(10'000'000'000LL + i).left(16);
        const QString date = QDate(2025, 1, 1).addDays(i / 250).toString(Qt::ISODate);
        headers.push_back({number, date, u"100001", u"100001", u"100001", Decimal(12), Decimal(12),
                           Decimal(), Decimal(), 1, u"admin", u"admin", u""});
        lines.push_back({number, QString::number(30'000'000 + i % 200), Decimal(1), Decimal(12),
                         Decimal(12), u"瓶", QStringLiteral("B%1").arg(i % 97)});
    }
    db.insertRows(
        QStringLiteral("jxc_lsxsd"),
        QStringLiteral("gl_djh,ls_xsrq,kh_sn,ck_sn,u_sn,ls_yfje,ls_sfje,ls_yhje,ls_hkje,ls_status,"
                       "ls_checker,a_name,ls_note")
            .split(u','),
        headers);
    db.insertRows(QStringLiteral("jxc_lsxssp"),
                  QStringLiteral("gl_djh,g_sn,ls_sl,ls_taxdj,ls_zje,dw_name,t_ph").split(u','),
                  lines);
    transaction.commit();
}

/// Members, and five receipts of the counter for each.
void insertMembers(Database &db) {
    Transaction transaction(db);
    std::vector<Values> rows;
    std::vector<Values> receipts;
    for (int i = 0; i < members; ++i) {
        const QString number = QString::number(200'000 + i);
        rows.push_back({number, number, QStringLiteral("会员%1").arg(i),
                        QStringLiteral("HY%1").arg(i), QStringLiteral("138%1").arg(10'000'000 + i),
                        u"", u"100001", u"100001", u"2024-05-01", Decimal(i % 900), Decimal(i % 77),
                        i % 12});
        for (int day = 0; day < 5; ++day)
            receipts.push_back(
                {QStringLiteral("XS%1%2").arg(number).arg(day), number,
                 QDate(2026, 1, 1).addDays((i + day * 16) % 78).toString(Qt::ISODate), Decimal(9)});
    }
    db.insertRows(QStringLiteral("jxc_hyxx"),
                  QStringLiteral("hy_sn,hy_bh,hy_name,hy_jm,hy_mobile,hy_tele,hl_sn,hh_sn,hy_jrrq,"
                                 "hy_zhje,hy_jf,hy_cs")
                      .split(u','),
                  rows);
    db.insertRows(QStringLiteral("jxc_posxsd"),
                  QStringLiteral("gl_djh,hy_sn,pos_xsrq,pos_yfje").split(u','), receipts);
    transaction.commit();
}

template<class Query>
void measure(const char *what, const Query &query) {
    std::vector<qint64> times;
    size_t found = 0;
    for (int i = 0; i < 7; ++i) {
        QElapsedTimer timer;
        timer.start();
        found = query();
        times.push_back(timer.nsecsElapsed());
    }
    std::sort(times.begin(), times.end());
    std::printf("  %-48s %8lld.%01lld ms, %zu rows\n", what,
                static_cast<long long>(times[3] / 1'000'000),
                static_cast<long long>(times[3] / 100'000 % 10), found);
    std::fflush(stdout);
}

void measureMembers(const Session &session) {
    measure("a member by his card",
            [&] { return findMembers(session, QStringLiteral("219999"), 50).size(); });
    measure("members by a part of the name",
            [&] { return findMembers(session, QStringLiteral("员777"), 50).size(); });
    measure("members by initials that nobody has",
            [&] { return findMembers(session, QStringLiteral("QQQ"), 50).size(); });
    measure("all members", [&] { return listMembers(session, {}).size(); });
    measure("members who bought nothing for a month",
            [&] { return listMembers(session, {.idleDays = 30}).size(); });
}

void run(Engine engine) {
    std::printf("look-ups, %s\n", qPrintable(test::engineName(engine)));
    Shop shop(engine, {.stockedGoods = 9'800, .otherJournal = 500'000, .laterRows = 20'000});
    insertSales(shop.db());
    insertMembers(shop.db());
    if (engine == Engine::Postgres)
        shop.db().execute(QStringLiteral("analyze"));
    const Session &session = shop.session();
    const QString hot = QStringLiteral("30000000");
    const QString store = QStringLiteral("100001");
    const QString today = QStringLiteral("2026-03-20");
    const QString yearStart = QStringLiteral("2026-01-01");
    measure("stock of all goods", [&] { return stockList(session, {}).size(); });
    measure("stock, a part of the name",
            [&] { return stockList(session, {.search = QStringLiteral("0009")}).size(); });
    measure("last ten prices with a partner, 20,000 rows",
            [&] { return latestPrices(session, Trade::sale, hot, store).size(); });
    measure("movements of a goods, its whole journal", [&] {
        return movements(session, {hot, {}, yearStart, today}).size();
    });
    measure("why this cost, in a journal of 20,000 rows", [&] {
        return costStory(session, {hot, store}, {today}).rows.size();
    });
    measure("documents of a month", [&] {
        return findDocuments(session, {.from = QStringLiteral("2025-12-01"),
                                       .to = QStringLiteral("2025-12-31")})
            .size();
    });
    measure("all documents that hold a batch of a goods", [&] {
        return findDocuments(session, {.goods = hot, .batch = QStringLiteral("B0")}).size();
    });
    measure("sales and returns of a month", [&] {
        return findTrade(session, Trade::sale,
                         {.from = QStringLiteral("2025-12-01"), .to = QStringLiteral("2025-12-31")})
            .size();
    });
    measureMembers(session);
}

} // namespace

int main(int argc, char **argv) {
    const QCoreApplication application(argc, argv);
    for (const Engine engine : test::engines())
        run(engine);
}
