#pragma once

#include "ui/approval_list.h"

namespace jxc {

/// 付款登记: money to suppliers.
class TF_Yfkfk : public ApprovalList {
    Q_OBJECT
public:
    explicit TF_Yfkfk(const FormContext &context, QWidget *parent = nullptr);
};

} // namespace jxc
