#pragma once

#include "core/parameters.h"

#include <optional>

namespace jxc {

/// The figures of a document line, from what is typed.
struct LineAmounts {
    Decimal price;      ///< without tax, per unit of entry
    Decimal taxPrice;   ///< with tax
    Decimal total;      ///< with tax and discount: what is paid
    Decimal amount;     ///< without tax, with discount
    Decimal tax;        ///< total - amount
    Decimal discounted; ///< price with tax after the discount
};

/// `typedPrice` is without tax, or with it while the parameters say that prices include tax; `rate`
/// is the tax in percent, `discount` a factor (1 for none). Amounts are rounded to the amount
/// decimals, derived prices to three places or the price decimals, whichever is more. A typed total
/// (with tax and discount) stands as it is, and the amount without tax is taken out of it.
[[nodiscard]] LineAmounts lineAmounts(const Parameters &parameters, Decimal quantity,
                                      Decimal typedPrice, Decimal rate, Decimal discount,
                                      std::optional<Decimal> typedTotal = {});

/// The price that stands for a typed total: to be typed as lineAmounts takes it, with all places,
/// so that the amounts come out again. 0 without a quantity.
[[nodiscard]] Decimal priceOfTotal(const Parameters &parameters, Decimal total, Decimal quantity,
                                   Decimal rate, Decimal discount);

} // namespace jxc
