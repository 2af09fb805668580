// How long a receipt of twenty lines takes at the counter beside a million old ones: each scan, and
// from the last key until it is paid and booked.
#include "shop.h"

#include "base/dates.h"
#include "db/schema.h"
#include "db/transaction.h"
#include "master/goods_search.h"
#include "retail/counter_goods.h"
#include "retail/document_posting.h"
#include "retail/receipt_hold.h"
#include "retail/receipt_posting.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <algorithm>
#include <cstdio>

using namespace jxc;
using namespace jxc::bench;

namespace {

constexpr int receipts = 1'000'000;
constexpr int lines = 20;

/// Old receipts of one line, five hundred a day, with their sales and cash rows.
void insertReceipts(Database &db) {
    Transaction transaction(db);
    std::vector<Values> sales, saleLines, heads, headLines, cash;
    QDate day(2020, 9, 20);
    for (int i = 0; i < receipts; ++i) {
        if (i % 500 == 499)
            day = day.addDays(1);
        const QString date = toDateText(day);
        const QString number = QStringLiteral("XS%1%2").arg(dateDigits(date)).arg(10'001 + i % 500);
        const QString goods = QString::number(30'000'000 + i % 200);
        sales.push_back(
            {number, u"100001", u"100001", date, Decimal(12), Decimal(12), u"100001", u"admin", 1});
        saleLines.push_back({number, goods, Decimal(1), Decimal(1), Decimal(12), Decimal(12)});
        heads.push_back({number, u"", date + QStringLiteral(" 10:00:00"), u"100001", u"100001",
                         Decimal(12), Decimal(12), Decimal(12), u"admin", u"RJ20091010001"});
        headLines.push_back({number, goods, Decimal(12), Decimal(1), Decimal(12)});
        cash.push_back({date, number, u"商品销售", Decimal(12), Decimal(12), u"1", u"现金"});
        if (sales.size() < 10'000 && i + 1 < receipts)
            continue;
        const auto flush = [&](const char16_t *table, const char16_t *columns,
                               std::vector<Values> &rows) {
            db.insertRows(QString::fromUtf16(table), QString::fromUtf16(columns).split(u','), rows);
            rows.clear();
        };
        flush(u"jxc_lsxsd", u"gl_djh,kh_sn,ck_sn,ls_xsrq,ls_yfje,ls_sfje,u_sn,a_name,ls_status",
              sales);
        flush(u"jxc_lsxssp", u"gl_djh,g_sn,ls_sl,ls_zsl,ls_dj,ls_zje", saleLines);
        flush(u"jxc_posxsd",
              u"gl_djh,hy_sn,pos_xsrq,kh_sn,ck_sn,pos_yfje,pos_sfje,pos_xj,a_name,pos_rjid", heads);
        flush(u"jxc_posxssp", u"gl_djh,g_sn,pos_dj,pos_sl,pos_zje", headLines);
        flush(u"jxc_xjyh", u"xj_rq,gl_djh,xj_dlx,xj_je,xj_ljje,xj_chk,xj_kmmc", cash);
    }
    db.execute(QStringLiteral("update jxc_goods set g_lsj=12,g_sptm='69'||g_sn"));
    db.execute(QStringLiteral("update jxc_kcsp set kc_sl=100000,kc_zsl=100000"));
    transaction.commit();
}

void report(const char *what, std::vector<double> &times) {
    std::sort(times.begin(), times.end());
    std::printf("  %-40s %8.2f ms median, %8.2f ms worst\n", what, times[times.size() / 2],
                times.back());
    std::fflush(stdout);
}

/// The same receipt by a member who pays a part from the card.
void measureMember(Shop &shop, GoodsFinder &finder, const CounterSettings &settings) {
    Session &session = shop.session();
    Database &db = shop.db();
    db.execute(QStringLiteral("update jxc_jfsz set jf_mfje=10,jf_yelj=1"));
    Assignments row;
    for (const auto &column : table(QStringLiteral("jxc_hyxx")).columns)
        if (!column.isText())
            row.push_back({column.name, 0});
    for (const char16_t *name : {u"hy_sn", u"hy_bh", u"hy_mm", u"hy_sr", u"hl_sn", u"hh_sn"})
        row.push_back({QString::fromUtf16(name), u"100001"});
    db.execute(QStringLiteral("delete from jxc_hyxx"));
    db.insertRow(QStringLiteral("jxc_hyxx"), row);
    db.execute(QStringLiteral("update jxc_hyxx set hy_zhje=1000000,hy_mm='',hy_sr='1970-01-01'"));
    AgreeingPrompter prompter;
    std::vector<double> paid;
    for (int round = 0; round < 30; ++round) {
        Receipt receipt;
        receipt.warehouse = receipt.clerk = receipt.member = QStringLiteral("100001");
        for (int i = 0; i < lines; ++i) {
            const CounterFind found =
                findForCounter(finder, settings, QStringLiteral("69%1").arg(30'000'000 + i * 7));
            addLine(receipt, counterLine(session, settings, found, found.hits.front(), {}));
        }
        QElapsedTimer timer;
        timer.start();
        PostedReceipt posted;
        const Outcome outcome = postReceipt(session, prompter, receipt,
                                            {.cash = 200, .other = {.storedValue = 100}}, &posted);
        if (!outcome.isDone())
            qFatal("%s", qPrintable(outcome.text));
        if (round > 4)
            paid.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
    }
    report("the same by a member, partly from the card", paid);
}

void measure(Shop &shop) {
    Session &session = shop.session();
    GoodsFinder finder(shop.db());
    const CounterSettings settings = CounterSettings::load(session);
    AgreeingPrompter prompter;
    std::vector<double> scans, kept, paid;
    QElapsedTimer timer;
    const auto taken = [&] { return static_cast<double>(timer.nsecsElapsed()) / 1e6; };
    for (int round = 0; round < 30; ++round) {
        Receipt receipt;
        receipt.warehouse = receipt.clerk = QStringLiteral("100001");
        for (int i = 0; i < lines; ++i) {
            timer.start();
            const CounterFind found =
                findForCounter(finder, settings, QStringLiteral("69%1").arg(30'000'000 + i * 7));
            addLine(receipt, counterLine(session, settings, found, found.hits.front(), {}));
            scans.push_back(taken());
        }
        timer.start();
        keepRunningReceipt(session, receipt);
        kept.push_back(taken());
        timer.start();
        PostedReceipt posted;
        const Outcome outcome =
            postReceipt(session, prompter, receipt,
                        {.cash = 200, .other = {.bankCard = 100}, .discount = 1}, &posted);
        if (!outcome.isDone())
            qFatal("%s", qPrintable(outcome.text));
        if (round > 4) // the first ones warm up
            paid.push_back(taken());
    }
    report("a scan", scans);
    report("keeping the running receipt", kept);
    report("twenty lines paid and booked", paid);
    measureMember(shop, finder, settings);
}

} // namespace

int main(int argc, char **argv) {
    QCoreApplication application(argc, argv);
    for (const Engine engine : test::engines()) {
        std::printf("%s\n", qPrintable(test::engineName(engine)));
        Shop shop(engine, {.goods = 200, .otherJournal = 100'000});
        shop.session().members = &documentPosting();
        insertReceipts(shop.db());
        measure(shop);
    }
    return 0;
}
