#pragma once

#include "ui/approval_list.h"

namespace jxc {

/// 应付登记: what the shop owes a supplier beside its purchases.
class TF_Yfkdj : public ApprovalList {
    Q_OBJECT
public:
    explicit TF_Yfkdj(const FormContext &context, QWidget *parent = nullptr);
};

} // namespace jxc
