#include "retail/exchange_query.h"

#include "base/sanitize.h"
#include "core/session.h"
#include "core/visible_warehouses.h"
#include "db/database.h"
#include "db/like.h"
#include "db/where.h"

namespace jxc {

namespace {

Rows readGifts(const Session &session, const QString &warehouse, const Where &where, int most) {
    Values values{warehouse};
    values.insert(values.end(), where.values().begin(), where.values().end());
    return session.db().rows(
        QStringLiteral(
            "select g.g_sn,g.g_name,g.gg_name,g.dw_name,g.g_zpjf,k.kc_sl from jxc_goods "
            "g left join jxc_kcsp k on k.g_sn=g.g_sn and k.ck_sn=? where g.g_iszp<>0 and "
            "%1 order by g.g_zpjf,g.id limit %2")
            .arg(where.text())
            .arg(most),
        values);
}

} // namespace

Rows listExchanges(const Session &session, const ExchangeFilter &filter) {
    Where where;
    where.add(QStringLiteral("a.dh_dhrq>=?"), {filter.from});
    where.add(QStringLiteral("a.dh_dhrq<=?"), {filter.to});
    if (!filter.search.isEmpty()) {
        const QString pattern = containsPattern(filter.search);
        where.add(QStringLiteral("(%1 or %2 or %3 or h.hy_bh=?)")
                      .arg(contains(QStringLiteral("a.gl_djh")),
                           contains(QStringLiteral("h.hy_name")),
                           contains(QStringLiteral("a.dh_note"))),
                  {pattern, pattern, pattern, filter.search});
    }
    addWarehouseRestriction(session, where, QStringLiteral("a.ck_sn"));
    return session.db().rows(
        QStringLiteral("select a.id,a.dh_dhrq,a.gl_djh,h.hy_bh,h.hy_name,k.ck_name,a.dh_sl,a.dh_jf,"
                       "a.dh_note,a.a_name from jxc_dhd a left join jxc_hyxx h on h.hy_sn=a.hy_sn "
                       "left join jxc_ckxx k on k.ck_sn=a.ck_sn where %1 order by a.dh_dhrq "
                       "desc,a.id desc")
            .arg(where.text()),
        where.values());
}

Rows exchangeLines(const Session &session, const QString &number) {
    return session.db().rows(
        QStringLiteral("select a.id,a.g_sn,g.g_name,g.gg_name,g.dw_name,a.dh_zpjf,a.dh_sl,a.dh_jf "
                       "from jxc_dhzp a left join jxc_goods g on g.g_sn=a.g_sn where a.gl_djh=? "
                       "order by a.id"),
        {number});
}

Rows findGifts(const Session &session, const QString &typed, const QString &warehouse, int most) {
    Where where;
    where.add(QStringLiteral("coalesce(g.g_jy,0)=0"));
    if (const QString text = typed.trimmed(); !text.isEmpty()) {
        const QString pattern = containsPattern(sanitizeSqlTextLight(text));
        where.add(QStringLiteral("(%1 or %2 or %3 or g.g_sptm=?)")
                      .arg(contains(QStringLiteral("g.g_sn")), contains(QStringLiteral("g.g_name")),
                           contains(QStringLiteral("g.g_jm"))),
                  {pattern, pattern, pattern, text});
    }
    return readGifts(session, warehouse, where, most);
}

std::optional<Row> giftRow(const Session &session, const QString &goods, const QString &warehouse) {
    Where where;
    where.add(QStringLiteral("g.g_sn=?"), {goods});
    Rows rows = readGifts(session, warehouse, where, 1);
    return rows.empty() ? std::nullopt : std::optional<Row>(std::move(rows.front()));
}

} // namespace jxc
