#pragma once

#include "retail/recharge.h"
#include "ui/record_editor.h"

class QCheckBox;

namespace jxc {

class NumberField;

/// The editor of a member (TF_Hygl_Add, TF_Hygl_Modi). A new one may bring the first money for the
/// card along, which is booked together with the member or not at all.
class TF_Hygl_Add : public RecordEditor {
    Q_OBJECT
public:
    TF_Hygl_Add(const FormContext &context, QWidget *parent);

protected:
    void fill() override;
    [[nodiscard]] bool isChanged() override;
    [[nodiscard]] Outcome store(QString *field) override;
    void nextField() override;

private:
    void addFirstMoney();
    void showCredit();
    [[nodiscard]] Outcome checked(QString *field);
    void finish(const RechargeReceipt &receipt);

    QWidget *m_firstMoney;
    NumberField *m_amount;
    QLabel *m_credit;
    QCheckBox *m_print;
};

} // namespace jxc
