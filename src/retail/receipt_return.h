#pragma once

#include "core/action.h"
#include "db/row.h"
#include "retail/tender.h"

namespace jxc {

class Session;

/// Goods that a customer brings back to the counter.
struct ReturnLine {
    ReceiptLine line; ///< `quantity` is what comes back
    Batch batch{};
    Decimal taxRate{};

    // Of a receipt that is named
    Decimal sold{}, returned{}; ///< in the unit; by earlier returns, drafts too
    Decimal paid{}; ///< for all that was sold, what was taken off the whole spread over it

    [[nodiscard]] Decimal returnable() const { return sold - returned; }
    /// What is given back for the quantity. Returning a line piece by piece gives back in all what
    /// was paid for it, to the cent.
    [[nodiscard]] Decimal total(int decimals) const;
};

struct CounterReturn {
    QString receipt{}; ///< the receipt that is returned; empty: free
    QString warehouse, clerk;
    QString customer = walkInCustomer;
    QString member{};
    QString authorisedBy{}; ///< who allowed it, should the cashier not have the right
    std::vector<ReturnLine> lines{};

    /// Of the lines that something comes back of.
    [[nodiscard]] Decimal total(int decimals) const;
};

/// What can still be returned of a receipt, every quantity 0. Throws Refusal for an unknown or
/// cancelled receipt and for one that was returned wholly.
[[nodiscard]] CounterReturn returnOf(Session &session, const QString &receipt);

/// Batches that goods without a receipt may have come from, the newest first: t_ph t_scrq t_yxq
/// t_sl; sold out ones are among them.
[[nodiscard]] Rows batchesToReturnTo(const Session &session, const QString &goods,
                                     const QString &warehouse);

/// Whether the cashier may take goods back himself (xsgl 2).
[[nodiscard]] bool mayReturn(const Session &session);

/// Takes goods back in one transaction: the approved sales return, the rows of the counter, stock
/// and money. `refund` is what is paid back (all positive); with a named customer the rest lowers
/// his debt.
Outcome postReturn(Session &session, Prompter &prompter, const CounterReturn &goodsBack,
                   const Tender &refund, QString *number);

} // namespace jxc
