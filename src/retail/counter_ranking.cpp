#include "retail/counter_ranking.h"

#include "core/session.h"
#include "db/computed_rows.h"
#include "db/database.h"
#include "master/goods_rules.h"

#include <algorithm>

namespace jxc {

namespace {

/// How a group is read: what its lines are parted by, and the tables that name its rows.
struct Group {
    QString key;   ///< of a line `l`
    QString extra; ///< joined to the lines for the key
    QString names; ///< code, name, spec, unit of a row `t` with its `key`
    QString joins;
};

Group groupOf(RankedBy by) {
    const QString none = QStringLiteral("'' as spec,'' as unit");
    switch (by) {
    case RankedBy::goods:
        return {
            QStringLiteral("l.g_sn"), QString(),
            QStringLiteral("t.gkey as code,a.g_name as name,a.gg_name as spec,a.dw_name as unit"),
            QStringLiteral("left join jxc_goods a on a.g_sn=t.gkey")};
    case RankedBy::goodsClass:
        // A discount is of no class; its own name stands.
        return {QStringLiteral("case when l.g_sn='%1' then '%1' else coalesce(g.gc_sn,'') end")
                    .arg(discountGoods),
                QStringLiteral("left join jxc_goods g on g.g_sn=l.g_sn"),
                QStringLiteral("t.gkey as code,case when t.gkey='%1' then '优惠' when "
                               "c.gc_name is null then '（无类别）' else c.gc_name end as name,")
                        .arg(discountGoods) +
                    none,
                QStringLiteral("left join (select gc_sn,min(gc_name) as gc_name from "
                               "jxc_goodsclass group by gc_sn) c on c.gc_sn=t.gkey")};
    case RankedBy::member:
        return {
            QStringLiteral("l.hy_sn"), QString(),
            QStringLiteral("m.hy_bh as code,case when t.gkey='' then '（非会员）' else m.hy_name "
                           "end as name,") +
                none,
            QStringLiteral("left join jxc_hyxx m on m.hy_sn=t.gkey and t.gkey<>''")};
    case RankedBy::cashier:
        break;
    }
    return {QStringLiteral("l.a_name"), QString(),
            QStringLiteral("t.gkey as code,t.gkey as name,") + none, QString()};
}

struct Ranked {
    const Row *row;
    Decimal profit, measured;
};

Decimal measured(const Row &row, RankMeasure measure, Decimal profit) {
    if (measure == RankMeasure::amount)
        return row.decimal(u"zje");
    return measure == RankMeasure::quantity ? row.decimal(u"sl") : profit;
}

Decimal percent(Decimal part, Decimal whole) {
    return (part * Decimal(100) / whole).rounded(2);
}

Rows groupRows(const Session &session, const CounterFilter &filter, RankedBy by) {
    const SqlPart lines = counterLines(session, filter);
    const Group group = groupOf(by);
    const auto sum = [&](const QString &column) { return session.db().dialect().exactSum(column); };
    return session.db().rows(
        QStringLiteral(
            "select t.gkey,%1,t.sl,t.zje,t.zcb from (select %2 as gkey,%3 as sl,%4 as zje,"
            "%5 as zcb from %6 l %7 group by %2) t %8 order by t.gkey")
            .arg(group.names, group.key, sum(QStringLiteral("l.pos_zsl")),
                 sum(QStringLiteral("l.pos_zje")), sum(QStringLiteral("l.pos_zcb")), lines.text,
                 group.extra, group.joins),
        lines.values);
}

} // namespace

Rows counterRanking(const Session &session, const CounterFilter &filter, RankedBy by,
                    RankMeasure measure, int most) {
    const Rows rows = groupRows(session, filter, by);
    if (rows.empty())
        return {};
    std::vector<Ranked> all;
    Decimal total;
    for (const Row &row : rows) {
        const Decimal profit = row.decimal(u"zje") - row.decimal(u"zcb");
        all.push_back({&row, profit, measured(row, measure, profit)});
        total += all.back().measured;
    }
    std::ranges::stable_sort(all, std::greater(), &Ranked::measured);
    ComputedRows list(rows.front().columns().names(),
                      QStringLiteral("rank lr share cumulative").split(u' '));
    const auto isSought = [&](const Row &row) {
        return filter.search.isEmpty() ||
               row.text(u"code").contains(filter.search, Qt::CaseInsensitive) ||
               row.text(u"name").contains(filter.search, Qt::CaseInsensitive);
    };
    Decimal soFar;
    qint64 rank = 0;
    for (const Ranked &r : all) {
        if (most > 0 && rank == most)
            break;
        soFar += r.measured;
        ++rank;
        if (isSought(*r.row))
            list.add(*r.row, {rank, r.profit, percent(r.measured, total), percent(soFar, total)});
    }
    return list.take();
}

} // namespace jxc
