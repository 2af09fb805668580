#include "stock/proposals.h"

#include "core/session.h"
#include "db/database.h"
#include "stock/cost.h"
#include "stock/document_kind.h"
#include "stock/selling_price.h"

namespace jxc {

namespace {

/// A goods in all its units, with what it costs in each.
struct Offer {
    Row goods;
    Rows units; ///< rows of jxc_goodsdw
};

bool isPurchase(const QString &code) {
    return code == QLatin1String("CJ") || code == QLatin1String("CT");
}

std::optional<Row> readGoods(Database &db, const QString &goods, const QString &warehouse) {
    return db.row(
        QStringLiteral("select a.*,b.kc_sl,b.kc_zsl from jxc_goods a left join jxc_kcsp b on "
                       "b.g_sn=a.g_sn and b.ck_sn=? where a.g_sn=? and a.g_sn<>? and "
                       "coalesce(a.g_jy,0)=0 order by a.id limit 1"),
        {warehouse, goods, discountGoods});
}

Rows readUnits(Database &db, const QString &goods) {
    return db.rows(QStringLiteral("select dw_name,g_zhxs,g_sptm,g_jj,g_sj,g_lsj from jxc_goodsdw "
                                  "where g_sn=? order by id"),
                   {goods});
}

/// The newest quotation of a supplier, per base unit; 0 without any.
Decimal quotedPrice(Database &db, const QString &goods, const QString &supplier) {
    const auto row =
        db.row(QStringLiteral("select gb_bj from jxc_ghsbj where g_sn=? and ghs_sn=? order by "
                              "coalesce(gb_bjrq,'') desc,id desc limit 1"),
               {goods, supplier});
    return row ? row->decimal(u"gb_bj") : Decimal();
}

/// The unit's own row, nothing for the base unit.
const Row *unitRow(const Offer &offer, const QString &unit) {
    if (unit.isEmpty() || unit == offer.goods.text(u"dw_name"))
        return nullptr;
    for (const Row &row : offer.units)
        if (row.text(u"dw_name") == unit)
            return &row;
    return nullptr;
}

Decimal factorOf(const Row *unit) {
    if (unit == nullptr)
        return 1;
    const Decimal factor = unit->decimal(u"g_zhxs");
    return factor.isPositive() ? factor : Decimal(1);
}

/// What was last paid for a goods, else its preset price.
Decimal lastPaid(const Row &goods) {
    const Decimal last = goods.decimal(u"g_scjj");
    return last.isZero() ? goods.decimal(u"g_jj") : last;
}

/// A receipt takes the supplier's quotation first; a return that names no receipt what was last
/// paid.
Decimal purchasePrice(Session &session, const Offer &offer, const LineRequest &request,
                      const Row *unit) {
    const Parameters &parameters = session.parameters;
    const Row &goods = offer.goods;
    Decimal price;
    if (request.code == QLatin1String("CT")) {
        price = lastPaid(goods);
    } else {
        price = quotedPrice(session.db(), request.goods, request.partner);
        if (price.isZero() && parameters.purchaseUsesLastPrice)
            price = lastPaid(goods);
    }
    if (price.isZero() && unit != nullptr)
        if (const Decimal own = unit->decimal(u"g_jj"); !own.isZero())
            return own.rounded(parameters.priceDecimals);
    if (price.isZero())
        price = goods.decimal(u"g_jj");
    return (price * factorOf(unit)).rounded(parameters.priceDecimals);
}

Decimal priceFor(Session &session, const Offer &offer, const LineRequest &request,
                 const QString &unit) {
    if (isPurchase(request.code))
        return purchasePrice(session, offer, request, unitRow(offer, unit));
    return defaultSellingPrice(session.db(), session.parameters, request.goods, request.partner,
                               unit);
}

std::vector<UnitChoice> unitChoices(const Offer &offer, bool auxiliary) {
    std::vector<UnitChoice> choices = {
        {offer.goods.text(u"dw_name"), 1, offer.goods.text(u"g_sptm")}};
    if (auxiliary)
        for (const Row &row : offer.units)
            if (row.text(u"dw_name") != choices.front().name)
                choices.push_back({row.text(u"dw_name"), factorOf(&row), row.text(u"g_sptm")});
    return choices;
}

/// The unit asked for, else the one that the scanned barcode names, else the base unit.
const UnitChoice &chosenUnit(const std::vector<UnitChoice> &units, const LineRequest &request) {
    for (const UnitChoice &unit : units)
        if (!request.unit.isEmpty() && unit.name == request.unit)
            return unit;
    for (const UnitChoice &unit : units)
        if (request.unit.isEmpty() && !request.barcode.isEmpty() && unit.barcode == request.barcode)
            return unit;
    return units.front();
}

/// A price of the unit itself, else the base unit's times the factor.
Decimal unitPrice(const Offer &offer, const Row *unit, QStringView column) {
    if (unit != nullptr)
        if (const Decimal own = unit->decimal(column); !own.isZero())
            return own;
    return (offer.goods.decimal(column) * factorOf(unit)).rounded(6);
}

Decimal costFor(Session &session, const LineRequest &request) {
    if (request.code == QLatin1String("XS"))
        return getCbjBefore(session.db(), request.warehouse, request.goods, request.date);
    return getCbjAt(session.db(), request.warehouse, request.goods, request.date);
}

void takeGoods(LineProposal &p, const Row &goods) {
    p.goods = goods.text(u"g_sn");
    p.name = goods.text(u"g_name");
    p.commonName = goods.text(u"g_tym");
    p.dosageForm = goods.text(u"g_yjlx");
    p.specification = goods.text(u"gg_name");
    p.maker = goods.text(u"g_sccs");
    p.licence = goods.text(u"color_name");
    p.baseUnit = goods.text(u"dw_name");
    p.supplier = goods.text(u"ghs_sn");
    p.location = goods.text(u"hj_name");
    p.restricted = goods.flag(u"g_iscf");
    p.limit = goods.decimal(u"g_xzsl");
    p.shelfLifeMonths = static_cast<int>(goods.integer(u"g_bzq"));
}

} // namespace

std::optional<LineProposal> proposeLine(Session &session, const LineRequest &request) {
    Database &db = session.db();
    auto goods = readGoods(db, request.goods, request.warehouse);
    if (!goods)
        return std::nullopt;
    const Offer offer{*std::move(goods), readUnits(db, request.goods)};
    LineProposal p;
    takeGoods(p, offer.goods);
    p.units = unitChoices(offer, session.parameters.auxiliaryUnits);
    const UnitChoice &unit = chosenUnit(p.units, request);
    p.unit = unit.name;
    p.factor = unit.factor;
    p.barcode = request.barcode.isEmpty() ? offer.goods.text(u"g_sptm") : request.barcode;
    const Row *own = unitRow(offer, p.unit);
    p.price = priceFor(session, offer, request, p.unit);
    p.retailPrice = unitPrice(offer, own, u"g_lsj");
    p.presetPrice = unitPrice(offer, own, u"g_sj");
    p.cost = (costFor(session, request) * p.factor).rounded(6);
    p.stock = (offer.goods.decimal(u"kc_sl") / p.factor).rounded(6);
    p.bookStock = (offer.goods.decimal(u"kc_zsl") / p.factor).rounded(6);
    return p;
}

Decimal proposePrice(Session &session, const LineRequest &request) {
    Database &db = session.db();
    auto goods = readGoods(db, request.goods, request.warehouse);
    if (!goods)
        return {};
    return priceFor(session, {*std::move(goods), readUnits(db, request.goods)}, request,
                    request.unit);
}

} // namespace jxc
