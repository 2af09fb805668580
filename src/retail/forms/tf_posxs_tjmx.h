#pragma once

#include "retail/forms/counter_report.h"

namespace jxc {

/// POS商品销售明细: the lines of the counter's receipts behind a figure of a report. Enter opens
/// the document.
class TF_Posxs_Tjmx : public CounterReport {
    Q_OBJECT
public:
    explicit TF_Posxs_Tjmx(const FormContext &context, QWidget *parent = nullptr);

protected:
    Rows readFor(const CounterFilter &filter) override;
};

} // namespace jxc
