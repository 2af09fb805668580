#pragma once

#include "core/action.h"
#include "retail/tender.h"

namespace jxc {

class Session;

/// A receipt that was paid and booked.
struct PostedReceipt {
    QString number;
    TenderOutcome outcome;
};

/// The lines whose discount is below the lowest and that nobody with the right has allowed yet.
[[nodiscard]] std::vector<size_t>
linesToAllow(const Session &session, const CounterSettings &settings, const Receipt &receipt);

/// Pays and books a receipt in one transaction: the approved sale under its number, the rows of the
/// counter, stock and batches (those that expire first), cash and the other tenders, the member's
/// purchase. Refused without the right to sell, without lines, and by checkTender(); asks what a
/// sale asks.
Outcome postReceipt(Session &session, Prompter &prompter, const Receipt &receipt,
                    const Tender &tender, PostedReceipt *posted);

/// The same inside a transaction that is open.
[[nodiscard]] PostedReceipt postReceiptInTransaction(Session &session, Answers &answers,
                                                     const Receipt &receipt, Tender tender);

} // namespace jxc
