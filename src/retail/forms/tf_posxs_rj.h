#pragma once

#include "ui/list_form.h"

class QLabel;

namespace jxc {

/// POS日结管理: the settlements of the counter, and what stands unsettled.
class TF_Posxs_Rj : public ListForm {
    Q_OBJECT
public:
    explicit TF_Posxs_Rj(const FormContext &context, QWidget *parent = nullptr);

    void FormActivate() override;

public Q_SLOTS:
    /// Settles what stands unsettled.
    void btn_RjClick();
    /// The lines and receipts of the current settlement.
    void btnDetailClick();

protected:
    Rows read(const QString &search) override;

private:
    void showUnsettled();

    PeriodBar *m_period;
    QLabel *m_unsettled;
};

} // namespace jxc
