#include "retail/settlement_query.h"

#include "core/session.h"
#include "db/database.h"
#include "db/like.h"
#include "db/where.h"
#include "retail/receipt_query.h"
#include "stock/goods_search.h"

namespace jxc {

Unsettled unsettledReceipts(const Session &session) {
    Database &db = session.db();
    Unsettled open;
    const auto add = [&](const QString &headers, const QString &lines, bool areReturns) {
        const QString condition = QStringLiteral("(h.pos_rjid='' or h.pos_rjid is null)");
        open.receipts +=
            db.scalar(QStringLiteral("select count(*) from %1 h where %2").arg(headers, condition))
                .toLongLong();
        const Row sum = db.row(QStringLiteral("select %1 as amount from %2 h join %3 l on "
                                              "l.gl_djh=h.gl_djh where %4")
                                   .arg(db.dialect().exactSum(QStringLiteral("l.pos_zje")), headers,
                                        lines, condition))
                            .value();
        const Decimal amount = sum.decimal(u"amount");
        open.amount += areReturns ? -amount : amount;
    };
    add(QStringLiteral("jxc_posxsd"), QStringLiteral("jxc_posxssp"), false);
    add(QStringLiteral("jxc_posthd"), QStringLiteral("jxc_posthsp"), true);
    return open;
}

Rows listSettlements(const Session &session, const QString &from, const QString &to,
                     const QString &search) {
    Where where;
    where.add(QStringLiteral("rj_rq>=?"), {from});
    where.add(QStringLiteral("rj_rq<=?"), {endOf(to)});
    if (!search.isEmpty())
        where.add(QStringLiteral("(%1 or %2)")
                      .arg(contains(QStringLiteral("gl_djh")), contains(QStringLiteral("a_name"))),
                  {containsPattern(search), containsPattern(search)});
    return session.db().rows(QStringLiteral("select id,gl_djh,rj_rq,rj_sl,rj_je,a_name from "
                                            "jxc_rjd where %1 order by id desc")
                                 .arg(where.text()),
                             where.values());
}

Rows settlementLines(const Session &session, const QString &number, const QString &search) {
    Where where;
    where.add(QStringLiteral("j.gl_djh=?"), {number});
    addGoodsSearch(where, search);
    return session.db().rows(
        QStringLiteral("select j.id,j.rj_xsrq,j.g_sn as goods,j.rj_sl,j.rj_je,%1 from jxc_rjsp j "
                       "left join jxc_goods a on a.g_sn=j.g_sn where %2 order by j.rj_xsrq,j.g_sn,"
                       "j.id")
            .arg(goodsColumns, where.text()),
        where.values());
}

Rows settlementReceipts(const Session &session, const QString &number, const QString &search) {
    // Its lines tell the days, so that only receipts of those are looked through.
    const Row days = session.db()
                         .row(QStringLiteral("select min(rj_xsrq) as first,max(rj_xsrq) as last "
                                             "from jxc_rjsp where gl_djh=?"),
                              {number})
                         .value();
    CounterFilter filter;
    filter.from = days.text(u"first");
    filter.to = days.text(u"last");
    filter.settlement = number;
    filter.search = search;
    return listReceipts(session, filter);
}

} // namespace jxc
