#include "stock/amounts.h"

#include <algorithm>

namespace jxc {

LineAmounts lineAmounts(const Parameters &parameters, Decimal quantity, Decimal typedPrice,
                        Decimal rate, Decimal discount) {
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
    a.tax = a.total - a.amount;
    a.discounted = (a.taxPrice * discount).rounded(parameters.priceDecimals);
    return a;
}

} // namespace jxc
