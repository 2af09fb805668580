// How long lists and proposals take beside a hundred thousand documents.
#include "shop.h"

#include "base/dates.h"
#include "db/transaction.h"
#include "stock/buyers.h"
#include "stock/documents.h"
#include "stock/draft.h"
#include "stock/proposals.h"
#include "stock/sources.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <algorithm>
#include <cstdio>

using namespace jxc;
using namespace jxc::bench;

namespace {

constexpr int documents = 100'000;
constexpr int linesOfEach = 3;

/// Sales of three lines, some fifty a day, the last fifty of them unapproved.
void insertSales(Database &db) {
    Transaction transaction(db);
    std::vector<Values> headers;
    std::vector<Values> lines;
    QDate day(2021, 1, 1);
    for (int i = 0; i < documents; ++i) {
        if (i % 50 == 49)
            day = day.addDays(1);
        const QString number =
            QStringLiteral("XS%1%2").arg(dateDigits(toDateText(day))).arg(10'001 + i % 50);
        headers.push_back({number, QString::number(100'001 + i % 500), u"100001", toDateText(day),
                           Decimal(36), Decimal(i % 3 == 0 ? 0 : 36), Decimal(), Decimal(),
                           u"100001", u"春耕用药，送货上门", u"admin", i < documents - 50 ? 1 : 0,
                           u"admin", toDateText(day)});
        for (int l = 0; l < linesOfEach; ++l)
            lines.push_back({number,
                             QString::number(30'000'000 + (i * 7 + l) % 200),
                             Decimal(1),
                             Decimal(1),
                             Decimal(12),
                             Decimal(12),
                             Decimal(12),
                             Decimal(1),
                             u"瓶",
                             Decimal(1),
                             Decimal(8),
                             Decimal(8),
                             i + 1,
                             u"20240101",
                             u"2027-01-01",
                             u"2024-01-01",
                             Decimal(1),
                             Decimal(),
                             u"",
                             u"",
                             u""});
    }
    db.insertRows(QStringLiteral("jxc_lsxsd"),
                  QStringLiteral("gl_djh,kh_sn,ck_sn,ls_xsrq,ls_yfje,ls_sfje,ls_yhje,ls_hkje,u_sn,"
                                 "ls_note,a_name,ls_status,ls_checker,ls_chkrq")
                      .split(u','),
                  headers);
    db.insertRows(QStringLiteral("jxc_lsxssp"),
                  QStringLiteral("gl_djh,g_sn,ls_sl,ls_zsl,ls_dj,ls_taxdj,ls_zje,ls_dzl,dw_name,"
                                 "g_zhxs,ls_cbj,ls_zcb,id2,t_ph,t_yxq,t_scrq,ls_cksl,ls_qxsl,ls_xm,"
                                 "ls_cardno,t_mobile")
                      .split(u','),
                  lines);
    transaction.commit();
}

void insertCustomers(Database &db) {
    Transaction transaction(db);
    for (int i = 1; i < 500; ++i)
        db.insertRow(QStringLiteral("jxc_khxx"),
                     {{QStringLiteral("kh_sn"), QString::number(100'001 + i)},
                      {QStringLiteral("kh_name"), QStringLiteral("村民%1").arg(i)}});
    db.execute(QStringLiteral("update jxc_goods set g_iscf=1 where g_sn='30000007'"));
    transaction.commit();
}

/// The median of several runs, the first of which warms up.
void measure(const char *what, const std::function<size_t()> &run) {
    std::vector<double> times;
    size_t rows = 0;
    for (int i = 0; i < 6; ++i) {
        QElapsedTimer timer;
        timer.start();
        rows = run();
        times.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
    }
    times.erase(times.begin());
    std::sort(times.begin(), times.end());
    std::printf("  %-46s %9.2f ms  %zu rows\n", what, times[2], rows);
    std::fflush(stdout);
}

void measureLists(Session &session) {
    DocumentFilter drafts{.code = QStringLiteral("XS")};
    DocumentFilter all = drafts;
    all.approved = true;
    DocumentFilter month = all;
    month.fromDate = QStringLiteral("2026-05-01");
    month.toDate = QStringLiteral("2026-05-31");
    const auto narrowed = [&](const DocumentFilter &from, const auto &narrow) {
        DocumentFilter f = from;
        narrow(f);
        return f;
    };
    const auto list = [&](const char *what, const DocumentFilter &filter) {
        measure(what, [&] { return listDocuments(session, filter).size(); });
    };
    list("drafts of all time", drafts);
    list("approved, one month", month);
    list("approved, all 100,000", all);
    list("all, of one goods", narrowed(all, [](auto &f) { f.goods = QStringLiteral("30000003"); }));
    list("all, of one customer",
         narrowed(all, [](auto &f) { f.partner = QStringLiteral("100007"); }));
    list("all, searched for", narrowed(all, [](auto &f) { f.search = QStringLiteral("村民77"); }));
    measure("lines of a document",
            [&] { return documentLines(session, QStringLiteral("XS21010110001")).size(); });
}

void measureEntry(Session &session) {
    const LineRequest request{QStringLiteral("XS"), QStringLiteral("100007"),
                              QStringLiteral("100001"), session.today(),
                              QStringLiteral("30000003")};
    measure("proposal of a line", [&] { return proposeLine(session, request) ? 1 : 0; });
    measure("last ten prices of all",
            [&] { return lastPrices(session, request.code, request.goods, {}).size(); });
    measure("open sales", [&] { return openDocuments(session, QStringLiteral("CK")).size(); });
    measure("returnable lines of a customer", [&] {
        return returnableLines(session, QStringLiteral("XT"), request.partner, request.warehouse)
            .size();
    });
    measure("a buyer who is not known",
            [&] { return findBuyer(session, QStringLiteral("13900000000")) ? 1 : 0; });
    measure("saving a sale of 20 lines", [&] {
        Draft d;
        d.code = request.code;
        d.date = session.today();
        d.partner = request.partner;
        d.warehouse = d.clerk = administratorNo;
        for (int i = 0; i < 20; ++i) {
            DraftLine line{.goods = QString::number(30'000'100 + i)};
            line.quantity = 2;
            line.price = 12;
            d.lines.push_back(line);
        }
        AgreeingPrompter yes;
        const Outcome outcome = saveDraft(session, yes, d);
        if (!outcome.isDone())
            qFatal("%s", qPrintable(outcome.text));
        return d.lines.size();
    });
}

} // namespace

int main(int argc, char **argv) {
    const QCoreApplication app(argc, argv);
    for (const Engine engine : test::engines()) {
        std::printf("%s\n", qPrintable(test::engineName(engine)));
        Shop shop(engine, {});
        insertCustomers(shop.db());
        insertSales(shop.db());
        if (engine == Engine::Postgres)
            shop.db().execute(QStringLiteral("analyze"));
        measureLists(shop.session());
        measureEntry(shop.session());
    }
    return 0;
}
