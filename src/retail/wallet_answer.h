#pragma once

#include "base/decimal.h"
#include "base/pairs.h"

#include <optional>

namespace jxc {

/// Where a payment stands.
enum class WalletState {
    open,   ///< nobody knows yet: it has to be asked for
    paid,   ///< the money is the shop's
    unpaid, ///< surely not taken, or given back
    refused ///< nothing was sent; a rule of the shop says no
};

/// An answer of the gateway, its fields as they came.
class WalletAnswer {
public:
    /// Nothing for what is no whole, plain answer: cut off, nested, the same field twice.
    static std::optional<WalletAnswer> parse(const QByteArray &xml);

    /// Empty for a field that did not come.
    [[nodiscard]] QString text(QStringView field) const;
    [[nodiscard]] const QList<NameValue> &fields() const { return m_fields; }

private:
    QList<NameValue> m_fields;
};

/// What was asked, to hold the answer against.
struct WalletAsked {
    QString merchant, number, key;
    Decimal amount; ///< yuan; 0 while unknown here
};

/// What an answer means.
struct WalletVerdict {
    WalletState state = WalletState::open;
    QString code;                 ///< for err_code: empty when paid
    QString note;                 ///< for err_msg
    QString words;                ///< for the user
    bool isTooEarlyToSay = false; ///< "not paid" may yet change: a payment on its way counts first
};

/// Codes of this program's own in err_code, beside the gateway's.
inline const QString walletOpenCode = QStringLiteral("PENDING");
inline const QString walletFailedCode = QStringLiteral("FAIL");
inline const QString walletNotSentCode = QStringLiteral("NOTSENT");

/// An answer to a payment. One that contradicts what was asked, or carries a signature that is not
/// the shop's, is not believed: the payment stays open.
[[nodiscard]] WalletVerdict judgePayment(const WalletAnswer &answer, const WalletAsked &asked);
/// The same for a query.
[[nodiscard]] WalletVerdict judgeQuery(const WalletAnswer &answer, const WalletAsked &asked);

/// "SUCCESS—支付成功"; a state without words of its own stands alone.
[[nodiscard]] QString tradeStateText(const QString &state);

} // namespace jxc
