#pragma once

#include "ui/list_form.h"

namespace jxc {

/// The operation log: searched, and cleared by who may.
class TF_ViewLog : public ListForm {
    Q_OBJECT
public:
    explicit TF_ViewLog(const FormContext &context, QWidget *parent = nullptr);

    void FormActivate() override;

    void btnFindClick();
    void btnClearClick();

protected:
    Rows read(const QString &search) override;

private:
    PeriodBar *m_period;
    QAction *m_clear;
};

} // namespace jxc
