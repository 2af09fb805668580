#include "money/forms/tf_wlzwkh.h"

namespace jxc {

TF_WlzwKh::TF_WlzwKh(const FormContext &context, QWidget *parent)
    : StatementForm(context, QStringLiteral("TF_WlzwKh"), QStringLiteral("往来账务(客户)"),
                    Partner::Kind::customer, parent) {}

} // namespace jxc
