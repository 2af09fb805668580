// How long the partners' accounts and statements take: 100,000 sales of 200 customers, 20,000
// receipts spread over them, half a million journal rows.
#include "db/transaction.h"
#include "money/open_items.h"
#include "money/partner_accounts.h"
#include "money/partner_statement.h"
#include "shop.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <algorithm>
#include <cstdio>

using namespace jxc;
using namespace jxc::bench;

namespace {

constexpr int sales = 100'000;
constexpr int customers = 200;

QString customerOf(int i) {
    return QString::number(200'001 + i % customers);
}

/// Every fifth sale is paid by a receipt of its own, every fourth half of the others at once.
void fill(Database &db) {
    Transaction transaction(db);
    std::vector<Values> partners, headers, ledger, receipts, parts;
    for (int i = 0; i < customers; ++i)
        partners.push_back({customerOf(i), QStringLiteral("客户%1").arg(i), u""});
    for (int i = 0; i < sales; ++i) {
        const QString number = QStringLiteral("XS26%1").arg(10'000'000'000LL + i).left(16);
        const QString date = QDate(2025, 1, 1).addDays(i / 250).toString(Qt::ISODate);
        const bool later = i % 5 == 0;
        const Decimal paid = i % 4 == 0 && !later ? Decimal(12) : Decimal();
        headers.push_back({number, date, customerOf(i), u"100001", u"100001", Decimal(12), paid,
                           Decimal(), later ? Decimal(12) : Decimal(), 1, u"admin", u"admin", u""});
        ledger.push_back({number, u"kh", customerOf(i), date, Decimal(12), paid, Decimal(), u"XS"});
        if (!later)
            continue;
        const QString receipt = QStringLiteral("SK26%1").arg(10'000'000'000LL + i).left(16);
        receipts.push_back(
            {receipt, u"kh", customerOf(i), date, Decimal(), Decimal(12), Decimal(), u"SK", 1});
        ledger.push_back(
            {receipt, u"kh", customerOf(i), date, Decimal(), Decimal(12), Decimal(), u"SK"});
        parts.push_back({receipt, number, Decimal(12), 0});
    }
    const auto columns = [](const char16_t *names) {
        return QString::fromUtf16(names).split(u',');
    };
    db.insertRows(QStringLiteral("jxc_khxx"), columns(u"kh_sn,kh_name,kh_jm"), partners);
    db.insertRows(QStringLiteral("jxc_lsxsd"),
                  columns(u"gl_djh,ls_xsrq,kh_sn,ck_sn,u_sn,ls_yfje,ls_sfje,ls_yhje,ls_hkje,"
                          u"ls_status,ls_checker,a_name,ls_note"),
                  headers);
    db.insertRows(QStringLiteral("jxc_ysyfk"),
                  columns(u"gl_djh,k_type,k_ghskh,k_rq,k_yfje,k_sfje,k_ljje,k_djlx"), ledger);
    db.insertRows(QStringLiteral("jxc_ysyfk_dj"),
                  columns(u"gl_djh,k_type,k_ghskh,k_rq,k_yfje,k_sfje,k_yhje,k_djlx,k_check"),
                  receipts);
    db.insertRows(QStringLiteral("jxc_fkmx"), columns(u"fk_sn,gl_djh,fk_je,fk_lx"), parts);
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
    std::printf("  %-48s %8.1f ms, %zu rows\n", what, double(times[2]) / 1e6, found);
    std::fflush(stdout);
}

void run(Engine engine) {
    std::printf("accounts and statements, %s\n", qPrintable(test::engineName(engine)));
    Shop shop(engine, {.otherJournal = 500'000});
    fill(shop.db());
    if (engine == Engine::Postgres)
        shop.db().execute(QStringLiteral("analyze"));
    const Session &session = shop.session();
    constexpr auto kind = Partner::Kind::customer;
    const QString from = QStringLiteral("2025-01-01");
    const QString to = QStringLiteral("2026-12-31");
    const QString one = customerOf(7);
    measure("statement of one customer, all his documents", [&] {
        return statementDocuments(session, {kind, one, from, to}).size();
    });
    measure("statement of all customers, a month", [&] {
        return statementDocuments(
                   session, {kind, {}, QStringLiteral("2025-12-01"), QStringLiteral("2025-12-31")})
            .size();
    });
    measure("statement of all customers, 100,000 documents", [&] {
        return statementDocuments(session, {kind, {}, from, to}).size();
    });
    StatementQuery piece{kind, {}, from, to};
    piece.most = 1'000;
    measure("    its first piece, that fills the screen",
            [&] { return statementDocuments(session, piece).size(); });
    piece.after = statementDocuments(session, piece).back();
    piece.most = 4'000;
    measure("    a further piece", [&] { return statementDocuments(session, piece).size(); });
    measure("goods of one customer", [&] {
        return statementGoods(session, {kind, one, from, to}).size();
    });
    measure("freight of all customers", [&] {
        return statementFreight(session, {kind, {}, from, to}).size();
    });
    measure("what one customer has open", [&] { return openItems(session, kind, one).size(); });
    measure("what all customers have open", [&] { return openItems(session, kind).size(); });
    measure("age of all debts", [&] { return partnerAgeing(session, {kind}).size(); });
    measure("account table of all customers", [&] {
        return partnerSummary(session, {kind, {}, from, to}).size();
    });
}

} // namespace

int main(int argc, char **argv) {
    const QCoreApplication application(argc, argv);
    for (const Engine engine : test::engines())
        run(engine);
}
