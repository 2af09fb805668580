#pragma once

#include "core/action.h"
#include "retail/receipt.h"

namespace jxc {

class Session;

/// A receipt that was put aside while its customer fetches something.
struct HeldReceipt {
    QString number, time, operatorName, firstGoods;
    qint64 lines = 0;
    Decimal total;
};

/// 挂单: puts a receipt aside under a number of its own, which it gets.
Outcome holdReceipt(Session &session, Prompter &prompter, Receipt &receipt);

/// What is put aside, newest first; while the shop wants it so only today's.
[[nodiscard]] std::vector<HeldReceipt> heldReceipts(Session &session,
                                                    const CounterSettings &settings);

/// 解挂: brings a receipt back under its number; it is held no longer. Refused when another till
/// has taken it meanwhile. Member and buyers are not kept and are asked again.
Outcome recallReceipt(Session &session, Prompter &prompter, const QString &number,
                      Receipt &receipt);

/// Keeps the receipt that is being rung up on this workstation, so that it outlives a crash; one
/// without lines is forgotten.
void keepRunningReceipt(Session &session, const Receipt &receipt);
/// What was being rung up when the program last ended here; nothing when it ended in order.
[[nodiscard]] std::optional<Receipt> runningReceipt(Session &session);
/// Draws the number of a receipt that has none yet and keeps the receipt under it: inside the
/// transaction of the caller.
void reserveNumber(Session &session, Receipt &receipt);
/// Forgets it, and what is held under the number: inside the transaction that posts the receipt.
void dropKeptReceipt(Session &session, const QString &number);

} // namespace jxc
