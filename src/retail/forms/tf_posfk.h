#pragma once

#include "retail/counter_members.h"
#include "retail/tender.h"
#include "ui/form.h"

#include <optional>

class QFormLayout;
class QLabel;

namespace jxc {

class NumberField;
class PickField;

/// 付款结账: how a receipt is paid. What is due stands in the cash field already, so that Enter
/// pays the exact sum; the other tenders take their part from it.
class TF_Posfk : public Form {
    Q_OBJECT
public:
    TF_Posfk(const FormContext &context, const CounterSettings &settings, Receipt &receipt,
             const std::optional<CounterMember> &member, QWidget *parent);

    [[nodiscard]] Tender tender() const;
    /// F5, and Enter in the cash field: closes when the tender is right.
    void btnOKClick();

private:
    void build();
    NumberField *addField(QFormLayout *form, const QString &caption, const QString &name);
    void refresh();
    void takeCustomer();

    const CounterSettings &m_settings;
    Receipt &m_receipt;
    std::optional<CounterMember> m_member;
    Decimal m_total;
    QLabel *m_due, *m_change;
    NumberField *m_cash, *m_card, *m_weChat, *m_aliPay, *m_voucher, *m_value, *m_discount,
        *m_rounding;
    PickField *m_customer;
    bool m_cashTyped = false;
};

} // namespace jxc
