#pragma once

#include "retail/receipt.h"
#include "retail/tender_moves.h"

namespace jxc {

/// How a receipt is paid, as the cashier types it.
struct Tender {
    Decimal cash{};
    OtherTenders other{};
    Decimal discount{}; ///< pos_yhje, taken off the whole
    Decimal rounding{}; ///< pos_mlje, the odd cents that are let go
    /// Stored on the member's card, to be held against what is taken from it.
    Decimal memberBalance{};
    QString cardPassword{}; ///< as the member typed it, when value leaves the card
    QString walletKind{}, walletTransaction{}; ///< pos_zftype, pos_transactionid

    [[nodiscard]] Decimal sum() const { return cash + other.sum(); }
};

/// What a tender comes to.
struct TenderOutcome {
    Decimal total;    ///< of the lines
    Decimal due;      ///< what is to be paid
    Decimal rounding; ///< typed, and what the rounding of the due takes (gives: negative)
    Decimal tendered, change;
    bool owing = false; ///< the rest is on the customer's account
    int method =
        0; ///< pos_zffs: 0 cash 1 bank card 2 stored value 3 voucher 4 and 5 wallets 6 mixed

    /// What the shop keeps at once.
    [[nodiscard]] Decimal paid() const { return tendered - change; }
};

/// What is due once discount and rounding are off, at the decimals of the counter.
[[nodiscard]] Decimal dueOf(const CounterSettings &settings, Decimal total, const Tender &tender);

/// The number of a tender's kind, as pos_zffs keeps it.
[[nodiscard]] int tenderMethod(const Tender &tender);

/// Holds a tender against the rules; throws Refusal with what is wrong. Only a customer with a name
/// may owe.
[[nodiscard]] TenderOutcome checkTender(const CounterSettings &settings, const Receipt &receipt,
                                        const Tender &tender);

} // namespace jxc
