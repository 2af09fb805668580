#include "screens/money_scenes.h"

#include "core/session.h"
#include "db/database.h"
#include "money/forms/partner_accounts_form.h"
#include "money/forms/settlement_editor.h"
#include "money/forms/tf_xjyh.h"
#include "support/windows.h"
#include "ui/approval_list.h"

namespace jxc::test {

namespace {

/// What the form opened over itself; it goes again.
void takeDialog(const Form &form, Photographer &photographer, const QString &name) {
    auto *dialog = qobject_cast<Form *>(QApplication::activeModalWidget());
    if (dialog == nullptr || dialog == &form)
        return;
    photographer.take(dialog, name);
    dialog->done(0);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void takeApprovals(ApprovalList &list, Photographer &photographer, const QString &name) {
    list.btnAddClick();
    takeDialog(list, photographer, name + QStringLiteral("_Add"));
    list.showApproved(true);
    photographer.take(&list, name + QStringLiteral("_approved"));
    list.btnModifyClick();
    takeDialog(list, photographer, name + QStringLiteral("_Add_approved"));
}

/// Every table; of the accounts also someone who pays a part of what he owes.
void takeLedger(LedgerTabs &tabs, Photographer &photographer, const QString &name) {
    for (int page = 1; page < tabs.pageCount(); ++page) {
        tabs.showPage(page);
        photographer.take(&tabs, name + QStringLiteral("_%1").arg(page + 1));
    }
    auto *accounts = qobject_cast<PartnerAccountsForm *>(&tabs);
    if (accounts == nullptr)
        return;
    accounts->btnSettleClick();
    if (auto *editor = qobject_cast<SettlementEditor *>(QApplication::activeModalWidget())) {
        type(QStringLiteral("300"));
        editor->btnAutoClick();
    }
    takeDialog(tabs, photographer, name + QStringLiteral("_settle"));
}

} // namespace

void takeMoney(Form &form, Photographer &photographer, const QString &name) {
    if (auto *list = qobject_cast<ApprovalList *>(&form))
        takeApprovals(*list, photographer, name);
    if (auto *tabs = qobject_cast<LedgerTabs *>(&form))
        takeLedger(*tabs, photographer, name);
    if (auto *cash = qobject_cast<TF_Xjyh *>(&form)) {
        cash->btnZzClick();
        takeDialog(form, photographer, QStringLiteral("TF_Xjyh_Zz"));
    }
}

} // namespace jxc::test
