#include "core/parameters.h"

#include "db/database.h"

#include <algorithm>

namespace jxc {

namespace {

int decimalsOf(const Row &row, QStringView column) {
    if (row.text(column).isEmpty())
        return 2;
    return static_cast<int>(std::clamp<qint64>(row.integer(column), 0, 6));
}

} // namespace

Parameters Parameters::load(Database &db) {
    Parameters p;
    const auto row = db.row(QStringLiteral("select * from jxc_xtcs order by id"));
    if (!row)
        return p;
    p.priceDecimals = decimalsOf(*row, u"cs_xsws");
    p.quantityDecimals = decimalsOf(*row, u"cs_cs004");
    p.amountDecimals = row->flag(u"cs_zjews") ? decimalsOf(*row, u"cs_jews") : p.priceDecimals;
    p.counterDueDecimals = decimalsOf(*row, u"cs_posfkws");
    p.negativeStockAsks = row->flag(u"cs_kc");
    p.costStaysOffStock = row->flag(u"cs_cbjs");
    p.purchaseDiscountLine = row->integer(u"cs_cgyh") == 1;
    p.saleDiscountLine = row->integer(u"cs_xsyh") == 1;
    p.purchaseUsesLastPrice = row->flag(u"cs_cgdj");
    p.saleRemembersPrice = row->integer(u"cs_xsdj") == 1;
    p.customerPriceLevels = row->flag(u"cs_cs001");
    p.separateGoodsIn = row->flag(u"cs_sprk");
    p.separateGoodsOut = row->flag(u"cs_spck");
    p.pricesIncludeTax = row->flag(u"cs_hs");
    p.taxRate = row->decimal(u"cs_tax");
    p.invoiceRegister = row->flag(u"cs_kp");
    p.refuseShortAccount = row->flag(u"cs_xjyh");
    p.warehouseRestriction = row->flag(u"cs_cs002");
    p.noCurrencySymbol = row->flag(u"cs_cs003");
    p.transferAtSellingPrice = row->integer(u"cs_dbdj") == 1;
    p.nearExpiryDays = static_cast<int>(row->integer(u"cs_cs005"));
    p.refuseExpired = row->flag(u"cs_cs006");
    return p;
}

} // namespace jxc
