#include "stock/forms/tf_cgrk.h"

namespace jxc {

TF_Cgrk::TF_Cgrk(const FormContext &context, QWidget *parent)
    : SourceDocumentList(context, documentFormSpec(QStringLiteral("RK")), parent) {}

} // namespace jxc
