#pragma once

#include "ui/list_form.h"

namespace jxc {

class CounterPrinting;
class PeriodBar;

/// POS销售流水账: the receipts of the counter, their lines below.
class TF_Posxs_Lsz : public ListForm {
    Q_OBJECT
public:
    explicit TF_Posxs_Lsz(const FormContext &context, QWidget *parent = nullptr);

    void btnReprintClick();
    void btnCounterClick();
    void btnSettingsClick();

protected:
    Rows read(const QString &search) override;

private:
    void refreshLines();

    PeriodBar *m_period;
    Grid *m_lines;
    CounterPrinting *m_printing;
};

} // namespace jxc
