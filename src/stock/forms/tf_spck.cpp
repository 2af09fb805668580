#include "stock/forms/tf_spck.h"

namespace jxc {

TF_Spck::TF_Spck(const FormContext &context, QWidget *parent)
    : SourceDocumentList(context, documentFormSpec(QStringLiteral("CK")), parent) {}

} // namespace jxc
