#include "stock/amounts.h"

#include <algorithm>

namespace jxc {

LineAmounts lineAmounts(const Parameters &parameters, Decimal quantity, Decimal typedPrice,
                        Decimal rate, Decimal discount, std::optional<Decimal> typedTotal) {
    const int derived = std::max(3, parameters.priceDecimals);
    const Decimal hundred = 100;
    LineAmounts a;
    if (parameters.pricesIncludeTax) {
        a.taxPrice = typedPrice;
        a.price = (typedPrice * hundred / (hundred + rate)).rounded(derived);
    } else {
        a.price = typedPrice;
        a.taxPrice = (typedPrice * (hundred + rate) / hundred).rounded(derived);
    }
    a.total = roundedProduct(quantity, a.taxPrice, discount, parameters.amountDecimals);
    a.amount = roundedProduct(quantity, a.price, discount, parameters.amountDecimals);
    if (typedTotal) {
        a.total = *typedTotal;
        a.amount = (a.total * hundred / (hundred + rate)).rounded(parameters.amountDecimals);
    }
    a.tax = a.total - a.amount;
    a.discounted = (a.taxPrice * discount).rounded(parameters.priceDecimals);
    return a;
}

Decimal priceOfTotal(const Parameters &parameters, Decimal total, Decimal quantity, Decimal rate,
                     Decimal discount) {
    const Decimal taxPrice = (total / (quantity * discount).rounded(6)).rounded(6);
    if (parameters.pricesIncludeTax)
        return taxPrice;
    return (taxPrice * Decimal(100) / (Decimal(100) + rate)).rounded(6);
}

} // namespace jxc
