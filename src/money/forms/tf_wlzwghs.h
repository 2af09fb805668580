#pragma once

#include "money/forms/statement_form.h"

namespace jxc {

/// 往来账务(供货商).
class TF_WlzwGhs : public StatementForm {
    Q_OBJECT
public:
    explicit TF_WlzwGhs(const FormContext &context, QWidget *parent = nullptr);
};

} // namespace jxc
