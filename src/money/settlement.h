#pragma once

#include "core/action.h"

namespace jxc {

class Session;

/// Receipts from customers (SK), payments to suppliers (FK), and amounts entered as owed (YS, YF):
/// documents without goods, rows of jxc_ysyfk_dj, that post to the partner's ledger and, SK and FK,
/// to the cash journal.

/// Whether a number is that of such a document, by its prefix.
[[nodiscard]] bool isSettlementNumber(QStringView number);

/// Approves a document of any of the four kinds, wholly or not at all.
Outcome approveSettlement(Session &session, Prompter &prompter, const QString &number);
/// Takes the approval back; allowed to the administrator and to the approver.
Outcome cancelSettlement(Session &session, Prompter &prompter, const QString &number);

/// A customer's receipt (SK), inside a transaction that is open: money in is positive in the cash
/// journal.
void ApproveReceipt(Session &session, const QString &number);
/// A payment to a supplier (FK): negative in the cash journal.
void ApprovePayment(Session &session, const QString &number);

} // namespace jxc
