#pragma once

#include "retail/counter_input.h"
#include "retail/counter_price.h"
#include "retail/receipt.h"

namespace jxc {

class GoodsFinder;
class Session;
struct GoodsHit;

/// What an input comes to: one goods, several to choose from, or none.
struct CounterFind {
    CounterInput input;
    std::vector<GoodsHit> hits;
    bool isLabel = false; ///< the goods was found by the digits of a label
};

/// Looks for what was typed or scanned: a whole barcode, then a label of the scale, then code,
/// initials or name. An exact hit stands alone; while the shop lists no matches only exact ones
/// count.
[[nodiscard]] CounterFind findForCounter(GoodsFinder &finder, const CounterSettings &settings,
                                         const QString &typed);

/// The line of a goods that was found, priced for a buyer.
[[nodiscard]] ReceiptLine counterLine(Session &session, const CounterSettings &settings,
                                      const CounterFind &found, const GoodsHit &hit,
                                      const PriceBuyer &buyer);

/// Adds a line, or its quantity to an equal one (same goods, unit, price, nothing agreed by hand);
/// answers its index.
size_t addLine(Receipt &receipt, ReceiptLine line);

/// Prices all lines anew that nobody priced by hand, when a member comes or goes.
void priceAnew(Session &session, const CounterSettings &settings, Receipt &receipt,
               const PriceBuyer &before, const PriceBuyer &now);

} // namespace jxc
