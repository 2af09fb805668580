#pragma once

#include "retail/till_cash.h"
#include "ui/list_form.h"

class QComboBox;

namespace jxc {

/// 收银员出入款管理: cash put into the till and taken out of it.
class TF_Posxs_Crk : public ListForm {
    Q_OBJECT
public:
    explicit TF_Posxs_Crk(const FormContext &context, QWidget *parent = nullptr);

public Q_SLOTS:
    void btnInClick();
    void btnOutClick();
    /// Every day there is.
    void btnAllTimeClick();

protected:
    Rows read(const QString &search) override;
    void printList() override;

private:
    void record(TillDirection direction);
    [[nodiscard]] std::vector<TillRow> rows(const QString &search) const;

    PeriodBar *m_period;
    QComboBox *m_cashier;
};

} // namespace jxc
