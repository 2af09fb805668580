// Takes a picture of every form of the program, filled with a shop's data, for people to look at.
//   jxc_screens --home SHOP --out FOLDER [--form NAME]
#include "app/form_registry.h"
#include "app/tf_loading.h"
#include "app/tf_login.h"
#include "app/tf_mainform.h"
#include "core/account_set.h"
#include "core/clock.h"
#include "core/session.h"
#include "db/database.h"
#include "services/opening.h"
#include "ui/box_prompter.h"
#include "ui/document_editor.h"
#include "ui/document_list.h"
#include "ui/field_tabs.h"
#include "ui/header_panel.h"
#include "ui/line_table.h"
#include "ui/master_form.h"
#include "ui/theme.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QElapsedTimer>
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

    void takeForm(const QString &name) {
        if (!wants(name)) return;
        Form *form = m_registry.openForm(name, {});
        if (form == nullptr) return;
        form->resize(1366, 700);
        take(form, name);
        takePages(form, name);
        if (auto *list = qobject_cast<DocumentList *>(form)) takeDocuments(*list, name);
        if (auto *list = qobject_cast<MasterForm *>(form)) takeEditor(*list, name);
        form->done(0);
    }

private:
    /// The pages of a window behind its first one.
    void takePages(QWidget *window, const QString &name) {
        auto *tabs = window->findChild<FieldTabs *>();
        for (int page = 1; tabs != nullptr && page < tabs->count(); ++page) {
            tabs->setCurrentIndex(page);
            take(window, QStringLiteral("%1_%2").arg(name).arg(page));
        }
    }

    void takeEditor(MasterForm &list, const QString &name) {
        list.btnModiClick();
        if (list.editor() == nullptr) return;
        take(list.editor(), name + QStringLiteral("_Modi"));
        takePages(list.editor(), name + QStringLiteral("_Modi"));
        list.editor()->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
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
    QStringList names = registry.knownForms();
    names.sort();
    for (const QString &name : names)
        photographer.takeForm(name);
    return 0;
}
