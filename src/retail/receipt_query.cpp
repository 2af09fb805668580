#include "retail/receipt_query.h"

#include "core/session.h"
#include "db/database.h"
#include "db/like.h"
#include "db/where.h"

namespace jxc {

Rows listReceipts(const Session &session, const CounterFilter &filter) {
    const SqlPart receipts = counterReceipts(session, filter);
    Where where;
    if (!filter.search.isEmpty()) {
        const QString pattern = containsPattern(filter.search);
        where.add(
            QStringLiteral("(%1 or %2 or m.hy_bh=?)")
                .arg(contains(QStringLiteral("r.gl_djh")), contains(QStringLiteral("m.hy_name"))),
            {pattern, pattern, filter.search});
    }
    Values values = receipts.values;
    values.insert(values.end(), where.values().begin(), where.values().end());
    return session.db().rows(
        QStringLiteral("select r.*,m.hy_bh,m.hy_name,k.ck_name from %1 r left join jxc_hyxx m on "
                       "m.hy_sn=r.hy_sn and r.hy_sn<>'' left join jxc_ckxx k on k.ck_sn=r.ck_sn "
                       "where %2 order by r.pos_xsrq desc,r.gl_djh desc")
            .arg(receipts.text, where.text()),
        values);
}

Rows receiptLines(const Session &session, const QString &number, bool isReturn) {
    return session.db().rows(
        QStringLiteral("select a.id,a.g_sn,%1 as g_name,g.gg_name,a.dw_name,%3a.pos_sl as pos_sl,"
                       "a.pos_dj,a.pos_dzl,%3a.pos_zje as pos_zje,a.t_ph,a.t_yxq from %2 a left "
                       "join jxc_goods g on g.g_sn=a.g_sn where a.gl_djh=? order by a.id")
            .arg(isReturn ? QStringLiteral("g.g_name")
                          : QStringLiteral("coalesce(g.g_name,'')||coalesce(a.t_zp,'')"),
                 isReturn ? QStringLiteral("jxc_posthsp") : QStringLiteral("jxc_posxssp"),
                 isReturn ? QStringLiteral("-") : QString()),
        {number});
}

} // namespace jxc
