#pragma once

#include "db/row.h"

#include <QStringList>

namespace jxc {

class Session;

// What is on the shelf. Rows read by field name; figures are exact. Warehouses that the operator
// may not see are left out. Windows hide the costs and prices that he may not see.

/// Which rows of the stock list, by the physical quantity shown.
enum class StockLevel { any, inStock, none, negative };

struct StockFilter {
    QString search{};          ///< as addGoodsSearch
    QString classCode{};       ///< a class and all below it
    QString warehouse{};       ///< empty: all
    bool perWarehouse = false; ///< a row for each goods and warehouse instead of their sum
    StockLevel level = StockLevel::any;
};

/// The stock of all goods, in the order of their entry. Beside the fields that name a goods: g_sptm
/// hj_name gc_sn g_zdkc g_sj g_lsj ghs_sn ghs_name; ck_sn ck_name (empty in sums over several
/// warehouses); kc_sl physical and kc_zsl book quantity, kc_ce = kc_zsl - kc_sl (ordered goods
/// that are still to come, negative: sold ones still to go); kc_cbj the cost per base unit (of a
/// sum: weighted by the book quantities, the goods' own average when they come to nothing), kc_je
/// = physical quantity × cost, rounded once to the amount decimals. Disabled goods are listed while
/// they have stock.
[[nodiscard]] Rows stockList(const Session &session, const StockFilter &filter);

/// The batches of a goods with a quantity, the one to be sold first above: ck_sn ck_name t_ph
/// t_scrq t_yxq t_sl, and days, whole days until it expires (negative: past; null: it never does).
[[nodiscard]] Rows batchesOf(const Session &session, const QString &goods,
                             const QString &warehouse = {});

/// Purchases or sales with their prices.
enum class Trade { purchase, sale };

/// The latest prices of a goods per base unit, newest first: gl_kdrq gl_djh ghs_sn ghs_name ck_name
/// gl_sl dw_name gl_dj gl_taxdj gl_dzl gl_zje u_name. With a partner first his latest (own 1), at
/// most `most`, then at most as many of all (own 0); without one only those.
[[nodiscard]] Rows latestPrices(const Session &session, Trade trade, const QString &goods,
                                const QString &partner = {}, int most = 10);

} // namespace jxc
