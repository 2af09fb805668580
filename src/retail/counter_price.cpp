#include "retail/counter_price.h"

#include "db/database.h"

namespace jxc {

namespace {

/// A discount of 0 was never filled in: it gives none.
Decimal orOne(Decimal factor) {
    return factor.isPositive() ? factor : Decimal(1);
}

bool isSpecial(const Row &goods, const QString &day) {
    if (!goods.flag(u"g_tjsp"))
        return false;
    if (!goods.flag(u"g_tjqx"))
        return true;
    return goods.text(u"g_ks").left(10) <= day && day <= goods.text(u"g_js").left(10);
}

Decimal discountOf(Database &db, const Row &goods, const PriceBuyer &buyer) {
    if (buyer.level.isEmpty())
        return orOne(goods.decimal(u"g_dzll"));
    if (goods.flag(u"g_dxdz")) {
        const auto row = db.row(
            QStringLiteral("select hl_dxzk from jxc_dxdz where g_sn=? and hl_sn=? order by id"),
            {goods.text(u"g_sn"), buyer.level});
        return row ? orOne(row->decimal(u"hl_dxzk")) : Decimal(1);
    }
    const auto row =
        db.row(QStringLiteral("select hl_zk from jxc_hyfl where hl_sn=?"), {buyer.level});
    Decimal level = row ? orOne(row->decimal(u"hl_zk")) : Decimal(1);
    if (buyer.dayFactor && buyer.dayFactor->isPositive() && *buyer.dayFactor < level)
        level = *buyer.dayFactor;
    return (orOne(goods.decimal(u"g_dzll")) * level).rounded(6);
}

Decimal retailPriceOf(Database &db, const Row &goods, const QString &unit, Decimal factor) {
    if (!unit.isEmpty() && unit != goods.text(u"dw_name")) {
        const auto row = db.row(
            QStringLiteral("select g_lsj from jxc_goodsdw where g_sn=? and dw_name=? order by id"),
            {goods.text(u"g_sn"), unit});
        if (row && row->decimal(u"g_lsj").isPositive())
            return row->decimal(u"g_lsj");
    }
    return (goods.decimal(u"g_lsj") * factor).rounded(6);
}

} // namespace

Decimal counterPrice(Database &db, const QString &goods, const QString &unit, Decimal factor,
                     const PriceBuyer &buyer, const QString &day, int decimals) {
    const auto row = db.row(QStringLiteral("select g_sn,dw_name,g_tjsp,g_tjqx,g_ks,g_js,g_tj,g_hyj,"
                                           "g_lsj,g_dzll,g_dxdz from jxc_goods where g_sn=?"),
                            {goods});
    if (!row)
        return {};
    if (isSpecial(*row, day))
        return (row->decimal(u"g_tj") * factor).rounded(decimals);
    if (!buyer.level.isEmpty() && row->decimal(u"g_hyj").isPositive())
        return (row->decimal(u"g_hyj") * factor).rounded(decimals);
    return (retailPriceOf(db, *row, unit, factor) * discountOf(db, *row, buyer)).rounded(decimals);
}

} // namespace jxc
