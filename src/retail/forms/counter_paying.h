#pragma once

#include "retail/counter_member.h"
#include "retail/receipt_posting.h"
#include "ui/form.h"

namespace jxc {

class CounterPrinting;

/// From the payment key to the posted receipt: who buys restricted goods, who allows a low
/// discount, how it is paid, what a wallet pays, and the posting.
class CounterPaying {
public:
    CounterPaying(const FormContext &context, const CounterSettings &settings,
                  CounterPrinting &printing, Form &window)
        : m_context(context)
        , m_settings(settings)
        , m_printing(printing)
        , m_window(window) {}

    /// Nothing when the cashier turned back; the receipt may have got its number by then, and who
    /// buys and who allowed it.
    [[nodiscard]] std::optional<PostedReceipt> pay(Receipt &receipt,
                                                   const std::optional<CounterMember> &member);

private:
    bool registerBuyers(Receipt &receipt, const std::optional<CounterMember> &member);
    bool allowDiscounts(Receipt &receipt);
    bool chargeWallet(Receipt &receipt, Tender &tender, Prompter &prompter);

    const FormContext &m_context;
    const CounterSettings &m_settings;
    CounterPrinting &m_printing;
    Form &m_window;
};

} // namespace jxc
