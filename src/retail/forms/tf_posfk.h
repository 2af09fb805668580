#pragma once

#include "retail/counter_member.h"
#include "retail/tender.h"
#include "ui/form.h"

#include <functional>
#include <optional>

class QFormLayout;
class QLabel;
class QLineEdit;
class QVBoxLayout;

namespace jxc {

class NumberField;
class PickField;
struct WalletPayment;

/// 付款结账: how a receipt is paid. What is due stands in the cash field already, so that Enter
/// pays the exact sum; the other tenders take their part from it.
class TF_Posfk : public Form {
    Q_OBJECT
public:
    TF_Posfk(const FormContext &context, const CounterSettings &settings, Receipt &receipt,
             const std::optional<CounterMember> &member, QWidget *parent);

    /// What becomes of a tender that is right: true when the receipt is posted.
    using Poster = std::function<bool(const Tender &)>;
    void setPoster(Poster poster) { m_poster = std::move(poster); }
    /// A wallet has paid, or may have paid, this receipt already: that part stands.
    void setWalletPayment(const WalletPayment &payment);

    [[nodiscard]] Tender tender() const;
    /// F5, and Enter in the cash field: posts and closes.
    void btnOKClick();

private:
    void build();
    NumberField *addField(QFormLayout *form, const QString &caption, const QString &name);
    void addCardFields(QFormLayout *form);
    void addCustomerField(QFormLayout *form);
    void addButtons(QVBoxLayout *column);
    void refresh();
    void takeCustomer();

    const CounterSettings &m_settings;
    Receipt &m_receipt;
    std::optional<CounterMember> m_member;
    Decimal m_total;
    QLabel *m_due, *m_change;
    NumberField *m_cash, *m_card, *m_weChat, *m_aliPay, *m_voucher, *m_value, *m_discount,
        *m_rounding;
    QLineEdit *m_password;
    PickField *m_customer;
    Poster m_poster;
    bool m_cashTyped = false;
};

} // namespace jxc
