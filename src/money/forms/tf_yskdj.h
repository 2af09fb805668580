#pragma once

#include "ui/approval_list.h"

namespace jxc {

/// 应收登记: what a customer owes beside his purchases.
class TF_Yskdj : public ApprovalList {
    Q_OBJECT
public:
    explicit TF_Yskdj(const FormContext &context, QWidget *parent = nullptr);
};

} // namespace jxc
