#pragma once

#include "base/decimal.h"

#include <QString>

namespace jxc {

class Database;
class Row;

/// Whether a sale asks about a low price.
enum class LowPriceWarning { none, belowCost, belowPreset };

/// The system parameters of jxc_xtcs that the program's logic reads. Posting reads them anew inside
/// its transaction; forms use those loaded at login.
struct Parameters {
    // Figures
    int priceDecimals = 2;         ///< cs_xsws
    int quantityDecimals = 2;      ///< cs_cs004
    int amountDecimals = 2;        ///< cs_jews, or the price decimals while cs_zjews is off
    int counterDueDecimals = 2;    ///< cs_posfkws
    bool noCurrencySymbol = false; ///< cs_cs003

    // Stock and cost
    bool negativeStockAsks = true;       ///< cs_kc: batch shortage asks instead of refusing
    bool costStaysOffStock = false;      ///< cs_cbjs: the walk does not write kc_cbj
    bool separateGoodsIn = false;        ///< cs_sprk
    bool separateGoodsOut = false;       ///< cs_spck
    bool transferAtSellingPrice = false; ///< cs_dbdj
    int nearExpiryDays = 90;             ///< cs_cs005
    bool refuseExpired = true;           ///< cs_cs006: expired batches are not sold at all

    // Prices and amounts
    bool pricesIncludeTax = false;     ///< cs_hs
    Decimal taxRate;                   ///< cs_tax, percent
    bool purchaseDiscountLine = false; ///< cs_cgyh: a whole-document discount is a line of its own
    bool saleDiscountLine = false;     ///< cs_xsyh
    bool purchaseUsesLastPrice = true; ///< cs_cgdj
    bool saleRemembersPrice = false;   ///< cs_xsdj
    bool customerPriceLevels = false;  ///< cs_cs001
    LowPriceWarning lowPriceWarning = LowPriceWarning::belowCost; ///< cs_xsjgts
    bool pricesEditable = true;                                   ///< cs_xgdj
    bool purchaseAmountEditable = false; ///< cs_cgje: a typed amount recomputes the price
    bool saleAmountEditable = false;     ///< cs_xsje
    bool purchaseDiscount = false;       ///< cs_jhzk: purchase lines take a discount
    Decimal lowestDiscount;              ///< cs_zdzk: lowest factor of a sale, 0 for any
    bool saleWithoutCost = true;         ///< cs_zerocost: off asks for goods without cost

    // Entering documents
    bool purchaseReturnNeedsSource = false; ///< cs_ct
    bool salesReturnNeedsSource = false;    ///< cs_xt
    bool goodsMayRepeat = true;             ///< cs_spcz
    bool scanAddsLine = true;               ///< cs_barcode
    bool auxiliaryUnits = true;             ///< cs_fzdw
    bool asksToApprove = true;              ///< cs_shdj: saving asks whether to approve
    bool savingApproves = false;            ///< cs_djsh
    int daysBack = 0;                       ///< cs_djrq: oldest date of a document, 0 for any
    bool supplierNumberRequired = false;    ///< cs_ysdh
    bool showsRetailPrice = true;           ///< cs_lsj
    bool contracts = true;                  ///< cs_ht
    bool waybills = true;                   ///< cs_kddy

    // Printing
    bool printsByGoodsCode = false;   ///< cs_dysx
    bool printsBeforeSaving = false;  ///< cs_bcqdy
    bool printsAfterApproval = false; ///< cs_djzddy
    int copiesAfterApproval = 1;      ///< cs_djzddysl
    QString printedHint;              ///< cs_ts, under documents

    // Goods
    bool goodsNumberedByClass = true; ///< cs_spbh
    bool barcodesUnique = true;       ///< cs_barunique
    bool makesBarcodes = false;       ///< cs_tmzdsc: new goods get an in-store barcode

    // Money and rights
    bool invoiceRegister = true;       ///< cs_kp
    bool refuseShortAccount = false;   ///< cs_xjyh: a payment above the account's balance
    bool warehouseRestriction = false; ///< cs_cs002

    static Parameters load(Database &db);
};

} // namespace jxc
