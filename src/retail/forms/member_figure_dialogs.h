#pragma once

#include "retail/forms/member_dialog.h"

namespace jxc {

/// 修改积分: adds points to those to spend and those ever earned, or takes them with a minus.
class TF_Hygl_Jf : public MemberDialog {
    Q_OBJECT
public:
    TF_Hygl_Jf(const FormContext &context, const Member &member, QWidget *parent);

protected:
    Outcome store() override;

private:
    NumberField *m_points;
};

/// 修改消费金额: the same for what the member has spent.
class TF_Hygl_Je : public MemberDialog {
    Q_OBJECT
public:
    TF_Hygl_Je(const FormContext &context, const Member &member, QWidget *parent);

protected:
    Outcome store() override;

private:
    NumberField *m_amount;
};

} // namespace jxc
