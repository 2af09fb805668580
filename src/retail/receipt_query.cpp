#include "retail/receipt_query.h"

#include "core/session.h"
#include "core/visible_warehouses.h"
#include "db/database.h"
#include "db/like.h"
#include "db/where.h"

namespace jxc {

namespace {

/// One of the two tables; amounts of returns turn.
QString selectOf(bool isReturn) {
    const auto amount = [&](const char16_t *name) {
        const QString column = QString::fromUtf16(name);
        return isReturn ? QStringLiteral("-a.%1 as %1").arg(column)
                        : QStringLiteral("a.%1").arg(column);
    };
    QStringList amounts;
    for (const char16_t *name : {u"pos_yfje", u"pos_sfje", u"pos_zlje", u"pos_xj", u"pos_czk",
                                 u"pos_yhk", u"pos_djq", u"pos_wxje", u"pos_zfbje", u"pos_mlje"})
        amounts << amount(name);
    return QStringLiteral("select a.id,a.pos_xsrq,a.gl_djh,h.hy_bh,h.hy_name,%1,a.a_name,k.ck_name,"
                          "a.pos_rjid,%2 as is_return from %3 a left join jxc_hyxx h on "
                          "h.hy_sn=a.hy_sn and a.hy_sn<>'' left join jxc_ckxx k on k.ck_sn=a.ck_sn")
        .arg(amounts.join(u','), isReturn ? QStringLiteral("1") : QStringLiteral("0"),
             isReturn ? QStringLiteral("jxc_posthd") : QStringLiteral("jxc_posxsd"));
}

Where whereOf(const Session &session, const ReceiptFilter &filter) {
    Where where;
    where.add(QStringLiteral("a.pos_xsrq>=?"), {filter.from});
    where.add(QStringLiteral("a.pos_xsrq<=?"), {filter.to + QStringLiteral(" 23:59:59")});
    if (!filter.cashier.isEmpty())
        where.add(QStringLiteral("a.a_name=?"), {filter.cashier});
    if (!filter.warehouse.isEmpty())
        where.add(QStringLiteral("a.ck_sn=?"), {filter.warehouse});
    where.addEqual(QStringLiteral("a.hy_sn"), filter.member);
    if (!filter.search.isEmpty()) {
        const QString pattern = containsPattern(filter.search);
        where.add(
            QStringLiteral("(%1 or %2 or h.hy_bh=?)")
                .arg(contains(QStringLiteral("a.gl_djh")), contains(QStringLiteral("h.hy_name"))),
            {pattern, pattern, filter.search});
    }
    addWarehouseRestriction(session, where, QStringLiteral("a.ck_sn"));
    return where;
}

} // namespace

Rows listReceipts(Session &session, const ReceiptFilter &filter) {
    const Where where = whereOf(session, filter);
    const QString condition = QStringLiteral(" where ") + where.text();
    Values values = where.values();
    values.insert(values.end(), where.values().begin(), where.values().end());
    // A member's return stands in both tables; it is shown once.
    const QString sql =
        selectOf(false) + condition +
        QStringLiteral(" and not exists (select 1 from jxc_posthd t where t.gl_djh=a.gl_djh)") +
        QStringLiteral(" union all ") + selectOf(true) + condition +
        QStringLiteral(" order by 2 desc,3 desc");
    return session.db().rows(sql, values);
}

Rows receiptLines(Session &session, const QString &number, bool isReturn) {
    return session.db().rows(
        QStringLiteral("select a.id,a.g_sn,%1 as g_name,g.gg_name,a.dw_name,a.pos_sl,a.pos_dj,"
                       "a.pos_dzl,a.pos_zje,a.t_ph,a.t_yxq from %2 a left join jxc_goods g on "
                       "g.g_sn=a.g_sn where a.gl_djh=? order by a.id")
            .arg(isReturn ? QStringLiteral("g.g_name")
                          : QStringLiteral("coalesce(g.g_name,'')||coalesce(a.t_zp,'')"),
                 isReturn ? QStringLiteral("jxc_posthsp") : QStringLiteral("jxc_posxssp")),
        {number});
}

} // namespace jxc
