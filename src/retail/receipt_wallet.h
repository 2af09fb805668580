#pragma once

#include "core/action.h"
#include "retail/receipt.h"

#include <optional>

namespace jxc {

class Session;
struct Tender;

// A wallet is charged before its receipt is posted: the receipt's number is drawn first, and every
// attempt to charge it is an order of its own at the gateway, "number-1", "number-2".

/// Money that a wallet has paid, or may have paid, for a receipt that is not posted yet.
struct WalletPayment {
    QString order;       ///< out_trade_no
    Decimal amount;      ///< yuan
    bool isOpen = false; ///< nobody knows yet whether it was taken
    QString transactionId, tradeType;
};

/// The payment of a receipt that counts: one that was taken, else one whose end nobody knows.
[[nodiscard]] std::optional<WalletPayment> walletPaymentOf(const Session &session,
                                                           const QString &receipt);

/// Holds receipt and tender against all that posting holds them against, asks what it asks, and
/// takes it back; then draws the receipt's number and keeps the receipt under it on this
/// workstation. `order` gets the number of the next attempt.
Outcome prepareWalletPayment(Session &session, Prompter &prompter, Receipt &receipt,
                             const Tender &tender, QString *order);

/// Puts what was paid into the tender: under the wallet that it came from, where the gateway names
/// it, with the gateway's number of the transaction.
void takeWalletPayment(Tender &tender, const WalletPayment &payment);

} // namespace jxc
