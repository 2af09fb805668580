#pragma once

#include "money/forms/statement_form.h"

namespace jxc {

/// 往来账务(客户).
class TF_WlzwKh : public StatementForm {
    Q_OBJECT
public:
    explicit TF_WlzwKh(const FormContext &context, QWidget *parent = nullptr);
};

} // namespace jxc
