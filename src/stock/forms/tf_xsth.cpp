#include "stock/forms/tf_xsth.h"

namespace jxc {

TF_Xsth::TF_Xsth(const FormContext &context, QWidget *parent)
    : DocumentList(context, documentFormSpec(QStringLiteral("XT")), parent) {}

} // namespace jxc
