#include "retail/counter_reports.h"

#include "core/session.h"
#include "db/computed_rows.h"
#include "db/database.h"
#include "db/like.h"
#include "db/where.h"
#include "master/goods_rules.h"
#include "stock/goods_search.h"

namespace jxc {

namespace {

Values joined(Values first, const Values &second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

QString sumOf(const Session &session, const QString &column, const QString &name) {
    return QStringLiteral("%1 as %2").arg(session.db().dialect().exactSum(column), name);
}

} // namespace

Rows counterGoods(const Session &session, const CounterFilter &filter) {
    const SqlPart lines = counterLines(session, filter);
    Where where;
    addGoodsSearch(where, filter.search);
    const QString sums =
        QStringList{sumOf(session, QStringLiteral("l.pos_zsl"), QStringLiteral("sl")),
                    sumOf(session, QStringLiteral("l.pos_zje"), QStringLiteral("zje")),
                    sumOf(session, QStringLiteral("l.pos_zcb"), QStringLiteral("zcb"))}
            .join(u',');
    const Rows rows = session.db().rows(
        QStringLiteral(
            "select %1,(select min(c.gc_name) from jxc_goodsclass c where "
            "c.gc_sn=a.gc_sn) as gc_name,t.goods,t.sl,t.zje,t.zcb from (select l.g_sn as goods,"
            "%2 from %3 l group by l.g_sn) t left join jxc_goods a on a.g_sn=t.goods "
            "where %4 order by t.goods")
            .arg(goodsColumns, sums, lines.text, where.text()),
        joined(lines.values, where.values()));
    if (rows.empty())
        return {};
    ComputedRows list(rows.front().columns().names(),
                      {QStringLiteral("lr"), QStringLiteral("lrl")});
    for (const Row &row : rows) {
        const Decimal amount = row.decimal(u"zje");
        const Decimal profit = amount - row.decimal(u"zcb");
        // A discount is all profit or loss; a rate of it says nothing.
        const bool isGoods = row.text(u"goods") != discountGoods;
        list.add(row, {profit, isGoods ? (profit * Decimal(100) / amount).rounded(2) : Decimal()});
    }
    return list.take();
}

Rows counterLineList(const Session &session, const CounterFilter &filter) {
    const SqlPart lines = counterLines(session, filter);
    Where where;
    if (!filter.search.isEmpty()) {
        Where goods;
        addGoodsSearch(goods, filter.search);
        where.add(
            QStringLiteral("(%1 or %2)").arg(contains(QStringLiteral("l.gl_djh")), goods.text()),
            joined({containsPattern(filter.search)}, goods.values()));
    }
    const Rows rows = session.db().rows(
        QStringLiteral("select l.*,coalesce(a.g_name,'')||coalesce(l.t_zp,'') as g_name,a.gg_name,"
                       "m.hy_bh,m.hy_name,k.ck_name from %1 l left join jxc_goods a on "
                       "a.g_sn=l.g_sn left join jxc_hyxx m on m.hy_sn=l.hy_sn and l.hy_sn<>'' left "
                       "join jxc_ckxx k on k.ck_sn=l.ck_sn where %2 order by l.pos_xsrq desc,"
                       "l.gl_djh desc,l.id")
            .arg(lines.text, where.text()),
        joined(lines.values, where.values()));
    if (rows.empty())
        return {};
    ComputedRows list(rows.front().columns().names(), {QStringLiteral("lr")});
    for (const Row &row : rows)
        list.add(row, {row.decimal(u"pos_zje") - row.decimal(u"pos_zcb")});
    return list.take();
}

Rows counterMembers(const Session &session, const CounterFilter &filter) {
    const SqlPart receipts = counterReceipts(session, filter);
    Where where;
    if (!filter.search.isEmpty()) {
        const QString pattern = containsPattern(filter.search);
        where.add(QStringLiteral("(%1 or %2 or %3)")
                      .arg(contains(QStringLiteral("m.hy_bh")),
                           contains(QStringLiteral("m.hy_name")),
                           contains(QStringLiteral("m.hy_mobile"))),
                  {pattern, pattern, pattern});
    }
    const QString sums =
        QStringList{sumOf(session, QStringLiteral("r.pos_yfje"), QStringLiteral("zje")),
                    sumOf(session, QStringLiteral("r.pos_bcjf"), QStringLiteral("pos_bcjf")),
                    sumOf(session, QStringLiteral("r.pos_jfye"), QStringLiteral("pos_jfye"))}
            .join(u',');
    return session.db().rows(
        QStringLiteral(
            "select t.*,m.hy_bh,m.hy_name,m.hy_mobile,v.hl_name from (select r.hy_sn,"
            "sum(1-r.is_back) as cs,sum(r.is_back) as thcs,%1,max(substr(r.pos_xsrq,1,"
            "10)) as last from %2 r where r.hy_sn<>'' group by r.hy_sn) t left join "
            "jxc_hyxx m on m.hy_sn=t.hy_sn left join jxc_hyfl v on v.hl_sn=m.hl_sn where "
            "%3 order by m.hy_bh,t.hy_sn")
            .arg(sums, receipts.text, where.text()),
        joined(receipts.values, where.values()));
}

} // namespace jxc
