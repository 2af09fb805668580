#include "money/forms/tf_fpxs.h"

#include "money/forms/invoice_editor.h"

namespace jxc {

TF_Fpxs::TF_Fpxs(const FormContext &context, QWidget *parent)
    : ApprovalList(context, invoiceSpec(Partner::Kind::customer), parent) {}

} // namespace jxc
