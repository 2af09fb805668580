#pragma once

#include "retail/forms/counter_report.h"

namespace jxc {

class CounterPrinting;

/// POS销售流水账: the receipts of the counter, their lines below.
class TF_Posxs_Lsz : public CounterReport {
    Q_OBJECT
public:
    explicit TF_Posxs_Lsz(const FormContext &context, QWidget *parent = nullptr);

    void btnReprintClick();
    void btnCounterClick();
    void btnSettingsClick();
    void btnDevicesClick();

protected:
    Rows readFor(const CounterFilter &filter) override;

private:
    void refreshLines();

    Grid *m_lines;
    CounterPrinting *m_printing;
};

} // namespace jxc
