// Takes a picture of every form of the program, filled with a shop's data, for people to look at.
//   jxc_screens --home SHOP --out FOLDER [--form NAME]
#include "app/form_registry.h"
#include "app/help_book.h"
#include "app/tf_rjbz.h"
#include "app/tf_loading.h"
#include "app/tf_login.h"
#include "app/tf_mainform.h"
#include "core/account_set.h"
#include "core/clock.h"
#include "core/session.h"
#include "db/database.h"
#include "money/forms/partner_accounts_form.h"
#include "money/forms/settlement_editor.h"
#include "money/forms/tf_xjyh.h"
#include "reports/partner_statement.h"
#include "reports/pdf.h"
#include "services/opening.h"
#include "stock/forms/stock_panel.h"
#include "stock/forms/tf_kccx.h"
#include "ui/approval_list.h"
#include "ui/box_prompter.h"
#include "ui/cost_story_window.h"
#include "ui/document_editor.h"
#include "ui/document_list.h"
#include "ui/goods_chooser.h"
#include "ui/grid.h"
#include "ui/header_panel.h"
#include "ui/line_table.h"
#include "ui/theme.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QElapsedTimer>
#include <QPrinter>
#include <QTest>

using namespace jxc;

namespace {

class Photographer {
public:
    Photographer(FormRegistry &registry, const QString &folder, const QString &only)
        : m_registry(registry)
        , m_folder(folder)
        , m_only(only) {
        QDir().mkpath(folder);
    }

    [[nodiscard]] bool wants(const QString &name) const { return m_only.isEmpty() || name.contains(m_only); }

    void take(QWidget *window, const QString &name) {
        if (!wants(name)) return;
        for (int i = 0; i < 5; ++i) QTest::qWait(30);
        window->grab().save(m_folder + u'/' + name + QStringLiteral(".png"));
    }

    /// The splash, the login, and the main window with each of its groups, on a small screen.
    void takeShell() {
        if (!wants(QStringLiteral("TF_MainForm"))) return;
        TF_Loading loading(1'000'000);
        loading.FormActivate();
        loading.Timer1Timer();
        take(&loading, QStringLiteral("TF_MainForm_loading"));
        TF_Login login(m_registry.context(), QStringLiteral("hb"));
        login.showModal();
        take(&login, QStringLiteral("TF_MainForm_login"));
        login.close();
        TF_MainForm window(m_registry, 1'000'000);
        const qreal scale = window.devicePixelRatioF();
        window.resize(static_cast<int>(1366 / scale), static_cast<int>(768 / scale));
        window.show();
        window.FormActivate();
        for (int group = 1; group <= 8; ++group) {
            window.menuClick(group);
            take(&window, QStringLiteral("TF_MainForm_%1").arg(group));
        }
    }

    void takeForm(const QString &name) {
        if (!wants(name)) return;
        Form *form = m_registry.openForm(name, {});
        if (form == nullptr) return;
        // As much as a small screen has, at its scale.
        const qreal scale = form->devicePixelRatioF();
        form->resize(static_cast<int>(1366 / scale), static_cast<int>(700 / scale));
        take(form, name);
        if (auto *list = qobject_cast<DocumentList *>(form)) takeDocuments(*list, name);
        if (form->objectName() == u"TF_Rjbz") {
            QPrinter printer;
            printer.setOutputFileName(m_folder + QStringLiteral("/keys.pdf"));
            printHelpPage(*findHelpPage(keySheetName), printer);
        }
        if (auto *stock = qobject_cast<TF_Kccx *>(form)) takeStock(*stock, name);
        if (auto *list = qobject_cast<ApprovalList *>(form)) takeApprovals(*list, name);
        if (auto *tabs = qobject_cast<LedgerTabs *>(form)) takeLedger(*tabs, name);
        if (name == u"TF_Xjyh") takeCash(*qobject_cast<TF_Xjyh *>(form));
        form->done(0);
    }

private:
    /// What the form opened, a dialog over it; it goes again.
    void takeDialog(Form &form, const QString &name) {
        auto *dialog = qobject_cast<Form *>(QApplication::activeModalWidget());
        if (dialog == nullptr || dialog == &form) return;
        if (wants(name)) take(dialog, name);
        dialog->done(0);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    void takeApprovals(ApprovalList &list, const QString &name) {
        list.btnAddClick();
        takeDialog(list, name + QStringLiteral("_Add"));
        list.showApproved(true);
        take(&list, name + QStringLiteral("_approved"));
        list.btnModifyClick();
        takeDialog(list, name + QStringLiteral("_Add_approved"));
    }

    /// Every table, then the one who owes most before he pays.
    void takeLedger(LedgerTabs &tabs, const QString &name) {
        for (int page = 1; page < tabs.pageCount(); ++page) {
            tabs.showPage(page);
            take(&tabs, name + QStringLiteral("_%1").arg(page + 1));
        }
        if (name == u"TF_WlzwKh") {
            const QString owing = tabs.db().scalar(
                QStringLiteral("select k_ghskh from jxc_ysyfk where k_type='kh' and k_ghskh<>'100001' group by k_ghskh "
                               "order by count(*) desc,k_ghskh"));
            const QString year = tabs.session().today().left(4);
            const Pages pages = statementPages(tabs.session(), tabs.context().home, {Partner::Kind::customer, owing},
                                               year + QStringLiteral("-10-15"), tabs.session().today());
            if (!writePdf(pages, name, m_folder + QStringLiteral("/statement.pdf"))) qWarning("no statement");
        }
        auto *accounts = qobject_cast<PartnerAccountsForm *>(&tabs);
        if (accounts == nullptr) return;
        accounts->showPage(PartnerAccountsForm::ageing);
        accounts->btnSettleClick();
        if (auto *editor = qobject_cast<SettlementEditor *>(QApplication::activeModalWidget())) {
            QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("300"));
            editor->btnAutoClick();
        }
        takeDialog(tabs, name + QStringLiteral("_settle"));
    }

