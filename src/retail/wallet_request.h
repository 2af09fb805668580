#pragma once

#include "base/decimal.h"
#include "base/pairs.h"

namespace jxc {

/// What the shop is known by at the payment gateway.
struct WalletMerchant {
    QString number; ///< cs_mchid
    QString key;    ///< cs_key, signs requests and is never sent
};

/// A payment by the code on a customer's telephone.
struct WalletOrder {
    QString number;   ///< the document's own, known to the gateway as out_trade_no
    Decimal amount;   ///< yuan, whole fen
    QString authCode; ///< as scanned
};

/// The fields of a payment in the order in which they are signed and sent; `goods` is what the
/// customer reads as the subject, `ip` the workstation's address.
[[nodiscard]] QList<NameValue> payFields(const WalletMerchant &merchant, const WalletOrder &order,
                                         const QString &goods, const QString &ip,
                                         const QString &nonce);
/// The fields that ask for the state of a payment.
[[nodiscard]] QList<NameValue> queryFields(const WalletMerchant &merchant, const QString &number,
                                           const QString &nonce);

/// The signature over fields in their order, the key behind them: MD5 of UTF-8, in capitals.
[[nodiscard]] QString walletSign(QList<NameValue> fields, const QString &key);
/// What is posted: the fields and their signature as XML in UTF-8.
[[nodiscard]] QByteArray walletXml(QList<NameValue> fields, const QString &key);

/// An amount of yuan as the gateway counts it. Throws Refusal for a part of a fen, and for nothing
/// or less.
[[nodiscard]] QString totalFee(Decimal amount);

} // namespace jxc
