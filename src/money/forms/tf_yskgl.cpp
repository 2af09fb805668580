#include "money/forms/tf_yskgl.h"

namespace jxc {

TF_Yskgl::TF_Yskgl(const FormContext &context, QWidget *parent)
    : PartnerAccountsForm(context, QStringLiteral("TF_Yskgl"), QStringLiteral("应收帐表"),
                          Partner::Kind::customer, parent) {}

} // namespace jxc
