#include "money/forms/tf_wlzwghs.h"

namespace jxc {

TF_WlzwGhs::TF_WlzwGhs(const FormContext &context, QWidget *parent)
    : StatementForm(context, QStringLiteral("TF_WlzwGhs"), QStringLiteral("往来账务(供货商)"),
                    Partner::Kind::supplier, parent) {}

} // namespace jxc
