#pragma once

#include "money/forms/partner_accounts_form.h"

namespace jxc {

/// 应收帐表.
class TF_Yskgl : public PartnerAccountsForm {
    Q_OBJECT
public:
    explicit TF_Yskgl(const FormContext &context, QWidget *parent = nullptr);
};

} // namespace jxc
