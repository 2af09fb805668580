#pragma once

#include "base/decimal.h"

namespace jxc {

class Database;
class Row;

/// The system parameters of jxc_xtcs that the program's logic reads. Posting reads them anew inside
/// its transaction; forms use those loaded at login.
struct Parameters {
    int priceDecimals = 2;             ///< cs_xsws
    int quantityDecimals = 2;          ///< cs_cs004
    int amountDecimals = 2;            ///< cs_jews, or the price decimals while cs_zjews is off
    int counterDueDecimals = 2;        ///< cs_posfkws
    bool negativeStockAsks = true;     ///< cs_kc: batch shortage asks instead of refusing
    bool costStaysOffStock = false;    ///< cs_cbjs: the walk does not write kc_cbj
    bool purchaseDiscountLine = false; ///< cs_cgyh: a whole-document discount is a line of its own
    bool saleDiscountLine = false;     ///< cs_xsyh
    bool purchaseUsesLastPrice = true; ///< cs_cgdj
    bool saleRemembersPrice = false;   ///< cs_xsdj
    bool customerPriceLevels = false;  ///< cs_cs001
    bool separateGoodsIn = false;      ///< cs_sprk
    bool separateGoodsOut = false;     ///< cs_spck
    bool pricesIncludeTax = false;     ///< cs_hs
    Decimal taxRate;                   ///< cs_tax, percent
    bool invoiceRegister = true;       ///< cs_kp
    bool refuseShortAccount = false;   ///< cs_xjyh: a payment above the account's balance
    bool warehouseRestriction = false; ///< cs_cs002
    bool noCurrencySymbol = false;     ///< cs_cs003
    bool transferAtSellingPrice = false; ///< cs_dbdj
    int nearExpiryDays = 90;             ///< cs_cs005
    bool refuseExpired = true;           ///< cs_cs006

    static Parameters load(Database &db);
};

} // namespace jxc
