#include "stock/forms/tf_djcx.h"

namespace jxc {

TF_Djcx::TF_Djcx(const FormContext &context, QWidget *parent)
    : DocumentLookup(context, QStringLiteral("TF_Djcx"), QStringLiteral("单据查询"), std::nullopt,
                     parent) {}

} // namespace jxc
