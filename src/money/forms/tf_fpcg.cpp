#include "money/forms/tf_fpcg.h"

#include "money/forms/invoice_editor.h"

namespace jxc {

TF_Fpcg::TF_Fpcg(const FormContext &context, QWidget *parent)
    : ApprovalList(context, invoiceSpec(Partner::Kind::supplier), parent) {}

} // namespace jxc
