#include "money/forms/tf_ysksk.h"

#include "money/forms/settlement_list.h"

namespace jxc {

TF_Ysksk::TF_Ysksk(const FormContext &context, QWidget *parent)
    : ApprovalList(context, settlementSpec(u"SK"), parent) {}

} // namespace jxc
