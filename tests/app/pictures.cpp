// Pictures of the windows, for whoever judges their looks: pictures HOME FOLDER, with
// QT_QPA_PLATFORM=offscreen and, for a large screen, QT_SCALE_FACTOR.
#include "app/application.h"
#include "app/form_registry.h"
#include "app/tf_loading.h"
#include "app/tf_login.h"
#include "app/tf_mainform.h"
#include "core/account_set.h"
#include "core/session.h"
#include "services/opening.h"
#include "ui/box_prompter.h"
#include "ui/theme.h"

#include <QDir>
#include <QLineEdit>
#include <QTest>

using namespace jxc;

namespace {

QDir folder;

void take(QWidget &window, const QString &name) {
    QTest::qWait(20);
    window.grab().save(folder.filePath(name + QStringLiteral(".png")));
}

void takeAll(FormRegistry &registry, Session &session, QSize size) {
    TF_Loading loading(1'000'000);
    loading.FormActivate();
    loading.Timer1Timer();
    take(loading, QStringLiteral("TF_Loading"));
    loading.hide();
    TF_Login login(registry.context(), {});
    login.showModal();
    take(login, QStringLiteral("TF_Login"));
    login.hide();

    openSession(session, QStringLiteral("admin"), {});
    TF_MainForm mainForm(registry, 1'000'000);
    registry.setOwner(&mainForm);
    mainForm.resize(size);
    mainForm.show();
    mainForm.FormActivate();
    for (int group = 1; group <= 8; ++group) {
        mainForm.menuClick(group);
        take(mainForm, QStringLiteral("group%1").arg(group));
    }
    auto *find = mainForm.findChild<QLineEdit *>(QStringLiteral("edtFind"));
    find->setText(QStringLiteral("kc"));
    take(mainForm, QStringLiteral("find"));
    find->clear();
    for (const QString &name : registry.knownForms()) {
        Form *form = registry.openForm(name, {});
        take(*form, name);
        form->hide();
    }
}

} // namespace

int main(int argc, char **argv) {
    Application application(argc, argv);
    useFixedLocale();
    useChineseWords();
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() < 3) {
        qWarning("pictures HOME FOLDER [dark]");
        return 64;
    }
    folder = QDir(arguments[2]);
    folder.mkpath(QStringLiteral("."));
    applyTheme(application, arguments.contains(u"dark"_qs) ? Theme::dark() : Theme::light());
    Database db(accountSetLocation(arguments[1], {}));
    const SystemClock clock;
    Session session(db, clock);
    BoxPrompter prompter;
    FormRegistry registry(session, prompter, arguments[1]);
    registerForms(registry);
    const qreal scale = application.devicePixelRatio();
    takeAll(registry, session, QSize(int(1366 / scale), int(768 / scale)));
    return 0;
}
