#include "stock/forms/tf_cgjh.h"

namespace jxc {

TF_Cgjh::TF_Cgjh(const FormContext &context, QWidget *parent)
    : DocumentList(context, documentFormSpec(QStringLiteral("CJ")), parent) {}

} // namespace jxc
