#include "stock/selling_price.h"

#include "db/database.h"

namespace jxc {

namespace {

/// How the goods is priced in the unit: its own row for the base unit, jxc_goodsdw's for another.
struct Unit {
    bool isBase = true;
    Decimal factor = 1;
    std::optional<Row> prices;
};

Unit unitOf(Database &db, const QString &goods, const QString &unitName) {
    auto base =
        db.row(QStringLiteral(
                   "select dw_name,g_sj,g_sj1,g_sj2,g_sj3,g_sj4,g_sj5 from jxc_goods where g_sn=?"),
               {goods});
    if (base && (unitName.isEmpty() || base->text(u"dw_name") == unitName))
        return {true, 1, std::move(base)};
    auto other =
        db.row(QStringLiteral("select g_zhxs,g_sj,g_sj1,g_sj2,g_sj3,g_sj4,g_sj5 from jxc_goodsdw "
                              "where g_sn=? and dw_name=? order by id"),
               {goods, unitName});
    const Decimal factor = other ? other->decimal(u"g_zhxs") : Decimal(1);
    return {false, factor, std::move(other)};
}

Decimal agreedPrice(Database &db, const QString &goods, const QString &customer) {
    const auto row =
        db.row(QStringLiteral(
                   "select kb_bj from jxc_khbj where g_sn=? and kh_sn=? order by id desc"),
               {goods, customer});
    return row ? row->decimal(u"kb_bj") : Decimal();
}

/// In the base unit the line entered last counts, in another unit the latest sale date: deliberate.
Decimal lastPrice(Database &db, const QString &goods, const QString &customer,
                  const QString &unitName, bool isBase) {
    const auto row =
        isBase
            ? db.row(QStringLiteral(
                         "select a.ls_dj from jxc_lsxssp a,jxc_lsxsd b,jxc_goods c where "
                         "a.gl_djh=b.gl_djh and a.g_sn=c.g_sn and a.dw_name=c.dw_name and "
                         "b.ls_status=1 and b.kh_sn=? and a.g_sn=? order by a.id desc limit 1"),
                     {customer, goods})
            : db.row(QStringLiteral(
                         "select a.ls_dj from jxc_lsxssp a,jxc_lsxsd b where a.gl_djh=b.gl_djh and "
                         "a.dw_name=? and b.ls_status=1 and b.kh_sn=? and a.g_sn=? "
                         "order by b.ls_xsrq desc,a.id desc limit 1"),
                     {unitName, customer, goods});
    return row ? row->decimal(u"ls_dj") : Decimal();
}

/// Customer type "1000" takes the ordinary price, "1001" to "1005" the levels; any other type the
/// ordinary one.
QString levelColumn(Database &db, const QString &customer) {
    const QString type =
        db.scalar(QStringLiteral("select kt_sn from jxc_khxx where kh_sn=?"), {customer});
    if (type.size() == 4 && type >= QLatin1String("1001") && type <= QLatin1String("1005"))
        return QStringLiteral("g_sj") + type.back();
    return QStringLiteral("g_sj");
}

} // namespace

Decimal defaultSellingPrice(Database &db, const Parameters &parameters, const QString &goods,
                            const QString &customer, const QString &unitName) {
    const Unit unit = unitOf(db, goods, unitName);
    Decimal price = (agreedPrice(db, goods, customer) * unit.factor).rounded(6);
    if (price.isZero() && parameters.saleRemembersPrice)
        price = lastPrice(db, goods, customer, unitName, unit.isBase);
    if (price.isZero() && parameters.customerPriceLevels && unit.prices)
        price = unit.prices->decimal(levelColumn(db, customer));
    if (price.isZero() && unit.prices)
        price = unit.prices->decimal(u"g_sj");
    return price.rounded(parameters.priceDecimals);
}

} // namespace jxc
