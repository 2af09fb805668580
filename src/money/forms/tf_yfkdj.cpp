#include "money/forms/tf_yfkdj.h"

#include "money/forms/settlement_list.h"

namespace jxc {

TF_Yfkdj::TF_Yfkdj(const FormContext &context, QWidget *parent)
    : ApprovalList(context, settlementSpec(u"YF"), parent) {}

} // namespace jxc
