#include "stock/forms/tf_cgth.h"

namespace jxc {

TF_Cgth::TF_Cgth(const FormContext &context, QWidget *parent)
    : DocumentList(context, documentFormSpec(QStringLiteral("CT")), parent) {}

} // namespace jxc
