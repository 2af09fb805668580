#pragma once

#include "retail/forms/counter_report.h"

namespace jxc {

/// 收银员收银统计: what each cashier took, and the cash that he owes the shop.
class TF_Posxs_Sytj : public CounterReport {
    Q_OBJECT
public:
    explicit TF_Posxs_Sytj(const FormContext &context, QWidget *parent = nullptr);

public Q_SLOTS:
    /// The shifts that were handed over.
    void btnShiftsClick();

protected:
    Rows readFor(const CounterFilter &filter) override;
    void narrow(CounterFilter &filter, const Row &row) const override;
    [[nodiscard]] QString nameOf(const Row &row) const override;
};

} // namespace jxc
