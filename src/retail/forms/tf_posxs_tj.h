#pragma once

#include "retail/forms/counter_report.h"

namespace jxc {

/// POS商品销售统计: what the counter sold of each goods.
class TF_Posxs_Tj : public CounterReport {
    Q_OBJECT
public:
    explicit TF_Posxs_Tj(const FormContext &context, QWidget *parent = nullptr);

protected:
    Rows readFor(const CounterFilter &filter) override;
    void narrow(CounterFilter &filter, const Row &row) const override;
    [[nodiscard]] QString nameOf(const Row &row) const override;
};

} // namespace jxc
