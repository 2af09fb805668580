#pragma once

#include "retail/forms/member_dialog.h"

namespace jxc {

/// 密码: sets the card's password, typed twice; empty takes it away.
class TF_Hygl_Pwd : public MemberDialog {
    Q_OBJECT
public:
    TF_Hygl_Pwd(const FormContext &context, const Member &member, QWidget *parent);

protected:
    Outcome store() override;
    QLineEdit *refusedField(const QString &text) const override;

private:
    QLineEdit *m_password, *m_again;
};

/// 手机.
class TF_Hygl_Mobile : public MemberDialog {
    Q_OBJECT
public:
    TF_Hygl_Mobile(const FormContext &context, const Member &member, QWidget *parent);

protected:
    Outcome store() override;

private:
    QLineEdit *m_mobile;
};

/// 换卡: another card number; everything else stays.
class TF_Hygl_Hk : public MemberDialog {
    Q_OBJECT
public:
    TF_Hygl_Hk(const FormContext &context, const Member &member, QWidget *parent);

protected:
    Outcome store() override;
    QLineEdit *refusedField(const QString &text) const override;

private:
    QLineEdit *m_number;
};

} // namespace jxc
