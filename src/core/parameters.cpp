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

LowPriceWarning lowPriceWarning(qint64 value) {
    if (value == 1)
        return LowPriceWarning::belowCost;
    return value == 2 ? LowPriceWarning::belowPreset : LowPriceWarning::none;
}

/// How documents are entered.
void loadEntry(Parameters &p, const Row &row) {
    p.lowPriceWarning = lowPriceWarning(row.integer(u"cs_xsjgts"));
    p.pricesEditable = row.flag(u"cs_xgdj");
    p.purchaseAmountEditable = row.integer(u"cs_cgje") == 1;
    p.saleAmountEditable = row.integer(u"cs_xsje") == 1;
    p.purchaseDiscount = row.flag(u"cs_jhzk");
    p.lowestDiscount = row.decimal(u"cs_zdzk");
    p.saleWithoutCost = row.flag(u"cs_zerocost");
    p.purchaseReturnNeedsSource = row.flag(u"cs_ct");
    p.salesReturnNeedsSource = row.flag(u"cs_xt");
    p.goodsMayRepeat = row.flag(u"cs_spcz");
    p.scanAddsLine = row.flag(u"cs_barcode");
    p.auxiliaryUnits = row.flag(u"cs_fzdw");
    p.asksToApprove = row.flag(u"cs_shdj");
    p.savingApproves = row.integer(u"cs_djsh") == 1;
    p.daysBack = static_cast<int>(row.integer(u"cs_djrq"));
    p.supplierNumberRequired = row.flag(u"cs_ysdh");
    p.showsRetailPrice = row.flag(u"cs_lsj");
    p.contracts = row.flag(u"cs_ht");
    p.waybills = row.flag(u"cs_kddy");
}

void loadPrinting(Parameters &p, const Row &row) {
    p.printsByGoodsCode = row.integer(u"cs_dysx") == 1;
    p.printsBeforeSaving = row.flag(u"cs_bcqdy");
    p.printsAfterApproval = row.flag(u"cs_djzddy");
    p.copiesAfterApproval = static_cast<int>(row.integer(u"cs_djzddysl"));
    p.printedHint = row.text(u"cs_ts");
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
    loadEntry(p, *row);
    loadPrinting(p, *row);
    p.goodsNumberedByClass = row->flag(u"cs_spbh");
    p.barcodesUnique = row->flag(u"cs_barunique");
    p.makesBarcodes = row->flag(u"cs_tmzdsc");
    return p;
}

} // namespace jxc
