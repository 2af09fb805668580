#pragma once

#include "ui/approval_list.h"

namespace jxc {

/// 费用及收入: what the shop spends and takes in beside its trade; totals per type below.
class TF_Fyjsr : public ApprovalList {
    Q_OBJECT
public:
    explicit TF_Fyjsr(const FormContext &context, QWidget *parent = nullptr);
};

} // namespace jxc
