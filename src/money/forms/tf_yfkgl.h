#pragma once

#include "money/forms/partner_accounts_form.h"

namespace jxc {

/// 应付帐表.
class TF_Yfkgl : public PartnerAccountsForm {
    Q_OBJECT
public:
    explicit TF_Yfkgl(const FormContext &context, QWidget *parent = nullptr);
};

} // namespace jxc
