#pragma once

#include "money/partner_ledger.h"

#include <vector>

namespace jxc {

class Session;

/// Something between the shop and a partner that is not settled. The open amounts of a partner add
/// up to his balance: debts are positive; returns and advances, which a payment may be set off
/// against, are negative.
struct OpenItem {
    QString partner;
    QString number; ///< "QC" and the partner's number for the opening balance
    QString kind;   ///< 商品销售单, 期初数, …
    QString date;
    Decimal total; ///< of the document when it was booked, less discount and what was paid at once
    Decimal open;
    int days = 0; ///< old today
    QString note;
};

/// What is open of one partner, or of all while `partner` is empty; oldest first, by one statement.
/// Approved documents with an unpaid rest, entries (YS, YF), opening balances, and receipts or
/// payments that are not wholly spread.
[[nodiscard]] std::vector<OpenItem> openItems(const Session &session, Partner::Kind kind,
                                              const QString &partner = {});

/// How much of a payment goes on an item, with the item's sign.
struct Allocation {
    QString number; ///< of the item
    Decimal amount;
    friend bool operator==(const Allocation &, const Allocation &) = default;
};

/// Takes a part off what is open, when the part has its sign and is not more than it.
[[nodiscard]] bool takeFrom(Decimal &open, Decimal part);

/// Spreads an amount over the items in their order. Returns and advances are used up first, as far
/// as debts remain that the amount alone does not cover; what nothing needs is left over.
[[nodiscard]] std::vector<Allocation> spreadOldestFirst(const std::vector<OpenItem> &items,
                                                        Decimal amount);

} // namespace jxc