    void takeCash(TF_Xjyh &form) {
        form.btnZzClick();
        takeDialog(form, QStringLiteral("TF_Xjyh_Zz"));
    }

    /// The other tab, and the windows that open from a goods: the one with the most movements.
    void takeStock(TF_Kccx &form, const QString &name) {
        const QString goods = form.db().scalar(
            QStringLiteral("select g_sn from jxc_goodslist where gl_kc<>0 group by g_sn order by count(*) desc,g_sn"));
        form.stock().grid().goTo(u"g_sn", goods);
        form.btnPriceHistoryClick();
        take(&form, name + QStringLiteral("_prices"));
        const JournalKey key = form.stock().currentKey();
        form.btnMovementsClick();
        take(&form, name + QStringLiteral("_movements"));
        TF_CostStory story(form.context(), key, {QStringLiteral("9999-12-31")}, &form);
        story.showModal();
        take(&story, name + QStringLiteral("_story"));
        story.done(0);
        TF_GoodsSele chooser(form.context(), true, key.warehouse, &form);
        chooser.showModal();
        for (const int line : {0, 3}) chooser.grid().model().tick(line, true);
        take(&chooser, name + QStringLiteral("_chooser"));
        chooser.done(0);
        form.showTab(0);
    }

    void takeDocuments(DocumentList &list, const QString &name) {
        list.showApproved(true);
        take(&list, name + QStringLiteral("_approved"));
        if (list.grid().model().rowCount() > 0) {
            list.btnModifyClick();
            if (list.editor() != nullptr) {
                list.editor()->resize(1366, 700);
                take(list.editor(), name + QStringLiteral("_Add_approved"));
                list.editor()->close();
                QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            }
        }
        list.showApproved(false);
        list.btnAddClick();
        if (list.editor() == nullptr) return;
        list.editor()->resize(1366, 700);
        take(list.editor(), name + QStringLiteral("_Add"));
        list.editor()->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    FormRegistry &m_registry;
    QString m_folder, m_only;
};

/// Says yes; pictures of boxes are taken elsewhere.
class QuietPrompter : public Prompter {
public:
    void inform(const QString &text, const QString &) override { qWarning("%s", qPrintable(text)); }
    bool confirm(const QString &, const QString &) override { return true; }
};

} // namespace

int main(int argc, char **argv) {
    QApplication application(argc, argv);
    useFixedLocale();
    useChineseWords();
    QCommandLineParser parser;
    const QCommandLineOption home(QStringLiteral("home"), QStringLiteral("shop"), QStringLiteral("DIR"));
    const QCommandLineOption out(QStringLiteral("out"), QStringLiteral("pictures"), QStringLiteral("DIR"));
    const QCommandLineOption form(QStringLiteral("form"), QStringLiteral("only these"), QStringLiteral("NAME"));
    const QCommandLineOption theme(QStringLiteral("theme"), QStringLiteral("shade"), QStringLiteral("NAME"));
    parser.addOptions({home, out, form, theme});
    parser.process(application);
    applyTheme(application, Theme::byName(parser.value(theme)));

    Database db(accountSetLocation(parser.value(home), {}));
    const SystemClock clock;
    Session session(db, clock);
    const QString first = db.scalar(QStringLiteral("select a_name from jxc_admin order by id"));
    if (!openSession(session, first, {}).outcome.isDone()) return 1;
    QuietPrompter prompter;
    FormRegistry registry(session, prompter, parser.value(home));
    registerForms(registry);
    Photographer photographer(registry, parser.value(out), parser.value(form));
    photographer.takeShell();
    QStringList names = registry.knownForms();
    names.sort();
    for (const QString &name : names)
        photographer.takeForm(name);
    return 0;
}
