#pragma once

#include "retail/shift.h"
#include "ui/plain_editor.h"

class QComboBox;
class QLabel;
class QLineEdit;

namespace jxc {

class CounterPrinting;
class NumberField;

/// 交班: what the cashier took since his last change of shift, what he hands in and what he leaves
/// in the till. F5 stores it and prints the slip.
class TF_Posxs_Jb : public PlainEditor {
    Q_OBJECT
public:
    explicit TF_Posxs_Jb(const FormContext &context, QWidget *parent = nullptr);

    void FormActivate() override;
    /// The shift that is shown.
    [[nodiscard]] const Shift &shift() const { return m_shift; }
    [[nodiscard]] CounterPrinting &printing() { return *m_printing; }

protected:
    bool save() override;
    [[nodiscard]] QStringList content() const override;

private:
    void build();
    void readShift();
    void propose();
    void refresh();
    [[nodiscard]] Handover handover() const;

    Shift m_shift;
    CounterPrinting *m_printing;
    NumberField *m_handedIn, *m_left;
    QComboBox *m_next;
    QLineEdit *m_note;
    QLabel *m_figures, *m_difference;
    bool m_isTyped = false; ///< what is handed in was counted, and is no longer proposed
};

} // namespace jxc
