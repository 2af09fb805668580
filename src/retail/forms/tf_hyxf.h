#pragma once

#include "ui/list_form.h"

namespace jxc {

class CounterPrinting;
class PeriodBar;
class RechargePanel;

/// 充值: money onto a member's card or off it, and the book of all of it below.
class TF_Hyxf : public ListForm {
    Q_OBJECT
public:
    explicit TF_Hyxf(const FormContext &context, QWidget *parent = nullptr);

    /// Whose card it is about.
    void setMember(const QString &key);
    void FormActivate() override;
    bool mayLeave() override;
    [[nodiscard]] CounterPrinting &printing() const { return *m_printing; }

public Q_SLOTS:
    void btnSaveClick();
    void btnReprintClick();

protected:
    Rows read(const QString &search) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    [[nodiscard]] bool isAllowed(const struct Recharge &recharge);
    void finish(const struct RechargeReceipt &receipt);

    RechargePanel *m_panel;
    PeriodBar *m_period;
    CounterPrinting *m_printing;
};

/// The columns of the book of recharges; a member's own leave out who it was.
[[nodiscard]] ColumnSpecs rechargeColumns(bool withMember);

} // namespace jxc
