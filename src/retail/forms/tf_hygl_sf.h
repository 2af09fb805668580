#pragma once

#include "retail/recharge.h"
#include "ui/field_editor.h"

class QLabel;

namespace jxc {

/// 收款: how a recharge is paid, or a payout paid out. The amount stands in the cash field already,
/// so that Enter takes the exact sum; the other tenders take their part from it.
class TF_Hygl_Sf : public FieldEditor {
    Q_OBJECT
public:
    /// `recharge` names the amount, and gets the tenders when they are confirmed.
    TF_Hygl_Sf(const FormContext &context, Recharge &recharge, QWidget *parent);

protected:
    bool save() override;
    /// Leaving here gives up nothing that was written down.
    bool mayLeave() override { return true; }
    void keyPressEvent(QKeyEvent *event) override;

private:
    NumberField *addTender(const char *name, const QString &caption);
    [[nodiscard]] Recharge tendered() const;
    void refresh();

    Recharge &m_recharge;
    NumberField *m_cash, *m_card, *m_weChat, *m_aliPay, *m_voucher;
    QLabel *m_change;
    bool m_cashTyped = false;
};

} // namespace jxc
