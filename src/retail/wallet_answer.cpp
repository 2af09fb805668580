#include "retail/wallet_answer.h"

#include "core/action.h"
#include "retail/wallet_request.h"

#include <QXmlStreamReader>
#include <algorithm>

namespace jxc {

namespace {

const QString payFailed = QStringLiteral("支付失败");
const QString queryFailed = QStringLiteral("查询失败");
const QString needsQuery = QStringLiteral("需要查询");

bool isGood(const QString &value) {
    return value == u"0" || value.compare(QLatin1String("SUCCESS"), Qt::CaseInsensitive) == 0;
}

bool isYes(const QString &value) {
    return value.compare(QLatin1String("Y"), Qt::CaseInsensitive) == 0 || value == u"1" ||
           value.compare(QLatin1String("true"), Qt::CaseInsensitive) == 0;
}

QString reasonIn(const WalletAnswer &answer) {
    for (const QStringView field : {u"err_msg", u"pay_info", u"message", u"err_code"})
        if (const QString text = answer.text(field); !text.isEmpty())
            return text;
    return {};
}

QString withReason(const QString &words, const QString &reason) {
    return reason.isEmpty() ? words : words + QStringLiteral("\r\n\r\n") + reason;
}

/// Providers sign their answers over the fields as they send them, or in alphabetical order
/// without the empty ones. No signature at all says nothing.
bool isSignedByUs(const WalletAnswer &answer, const QString &key) {
    const QString sign = answer.text(u"sign");
    if (sign.isEmpty())
        return true;
    QList<NameValue> fields = answer.fields();
    fields.removeIf([](const NameValue &field) { return field.first == u"sign"; });
    const QString asSent = walletSign(fields, key);
    fields.removeIf([](const NameValue &field) { return field.second.isEmpty(); });
    std::sort(fields.begin(), fields.end());
    return sign.compare(asSent, Qt::CaseInsensitive) == 0 ||
           sign.compare(walletSign(fields, key), Qt::CaseInsensitive) == 0;
}

/// Why an answer cannot be about what was asked; empty when it can.
QString contradiction(const WalletAnswer &answer, const WalletAsked &asked) {
    if (!isSignedByUs(answer, asked.key))
        return QStringLiteral("应答的签名不正确");
    if (const QString number = answer.text(u"out_trade_no");
        !number.isEmpty() && number != asked.number)
        return QStringLiteral("应答的单号不符：") + number;
    if (const QString merchant = answer.text(u"mch_id");
        !merchant.isEmpty() && merchant != asked.merchant)
        return QStringLiteral("应答的商户号不符：") + merchant;
    if (const QString fee = answer.text(u"total_fee");
        !fee.isEmpty() && asked.amount.isPositive() && fee != totalFee(asked.amount))
        return QStringLiteral("应答的金额不符：%1分").arg(fee);
    return {};
}

WalletVerdict stillOpen(const QString &note) {
    return {WalletState::open, walletOpenCode, note, withReason(needsQuery, note)};
}

/// The gateway never heard of the number.
bool isUnknownOrder(const QString &code) {
    QString letters = code.toUpper();
    letters.removeIf([](QChar sign) { return !sign.isLetter(); });
    return letters.contains(QLatin1String("NOTEXIST")) ||
           letters.contains(QLatin1String("NOTFOUND"));
}

WalletVerdict failedQuery(const WalletAnswer &answer) {
    const QString code = answer.text(u"err_code");
    const QString reason = reasonIn(answer);
    if (isUnknownOrder(code))
        return {WalletState::unpaid, code, reason, withReason(queryFailed, reason), true};
    return {WalletState::open, code.isEmpty() ? walletFailedCode : code, reason,
            withReason(queryFailed, reason)};
}

} // namespace

std::optional<WalletAnswer> WalletAnswer::parse(const QByteArray &xml) {
    QXmlStreamReader reader(xml);
    WalletAnswer answer;
    if (!reader.readNextStartElement())
        return {};
    while (reader.readNextStartElement()) {
        const QString name = reader.name().toString();
        const auto isSame = [&](const NameValue &field) { return field.first == name; };
        if (std::any_of(answer.m_fields.begin(), answer.m_fields.end(), isSame))
            return {};
        answer.m_fields << NameValue(
            name, reader.readElementText(QXmlStreamReader::ErrorOnUnexpectedElement).trimmed());
    }
    while (!reader.atEnd()) // what follows may be broken as well
        if (reader.readNext() == QXmlStreamReader::DTD)
            return {};
    if (reader.hasError() || answer.text(u"status").isEmpty())
        return {};
    return answer;
}

QString WalletAnswer::text(QStringView field) const {
    for (const auto &[name, value] : m_fields)
        if (name == field)
            return value;
    return {};
}

WalletVerdict judgePayment(const WalletAnswer &answer, const WalletAsked &asked) {
    if (const QString fault = contradiction(answer, asked); !fault.isEmpty())
        return stillOpen(fault);
    const QString reason = reasonIn(answer);
    if (isYes(answer.text(u"need_query")))
        return stillOpen(reason);
    const QString result = answer.text(u"pay_result");
    if (!isGood(answer.text(u"status")) || !isGood(answer.text(u"result_code")) ||
        (!result.isEmpty() && !isGood(result))) {
        const QString code = answer.text(u"err_code");
        return {WalletState::unpaid, code.isEmpty() ? walletFailedCode : code, reason,
                withReason(payFailed, reason)};
    }
    if (answer.text(u"transaction_id").isEmpty() && answer.text(u"out_transaction_id").isEmpty())
        return stillOpen(QStringLiteral("应答没有交易号")); // nothing to find the money by
    return {WalletState::paid, {}, {}, QStringLiteral("支付成功")};
}

WalletVerdict judgeQuery(const WalletAnswer &answer, const WalletAsked &asked) {
    if (const QString fault = contradiction(answer, asked); !fault.isEmpty())
        return {WalletState::open, walletFailedCode, fault, withReason(queryFailed, fault)};
    if (!isGood(answer.text(u"status")) || !isGood(answer.text(u"result_code")))
        return failedQuery(answer);
    const QString state = answer.text(u"trade_state").toUpper();
    const QString words = tradeStateText(state);
    if (state == u"SUCCESS")
        return {WalletState::paid, {}, words, words};
    if (state == u"REFUND" || state == u"REVOKED" || state == u"REVERSE")
        return {WalletState::unpaid, state, words, words};
    if (state == u"NOTPAY" || state == u"CLOSED" || state == u"PAYERROR")
        return {WalletState::unpaid, state, words, words, true};
    return {WalletState::open, state.isEmpty() ? walletFailedCode : state, words,
            words.isEmpty() ? queryFailed : words};
}

QString tradeStateText(const QString &state) {
    static const QList<NameValue> words{
        {QStringLiteral("SUCCESS"), QStringLiteral("支付成功")},
        {QStringLiteral("REFUND"), QStringLiteral("转入退款")},
        {QStringLiteral("NOTPAY"), QStringLiteral("未支付")},
        {QStringLiteral("CLOSED"), QStringLiteral("已关闭")},
        {QStringLiteral("REVOKED"), QStringLiteral("已撤销")},
        {QStringLiteral("REVERSE"), QStringLiteral("已撤销")},
        {QStringLiteral("USERPAYING"), QStringLiteral("顾客支付中")},
        {QStringLiteral("PAYERROR"), QStringLiteral("支付出错")}};
    for (const auto &[name, meaning] : words)
        if (name == state)
            return name + QStringLiteral("—") + meaning;
    return state;
}

} // namespace jxc
