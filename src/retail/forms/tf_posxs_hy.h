#pragma once

#include "retail/forms/counter_report.h"

namespace jxc {

/// 会员消费统计: what members bought, with points and rebates.
class TF_Posxs_Hy : public CounterReport {
    Q_OBJECT
public:
    explicit TF_Posxs_Hy(const FormContext &context, QWidget *parent = nullptr);

protected:
    Rows readFor(const CounterFilter &filter) override;
    void narrow(CounterFilter &filter, const Row &row) const override;
    [[nodiscard]] QString nameOf(const Row &row) const override;
};

} // namespace jxc
