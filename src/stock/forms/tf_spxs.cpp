#include "stock/forms/tf_spxs.h"

#include "core/session.h"
#include "stock/draft.h"
#include "ui/list_form.h"

#include <QAction>

namespace jxc {

TF_Spxs::TF_Spxs(const FormContext &context, QWidget *parent)
    : DocumentList(context, documentFormSpec(QStringLiteral("XS")), parent) {
    actionBar().goToPlace();
    addAction(QStringLiteral("btnCost"), QStringLiteral("重取成本"), {},
              [this] { btnCostClick(); });
    QAction *wallet =
        addAction(QStringLiteral("btnWallet"), QStringLiteral("收款码"),
                  QKeySequence(QStringLiteral("Ctrl+W")), [this] { btnWalletClick(); });
    wallet->setEnabled(context.stage.isKnown(QStringLiteral("TF_Wxfk")));
}

/// Takes what the sale says was paid by the code on the customer's telephone.
void TF_Spxs::btnWalletClick() {
    const QString number = currentNumber();
    if (number.isEmpty())
        tellNoRow(prompter());
    else
        context().stage.openForm(QStringLiteral("TF_Wxfk"), number);
}

void TF_Spxs::btnCostClick() {
    const QString number = showsApproved() ? QString() : currentNumber();
    if (number.isEmpty())
        tellNoRow(prompter());
    else if (show(refreshDraftCosts(session(), prompter(), number)))
        refresh();
}

} // namespace jxc
