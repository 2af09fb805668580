#include "stock/forms/tf_spxs.h"

namespace jxc {

TF_Spxs::TF_Spxs(const FormContext &context, QWidget *parent)
    : DocumentList(context, documentFormSpec(QStringLiteral("XS")), parent) {}

} // namespace jxc
