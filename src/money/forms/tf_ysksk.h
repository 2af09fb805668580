#pragma once

#include "ui/approval_list.h"

namespace jxc {

/// 收款登记: money from customers.
class TF_Ysksk : public ApprovalList {
    Q_OBJECT
public:
    explicit TF_Ysksk(const FormContext &context, QWidget *parent = nullptr);
};

} // namespace jxc
