#include "stock/forms/tf_jthcx.h"

namespace jxc {

TF_Jthcx::TF_Jthcx(const FormContext &context, QWidget *parent)
    : DocumentLookup(context, QStringLiteral("TF_Jthcx"), QStringLiteral("进退货查询"),
                     Trade::purchase, parent) {}

} // namespace jxc
