#include "services/today.h"

#include "base/dates.h"
#include "core/rights.h"
#include "core/session.h"
#include "db/database.h"
#include "stock/document_kind.h"

#include <algorithm>

namespace jxc {

namespace {

int countBelowMinimum(Database &db) {
    int count = 0;
    for (const Row &row : db.rows(
             QStringLiteral("select g.g_sn,g.g_zdkc,%1 as sl from jxc_goods g left join jxc_kcsp k "
                            "on k.g_sn=g.g_sn where g.g_zdkc>0 and coalesce(g.g_jy,0)=0 group by "
                            "g.g_sn,g.g_zdkc")
                 .arg(db.dialect().exactSum(QStringLiteral("k.kc_sl")))))
        if (row.decimal(u"sl") < row.decimal(u"g_zdkc"))
            ++count;
    return count;
}

/// A batch without an expiry of its own keeps for the goods' months from its production.
QString expiryOf(const Row &row) {
    const QString written = row.text(u"t_yxq");
    if (!written.isEmpty() && !written.startsWith(QLatin1String("0000")))
        return written;
    const QDate produced = parseDate(row.text(u"t_scrq"));
    const auto months = static_cast<int>(row.integer(u"g_bzq"));
    return months > 0 ? toDateText(produced.addMonths(months)) : QString();
}

int countNearExpiry(const Session &session) {
    const QString limit =
        toDateText(session.now().date().addDays(session.parameters.nearExpiryDays));
    int count = 0;
    for (const Row &row : session.db().rows(
             QStringLiteral("select t.t_yxq,t.t_scrq,g.g_bzq from jxc_tkc t join jxc_goods g on "
                            "g.g_sn=t.g_sn where t.t_sl>0"))) {
        const QString expiry = expiryOf(row);
        if (!expiry.isEmpty() && expiry <= limit)
            ++count;
    }
    return count;
}

int countDrafts(const Session &session) {
    int count = 0;
    for (const DocumentKind &kind : documentKinds()) {
        if (!hasRight(session, kind.rightGroup, kind.entryRight) &&
            !hasRight(session, kind.rightGroup, kind.approveRight))
            continue;
        count += session.db()
                     .scalar(QStringLiteral("select count(*) from %1 where coalesce(%2,0)=0")
                                 .arg(kind.headerTable, kind.statusColumn()))
                     .toInt();
    }
    return count;
}

void addReceivables(const Session &session, TodayCounts &counts) {
    for (const Row &row : session.db().rows(
             QStringLiteral("select ls_yfje,ls_sfje,ls_yhje,ls_hkje from jxc_lsxsd where "
                            "ls_status=1 and ls_ckrq<>'' and ls_ckrq<=?"),
             {session.today()})) {
        const Decimal unpaid = row.decimal(u"ls_yfje") - row.decimal(u"ls_sfje") -
                               row.decimal(u"ls_yhje") - row.decimal(u"ls_hkje");
        if (unpaid.isZero())
            continue;
        ++counts.receivables;
        counts.receivableAmount += unpaid;
    }
}

} // namespace

TodayCounts countToday(const Session &session) {
    TodayCounts counts;
    counts.belowMinimum = countBelowMinimum(session.db());
    counts.nearExpiry = countNearExpiry(session);
    counts.drafts = countDrafts(session);
    addReceivables(session, counts);
    return counts;
}

} // namespace jxc
