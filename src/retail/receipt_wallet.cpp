#include "retail/receipt_wallet.h"

#include "core/session.h"
#include "db/fitted.h"
#include "retail/receipt_hold.h"
#include "retail/receipt_posting.h"
#include "retail/wallet_answer.h"

namespace jxc {

namespace {

/// A posting that went well and shall not stay.
struct Rehearsed {};

Outcome rehearse(Session &session, Prompter &prompter, const Receipt &receipt,
                 const Tender &tender) {
    try {
        return runAction(session.db(), prompter, [&](Answers &answers) {
            (void)postReceiptInTransaction(session, answers, receipt, tender);
            throw Rehearsed();
        });
    } catch (const Rehearsed &) {
        return {};
    }
}

Rows paymentsOf(const Session &session, const QString &receipt) {
    return session.db().rows(
        QStringLiteral("select out_trade_no,total_fee,err_code,transaction_id,trade_type from "
                       "jxc_wxfk where gl_djh=? and wx_flag='fk' order by id desc"),
        {receipt});
}

QString nextOrder(const Session &session, const QString &receipt) {
    int last = 0;
    for (const Row &row : paymentsOf(session, receipt))
        last = std::max(last, row.text(u"out_trade_no").section(u'-', 1).toInt());
    return receipt + u'-' + QString::number(last + 1);
}

} // namespace

std::optional<WalletPayment> walletPaymentOf(const Session &session, const QString &receipt) {
    std::optional<WalletPayment> found;
    if (receipt.isEmpty())
        return found;
    for (const Row &row : paymentsOf(session, receipt)) {
        const QString code = row.text(u"err_code");
        if (!code.isEmpty() && code != walletOpenCode)
            continue;
        if (found && !code.isEmpty()) // one that was taken goes before
            continue;
        found = WalletPayment{row.text(u"out_trade_no"), row.decimal(u"total_fee"), !code.isEmpty(),
                              row.text(u"transaction_id"), row.text(u"trade_type")};
        if (!found->isOpen)
            break;
    }
    return found;
}

Outcome prepareWalletPayment(Session &session, Prompter &prompter, Receipt &receipt,
                             const Tender &tender, QString *order) {
    const Outcome outcome = rehearse(session, prompter, receipt, tender);
    if (!outcome.isDone())
        return outcome;
    Receipt reserved;
    const Outcome drawn = runAction(session.db(), prompter, [&](Answers &) {
        reserved = receipt; // a number that was drawn in vain is drawn anew
        reserveNumber(session, reserved);
        *order = nextOrder(session, reserved.number);
    });
    if (drawn.isDone())
        receipt.number = reserved.number;
    return drawn;
}

void takeWalletPayment(Tender &tender, const WalletPayment &payment) {
    Decimal &weChat = tender.other.weChat, &aliPay = tender.other.aliPay;
    const bool isAliPay = payment.tradeType.contains(u"ali", Qt::CaseInsensitive);
    const bool isWeChat = payment.tradeType.contains(u"weixin", Qt::CaseInsensitive) ||
                          payment.tradeType.contains(u"wechat", Qt::CaseInsensitive);
    if (isAliPay || (!isWeChat && aliPay.isPositive())) {
        weChat = 0;
        aliPay = payment.amount;
    } else {
        weChat = payment.amount;
        aliPay = 0;
    }
    const QString receipts = QStringLiteral("jxc_posxsd");
    tender.walletKind = fitted(receipts, u"pos_zftype", payment.tradeType);
    tender.walletTransaction = fitted(receipts, u"pos_transactionid", payment.transactionId);
}

} // namespace jxc
