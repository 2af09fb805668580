#pragma once

#include "money/document_money.h"
#include "stock/document.h"

namespace jxc {

/// A price or amount spread over a quantity; 0 for a line without quantity.
[[nodiscard]] Decimal perBaseUnit(Decimal amount, Decimal quantity);
/// The price per base unit of a line that was entered in another unit: as it stands when both
/// quantities are equal.
[[nodiscard]] Decimal basePrice(Decimal price, Decimal quantity, Decimal baseQuantity);

/// What the money of every kind of document has in common.
[[nodiscard]] DocumentMoney moneyOf(const Document &document);
/// The account of a payment: the cash account when the document names none.
[[nodiscard]] QString accountOf(const QString &account);

} // namespace jxc
