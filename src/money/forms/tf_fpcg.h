#pragma once

#include "ui/approval_list.h"

namespace jxc {

/// 进货发票: the register of one side, with what is still to be invoiced.
class TF_Fpcg : public ApprovalList {
    Q_OBJECT
public:
    explicit TF_Fpcg(const FormContext &context, QWidget *parent = nullptr);
};

} // namespace jxc
