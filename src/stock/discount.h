#pragma once

#include "base/decimal.h"

#include <QString>

namespace jxc {

class Session;

/// Books a whole-document discount on a draft, inside a transaction that is open. The old total is
/// that of the lines without the discount line. By the parameters either a discount line carries
/// the difference, or it is spread evenly over the lines in rounded shares until 0.4 or less is
/// left (a pass that takes nothing ends it). The header's due and paid become the sum of the lines.
void spreadDjYhPurchase(Session &session, const QString &number, Decimal oldTotal,
                        Decimal newTotal);
/// The same for a sale; gifts take no share.
void spreadDjYhSale(Session &session, const QString &number, Decimal oldTotal, Decimal newTotal);
/// The same on a line of its own, whatever the parameters say: what the counter takes off. The new
/// total may be above the old one, when the due is rounded up.
void bookSaleDiscount(Session &session, const QString &number, Decimal oldTotal, Decimal newTotal);

} // namespace jxc
