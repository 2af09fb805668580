#include "core/session.h"
#include "db/database.h"
#include "stock/document_kind.h"
#include "stock/return_book.h"
#include "stock/sources.h"

#include <algorithm>

namespace jxc {

namespace {

/// Lines of approved receipts or sales of a partner and warehouse, newest document first, each with
/// what its document came to.
QString tradedSql(Database &db, const ReturnSide &s, bool ofGoods) {
    const QString documentTotal =
        QStringLiteral("(select %1 from %2 t where t.%3=b.%3 and t.g_sn<>'00000000')")
            .arg(db.dialect().exactSum(QStringLiteral("t.") + s.prefix + QStringLiteral("_zje")),
                 s.sourceLines, s.number);
    const QString ofSale = s.isSale
                               ? QStringLiteral("b.g_zhxs,b.ls_cbj as cbj,a.hy_sn,a.ls_yfje as due,"
                                                "a.ls_yhje as off,b.t_zp,%1 as lines_total")
                                     .arg(documentTotal)
                               : QStringLiteral("0 as g_zhxs,0 as cbj,'' as hy_sn");
    QString sql =
        QStringLiteral("select b.%1 as number,a.%2 as rq,b.g_sn,g.g_name,g.gg_name,g.g_sccs,"
                       "b.dw_name,b.t_ph,b.t_yxq,b.t_scrq,b.%3_sl as sl,b.%3_zsl as zsl,"
                       "b.%4 as done,b.%3_dj as dj,b.%3_taxdj as taxdj,b.%3_dzl as dzl,"
                       "b.%3_tax as tax,%5 from ")
            .arg(s.number, s.date, s.prefix, s.done, ofSale) +
        QStringLiteral("%1 a join %2 b on b.%3=a.%3 left join jxc_goods g on g.g_sn=b.g_sn where "
                       "a.%4=? and a.ck_sn=? and a.%5>=? and a.%6=1 and b.g_sn<>?")
            .arg(s.sourceHeader, s.sourceLines, s.number, s.partner, s.date, s.status);
    if (ofGoods)
        sql += QStringLiteral(" and b.g_sn=?");
    return sql + QStringLiteral(" order by a.%1 desc,a.id desc,b.id").arg(s.date);
}

/// The price of a line as it is typed; of a sale that was paid for with less, in proportion.
Decimal priceOf(const Parameters &parameters, const ReturnSide &s, const Row &row) {
    const Decimal price = row.decimal(parameters.pricesIncludeTax ? u"taxdj" : u"dj");
    if (!s.isSale)
        return price;
    const Decimal total = row.decimal(u"lines_total");
    const Decimal paid = row.decimal(u"due") - row.decimal(u"off");
    if (paid == total || !total.isPositive())
        return price;
    return (price * paid / total).rounded(std::max(3, parameters.priceDecimals));
}

ReturnableLine lineOf(const Parameters &parameters, const ReturnSide &s, const Row &row) {
    ReturnableLine l;
    l.number = row.text(u"number");
    l.date = row.text(u"rq");
    l.goods = row.text(u"g_sn");
    l.name = row.text(u"g_name");
    l.specification = row.text(u"gg_name");
    l.maker = row.text(u"g_sccs");
    l.unit = row.text(u"dw_name");
    l.factor = row.decimal(u"g_zhxs");
    if (!l.factor.isPositive())
        l.factor = (row.decimal(u"zsl") / row.decimal(u"sl")).rounded(6);
    l.batch = {row.text(u"t_ph"), row.text(u"t_yxq"), row.text(u"t_scrq")};
    l.price = priceOf(parameters, s, row);
    l.discount = s.isSale ? row.decimal(u"dzl") : Decimal(1);
    l.taxRate = row.decimal(u"tax");
    l.cost = row.decimal(u"cbj");
    l.member = row.text(u"hy_sn");
    return l;
}

} // namespace

std::vector<ReturnableLine> returnableLines(Session &session, const QString &code,
                                            const QString &partner, const QString &warehouse,
                                            const QString &exceptReturn, const QString &goods,
                                            const QString &fromDate) {
    Database &db = session.db();
    const ReturnSide &s = returnSide(code);
    Values values{partner, warehouse, fromDate, discountGoods};
    if (!goods.isEmpty())
        values.emplace_back(goods);
    std::vector<ReturnableLine> lines;
    std::map<ReturnKey, size_t> places;
    for (const Row &row : db.rows(tradedSql(db, s, !goods.isEmpty()), values)) {
        ReturnableLine line = lineOf(session.parameters, s, row);
        const ReturnKey key{line.number, line.goods, line.unit, line.batch.normalised()};
        const auto [place, isNew] = places.try_emplace(key, lines.size());
        if (isNew)
            lines.push_back(std::move(line));
        lines[place->second].traded += row.decimal(u"done");
    }
    const auto returned = returnedByPartner(db, s, partner, exceptReturn);
    for (const auto &[key, place] : places) {
        if (const auto taken = returned.find(key); taken != returned.end())
            lines[place].returned = taken->second;
        lines[place].returnable = lines[place].traded - lines[place].returned;
    }
    std::erase_if(lines, [](const ReturnableLine &l) { return !l.returnable.isPositive(); });
    return lines;
}

} // namespace jxc
