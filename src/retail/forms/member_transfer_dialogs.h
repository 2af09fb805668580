#pragma once

#include "retail/forms/member_dialog.h"

namespace jxc {

/// What goes from the card to another one.
class MemberTransferDialog : public MemberDialog {
    Q_OBJECT
protected:
    MemberTransferDialog(const FormContext &context, const QString &className, const QString &title,
                         const Member &member, QWidget *parent);
    void addTarget();
    void addFigureToMove(const char *name, const QString &caption, ValueKind kind);

    /// Moves it, between the two cards.
    virtual Outcome transfer(const struct Transfer &transfer) = 0;
    Outcome store() override;
    QLineEdit *refusedField(const QString &text) const override;

private:
    PickField *m_target = nullptr;
    NumberField *m_figure = nullptr;
};

/// 转账: stored value.
class TF_Hygl_Zz : public MemberTransferDialog {
    Q_OBJECT
public:
    TF_Hygl_Zz(const FormContext &context, const Member &member, QWidget *parent);

protected:
    Outcome transfer(const Transfer &transfer) override;
};

/// 积分转移: points to spend.
class TF_Hygl_Zz2 : public MemberTransferDialog {
    Q_OBJECT
public:
    TF_Hygl_Zz2(const FormContext &context, const Member &member, QWidget *parent);

protected:
    Outcome transfer(const Transfer &transfer) override;
};

} // namespace jxc
