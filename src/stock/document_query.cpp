#include "stock/document_query.h"

#include "core/session.h"
#include "db/computed_rows.h"
#include "db/database.h"
#include "db/where.h"
#include "stock/document_conditions.h"
#include "stock/goods_search.h"

namespace jxc {

namespace {

bool isWanted(const DocumentSource &source, const DocumentQuery &filter) {
    if (!filter.codes.isEmpty() && !filter.codes.contains(source.code))
        return false;
    return filter.partner.isEmpty() || source.partnerType == filter.partnerType;
}

QString amountOf(const Session &session, const DocumentSource &source) {
    if (!source.amount.isEmpty())
        return source.amount;
    return QStringLiteral("(select %1 from %2 l where l.%3=h.%3)")
        .arg(session.db().dialect().exactSum(source.lineAmount), source.lines, source.number);
}

QString select(const Session &session, const DocumentSource &source, const QString &condition) {
    return QStringLiteral("select '%1' as code,h.id,h.%2 as number,%3 as rq,'%4' as partner_type,"
                          "%5 as partner_sn,%6 as ck_sn,%7 as ck_sn2,%8 as amount,h.u_sn,h.a_name,"
                          "%9 as state,")
               .arg(source.code, source.number, source.date, source.partnerType, source.partner,
                    source.warehouse, source.secondWarehouse, amountOf(session, source),
                    source.status) +
           QStringLiteral("%1 as checker,%2 as note from %3 h where %4")
               .arg(source.checker, source.note, source.header, condition);
}

} // namespace

Rows findDocuments(const Session &session, const DocumentQuery &filter) {
    QStringList selects;
    Values values;
    for (const DocumentSource &source : documentSources()) {
        if (!isWanted(source, filter))
            continue;
        const Where where = documentConditions(session, source, filter);
        selects << select(session, source, where.text());
        values.insert(values.end(), where.values().begin(), where.values().end());
    }
    if (selects.isEmpty())
        return {};
    const Rows rows = session.db().rows(
        QStringLiteral(
            "select d.*,coalesce(s.ghs_name,k.kh_name) as partner_name,c.ck_name as ck_out,"
            "c2.ck_name as ck_in,u.u_name from (%1) d left join jxc_ghsxx s on "
            "d.partner_type='ghs' and s.ghs_sn=d.partner_sn left join jxc_khxx k on "
            "d.partner_type='kh' and k.kh_sn=d.partner_sn left join jxc_ckxx c on c.ck_sn=d.ck_sn "
            "left join jxc_ckxx c2 on c2.ck_sn=d.ck_sn2 left join jxc_user u on u.u_sn=d.u_sn "
            "order by d.rq desc,d.number desc")
            .arg(selects.join(QStringLiteral(" union all "))),
        values);
    if (rows.empty())
        return {};
    ComputedRows list(
        rows.front().columns().names(),
        {QStringLiteral("title"), QStringLiteral("ck_name"), QStringLiteral("state_text")});
    for (const Row &row : rows) {
        const QString target = row.text(u"ck_in");
        const QString warehouse = row.text(u"ck_out");
        list.add(row, {findDocumentSource(row.text(u"code"))->title,
                       target.isEmpty() ? warehouse : warehouse + QStringLiteral("→") + target,
                       row.integer(u"state") == 1 ? QStringLiteral("已审核")
                                                  : QStringLiteral("未审核")});
    }
    return list.take();
}

Rows documentLines(const Session &session, const QString &code, const QString &number) {
    const DocumentSource *source = findDocumentSource(code);
    if (source == nullptr)
        return {};
    const auto orZero = [](const QString &column) {
        return column.isEmpty() ? QStringLiteral("0") : column;
    };
    QString goods = goodsColumns;
    if (source->linesHaveUnit)
        goods.replace(QStringLiteral("a.dw_name"), QStringLiteral("l.dw_name"));
    // A goods that is gone leaves its number on the line.
    goods.replace(QStringLiteral("a.g_sn"), QStringLiteral("l.g_sn"));
    return session.db().rows(
        QStringLiteral("select l.id,%1,%2 as sl,%3 as dj,%4 as zje,%5 as bz,l.t_ph,l.t_scrq,"
                       "l.t_yxq from %6 l left join jxc_goods a on a.g_sn=l.g_sn where l.%7=? "
                       "order by l.id")
            .arg(goods, source->quantity, orZero(source->price), orZero(source->lineAmount),
                 source->lineNote, source->lines, source->number),
        {number});
}

} // namespace jxc
