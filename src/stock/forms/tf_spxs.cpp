#include "stock/forms/tf_spxs.h"

#include "core/session.h"
#include "stock/draft.h"
#include "ui/list_form.h"

namespace jxc {

TF_Spxs::TF_Spxs(const FormContext &context, QWidget *parent)
    : DocumentList(context, documentFormSpec(QStringLiteral("XS")), parent) {
    actionBar().goToPlace();
    addAction(QStringLiteral("btnCost"), QStringLiteral("重取成本"), {}, [this] { btnCostClick(); });
}

void TF_Spxs::btnCostClick() {
    const QString number = showsApproved() ? QString() : currentNumber();
    if (number.isEmpty())
        tellNoRow(prompter());
    else if (show(refreshDraftCosts(session(), prompter(), number)))
        refresh();
}

} // namespace jxc
