#include "retail/forms/counter_paying.h"

#include "core/remembering_prompter.h"
#include "core/session.h"
#include "retail/forms/counter_dialogs.h"
#include "retail/forms/counter_printing.h"
#include "retail/forms/tf_posfk.h"
#include "retail/forms/tf_wxfk.h"
#include "retail/receipt_wallet.h"
#include "ui/buyer_dialog.h"
#include "ui/formats.h"

namespace jxc {

namespace {

/// Who bought such goods before, or who the member is.
BuyerRecord proposedBuyer(Session &session, const Receipt &receipt,
                          const std::optional<CounterMember> &member) {
    std::optional<BuyerRecord> known = lastBuyerOf(session, receipt.customer);
    if (!known && member && !member->mobile.isEmpty())
        known = findBuyer(session, member->mobile);
    if (known)
        return *known;
    return member ? BuyerRecord{member->name, {}, member->mobile, {}, {}, {}} : BuyerRecord();
}

} // namespace

/// Who buys restricted goods is asked once for all of them.
bool CounterPaying::registerBuyers(Receipt &receipt, const std::optional<CounterMember> &member) {
    BuyerRecord buyer;
    for (ReceiptLine &line : receipt.lines) {
        if (!line.restricted || !line.buyer.isEmpty())
            continue;
        if (buyer.name.isEmpty()) {
            const auto asked = askBuyer(
                m_context, line.name, proposedBuyer(m_context.session, receipt, member), &m_window);
            if (!asked)
                return false;
            buyer = *asked;
        }
        line.buyer = buyer.name;
        line.identityNo = buyer.identityNo;
        line.mobile = buyer.mobile;
        line.address = buyer.address;
        line.use = buyer.use;
    }
    return true;
}

/// A receipt that was put aside does not remember who allowed what.
bool CounterPaying::allowDiscounts(Receipt &receipt) {
    const std::vector<size_t> lines = linesToAllow(m_context.session, m_settings, receipt);
    if (lines.empty())
        return true;
    const QString who = allowedBy(m_context, 7, QStringLiteral("低于最低折扣的销售！"), &m_window);
    for (const size_t line : lines)
        receipt.lines[line].authorisedBy = who;
    return !who.isEmpty();
}

/// Takes what the tender wants of a wallet, unless a wallet has paid this receipt already. Without
/// the gateway the customer pays to the shop's own code, and the cashier looks for himself.
bool CounterPaying::chargeWallet(Receipt &receipt, Tender &tender, Prompter &prompter) {
    const Decimal amount = tender.other.weChat + tender.other.aliPay;
    std::optional<WalletPayment> payment = walletPaymentOf(m_context.session, receipt.number);
    if (!payment && (amount.isZero() || !m_settings.chargesWallets))
        return true;
    if (!payment) {
        if (tender.other.weChat.isPositive() && tender.other.aliPay.isPositive()) {
            prompter.inform(QStringLiteral("微信和支付宝不能同时付款，请只选一种！"),
                            informCaption);
            return false;
        }
        payment = WalletPayment{{}, amount, true, {}, {}};
        if (!m_window.show(prepareWalletPayment(m_context.session, prompter, receipt, tender,
                                                &payment->order)))
            return false;
    }
    if (payment->isOpen) {
        TF_Wxfk wallet(m_context, &m_window);
        wallet.setOrder(payment->order, payment->amount);
        if (!wallet.runModal())
            return false;
        payment = walletPaymentOf(m_context.session, receipt.number);
    }
    if (!payment || payment->amount != amount) {
        prompter.inform(QStringLiteral("该小票已用移动支付收款%1，与本次付款金额不同！")
                            .arg(Formats(m_context.session.parameters)
                                     .money(payment ? payment->amount : Decimal())),
                        informCaption);
        return false;
    }
    takeWalletPayment(tender, *payment);
    return true;
}

std::optional<PostedReceipt> CounterPaying::pay(Receipt &receipt,
                                                const std::optional<CounterMember> &member) {
    std::optional<PostedReceipt> posted;
    if (!registerBuyers(receipt, member) || !allowDiscounts(receipt))
        return posted;
    m_printing.showAmount(receipt.total(m_settings.amountDecimals), DisplayLight::total);
    TF_Posfk window(m_context, m_settings, receipt, member, &m_window);
    const auto showWallet = [&] {
        if (const auto payment = walletPaymentOf(m_context.session, receipt.number))
            window.setWalletPayment(*payment);
    };
    showWallet();
    window.setPoster([&](Tender tender) {
        RememberingPrompter prompter(m_context.prompter); // what is charged first is held twice
        PostedReceipt result;
        const bool isDone =
            chargeWallet(receipt, tender, prompter) &&
            m_window.show(postReceipt(m_context.session, prompter, receipt, tender, &result));
        if (isDone)
            posted = result;
        else
            showWallet();
        return isDone;
    });
    window.runModal();
    if (!posted) // whose account it would have been is asked anew
        receipt.customer = walkInCustomer;
    return posted;
}

} // namespace jxc
