#pragma once

#include "ui/approval_list.h"

namespace jxc {

/// 销售发票: the register of one side, with what is still to be invoiced.
class TF_Fpxs : public ApprovalList {
    Q_OBJECT
public:
    explicit TF_Fpxs(const FormContext &context, QWidget *parent = nullptr);
};

} // namespace jxc
