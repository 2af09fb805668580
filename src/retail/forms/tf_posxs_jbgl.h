#pragma once

#include "retail/forms/counter_report.h"

namespace jxc {

class CounterPrinting;

/// 交班记录: the shifts that were handed over; their slips can be printed again.
class TF_Posxs_Jbgl : public CounterReport {
    Q_OBJECT
public:
    explicit TF_Posxs_Jbgl(const FormContext &context, QWidget *parent = nullptr);

public Q_SLOTS:
    void btnReprintClick();

protected:
    Rows readFor(const CounterFilter &filter) override;

private:
    CounterPrinting *m_printing;
};

} // namespace jxc
