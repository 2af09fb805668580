#include "money/forms/tf_yfkgl.h"

namespace jxc {

TF_Yfkgl::TF_Yfkgl(const FormContext &context, QWidget *parent)
    : PartnerAccountsForm(context, QStringLiteral("TF_Yfkgl"), QStringLiteral("应付帐表"),
                          Partner::Kind::supplier, parent) {}

} // namespace jxc
