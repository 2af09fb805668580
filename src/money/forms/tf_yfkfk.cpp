#include "money/forms/tf_yfkfk.h"

#include "money/forms/settlement_list.h"

namespace jxc {

TF_Yfkfk::TF_Yfkfk(const FormContext &context, QWidget *parent)
    : ApprovalList(context, settlementSpec(u"FK"), parent) {}

} // namespace jxc
