#include "stock/forms/tf_xsdjcx.h"

namespace jxc {

TF_Xsdjcx::TF_Xsdjcx(const FormContext &context, QWidget *parent)
    : DocumentLookup(context, QStringLiteral("TF_Xsdjcx"), QStringLiteral("销售退货查询"),
                     Trade::sale, parent) {}

} // namespace jxc
