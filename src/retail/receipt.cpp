#include "retail/receipt.h"

namespace jxc {

Decimal ReceiptLine::total(int decimals) const {
    if (isGift)
        return {};
    if (labelAmount)
        return (*labelAmount * discount).rounded(decimals);
    return roundedProduct(price, discount, quantity, decimals);
}

Decimal Receipt::total(int decimals) const {
    Decimal sum;
    for (const ReceiptLine &line : lines)
        sum += line.total(decimals);
    return sum;
}

Decimal Receipt::atRetail() const {
    Decimal sum;
    for (const ReceiptLine &line : lines)
        sum += (line.retailPrice * line.quantity).rounded(6);
    return sum;
}

Decimal Receipt::pieces() const {
    Decimal sum;
    for (const ReceiptLine &line : lines)
        sum += line.quantity;
    return sum;
}

} // namespace jxc
