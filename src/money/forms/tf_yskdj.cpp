#include "money/forms/tf_yskdj.h"

#include "money/forms/settlement_list.h"

namespace jxc {

TF_Yskdj::TF_Yskdj(const FormContext &context, QWidget *parent)
    : ApprovalList(context, settlementSpec(u"YS"), parent) {}

} // namespace jxc
