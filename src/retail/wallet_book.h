#pragma once

#include "core/action.h"
#include "retail/wallet_answer.h"
#include "retail/wallet_request.h"

namespace jxc {

class Session;

/// A request to the gateway that stands in jxc_wxfk before it leaves.
struct WalletAttempt {
    qint64 id = 0; ///< of its row
    WalletMerchant merchant;
    QString number;
    Decimal amount; ///< yuan; of a query that of the payment asked for, 0 when there is none here
};

/// How a payment or a query ended, for the window that asked and the receipt that keeps it.
struct WalletResult {
    WalletState state = WalletState::open;
    QString number;
    Decimal amount; ///< yuan
    QString words;  ///< for the user
    QString transactionId, tradeType;
    bool isTakenTwice = false; ///< the gateway took the money of one document under two numbers
    bool isChanged = false;    ///< the document's payment stands otherwise than before
};

/// Writes down a payment that is about to be sent. Refused while another one of the document is
/// open or paid, for a code that was used, and without the parameters of the payment.
Outcome beginPayment(Session &session, Prompter &prompter, const WalletOrder &order,
                     WalletAttempt *attempt);
/// Writes down a query that is about to be sent.
Outcome beginQuery(Session &session, Prompter &prompter, const QString &number,
                   WalletAttempt *attempt);

/// Writes down how a payment went, with the answer if there was one. A payment that is known as
/// paid stays so whatever a late or repeated answer says; "paid" counts however late it comes.
Outcome recordPayment(Session &session, Prompter &prompter, const WalletAttempt &attempt,
                      const WalletVerdict &verdict, const WalletAnswer *answer,
                      WalletResult *result);
/// Writes down the answer to a query, and what it says of the document's payment.
Outcome recordQuery(Session &session, Prompter &prompter, const WalletAttempt &attempt,
                    const WalletVerdict &verdict, const WalletAnswer *answer, WalletResult *result);

/// Numbers of the documents whose payment nobody knows the end of, the oldest first.
[[nodiscard]] QStringList openPayments(const Session &session);
/// Ends an open payment that the gateway cannot tell of, after the shopkeeper has looked it up at
/// the provider. Asks; refused for one that is not open.
Outcome closePaymentByHand(Session &session, Prompter &prompter, qint64 id);

/// The records of a span of days ("yyyy-MM-dd", both included), the newest first; open payments of
/// all days. The search looks in numbers.
[[nodiscard]] Rows walletRecords(const Session &session, const QString &from, const QString &to,
                                 const QString &search);

/// So long may a request be on its way, in seconds: before that a gateway that knows of no payment
/// proves nothing.
inline constexpr qint64 walletRequestLife = 90;

} // namespace jxc
