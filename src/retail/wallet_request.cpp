#include "retail/wallet_request.h"

#include "core/action.h"

#include <QCryptographicHash>

namespace jxc {

QList<NameValue> payFields(const WalletMerchant &merchant, const WalletOrder &order,
                           const QString &goods, const QString &ip, const QString &nonce) {
    return {{QStringLiteral("auth_code"), order.authCode},
            {QStringLiteral("mch_id"), merchant.number},
            {QStringLiteral("nonce_str"), nonce},
            {QStringLiteral("body"), goods},
            {QStringLiteral("out_trade_no"), order.number},
            {QStringLiteral("total_fee"), totalFee(order.amount)},
            {QStringLiteral("service"), QStringLiteral("unified.trade.micropay")},
            {QStringLiteral("mch_create_ip"), ip}};
}

QList<NameValue> queryFields(const WalletMerchant &merchant, const QString &number,
                             const QString &nonce) {
    return {{QStringLiteral("mch_id"), merchant.number},
            {QStringLiteral("nonce_str"), nonce},
            {QStringLiteral("out_trade_no"), number},
            {QStringLiteral("service"), QStringLiteral("unified.trade.query")}};
}

QString walletSign(QList<NameValue> fields, const QString &key) {
    fields << NameValue(QStringLiteral("key"), key);
    const QByteArray hash =
        QCryptographicHash::hash(joinQueryPairs(fields).toUtf8(), QCryptographicHash::Md5);
    return QString::fromLatin1(hash.toHex().toUpper());
}

QByteArray walletXml(QList<NameValue> fields, const QString &key) {
    const QString sign = walletSign(fields, key);
    fields << NameValue(QStringLiteral("sign"), sign);
    return buildXmlPairs(fields).toUtf8();
}

QString totalFee(Decimal amount) {
    if (!amount.isPositive())
        throw Refusal(QStringLiteral("付款金额必须大于零！"));
    const Decimal fen = (amount * Decimal(100)).rounded(6);
    if (!fen.isWhole())
        throw Refusal(QStringLiteral("付款金额只能精确到分！"));
    return fen.toText();
}

} // namespace jxc
