#pragma once

#include "retail/recharge.h"
#include "ui/form.h"

#include <QWidget>

class QCheckBox;
class QLabel;
class QLayout;
class QLineEdit;
class QPushButton;

namespace jxc {

class NumberField;
class PickField;
struct Member;

/// Who gets how much onto the card, and what it comes to.
class RechargePanel : public QWidget {
    Q_OBJECT
public:
    explicit RechargePanel(const Form &form);

    /// Empties all fields and begins at the member.
    void startNew();
    /// The member is known: typing begins at the amount.
    void setMember(const QString &key);
    /// Reads anew what the card holds.
    void refresh();
    /// What is typed; false when no member or amount is there, which has been told where it needs
    /// to be.
    [[nodiscard]] bool collect(Recharge *recharge);
    [[nodiscard]] bool isTyped() const;
    [[nodiscard]] bool wantsPrint() const;
    /// How it went, until something else is typed.
    void tell(const QString &words);
    /// Goes to the field that a refusal speaks of.
    void focusRefused(const QString &text);
    /// Enter: the next field, and at the end submitted().
    void goOn();

Q_SIGNALS:
    void submitted();

private:
    void build();
    void setUpFields();
    QLayout *makeFigures();
    QLabel *addFigure(const QString &caption, const QString &name);
    void showMember();
    void showCredit();

    const Form &m_form;
    PickField *m_member;
    NumberField *m_amount;
    QLineEdit *m_password, *m_note;
    QCheckBox *m_print;
    QPushButton *m_ok;
    QLabel *m_who, *m_credit, *m_told;
    QLabel *m_value = nullptr, *m_points = nullptr, *m_refundable = nullptr;
};

} // namespace jxc
