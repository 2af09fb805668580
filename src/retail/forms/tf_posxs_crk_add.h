#pragma once

#include "retail/till_cash.h"
#include "ui/plain_editor.h"

class QLineEdit;

namespace jxc {

class NumberField;

/// 入款, 出款: cash that the cashier puts into his till or takes out of it, today.
class TF_Posxs_Crk_Add : public PlainEditor {
    Q_OBJECT
public:
    TF_Posxs_Crk_Add(const FormContext &context, TillDirection direction, QWidget *parent);

protected:
    bool save() override;
    [[nodiscard]] QStringList content() const override;

private:
    TillDirection m_direction;
    NumberField *m_amount;
    QLineEdit *m_note;
};

} // namespace jxc
