#include "screens/counter_scenes.h"

#include "db/database.h"
#include "retail/forms/tf_posxs_crk.h"
#include "retail/forms/tf_posxs_jbgl.h"
#include "retail/forms/tf_posxs_ph.h"
#include "retail/forms/tf_posxs_rj.h"
#include "retail/forms/tf_posxs_sytj.h"
#include "support/windows.h"

#include <QComboBox>
#include <QTabWidget>

namespace jxc::test {

namespace {

/// What the form opened over itself; it goes again.
void takeOpened(Form &form, Photographer &photographer, const QString &name, bool isLarge = true) {
    auto *opened = qobject_cast<Form *>(QApplication::activeModalWidget());
    if (opened == nullptr || opened == &form)
        return;
    if (isLarge)
        opened->resize(form.size());
    photographer.take(opened, name);
    if (auto *pages = opened->findChild<QTabWidget *>(QStringLiteral("pages"))) {
        pages->setCurrentIndex(1);
        photographer.take(opened, name + QStringLiteral("_2"));
    }
    opened->done(0);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

/// The paper that is shown next; it is not printed.
void takePreview(Photographer &photographer, const QString &name) {
    atNextDialog([&photographer, name](QWidget *preview) {
        photographer.take(preview, name + QStringLiteral("_print"));
        press(Qt::Key_Escape);
    });
}

} // namespace

void takeCounterReports(Form &form, Photographer &photographer, const QString &name) {
    if (auto *ranking = qobject_cast<TF_Posxs_Ph *>(&form)) {
        for (const int group : {1, 2, 3}) {
            child<QComboBox>(form, QStringLiteral("group"))->setCurrentIndex(group);
            photographer.take(&form, name + QStringLiteral("_%1").arg(group));
        }
        ranking->btnDetailClick();
        takeOpened(form, photographer, name + QStringLiteral("_lines"));
    }
    if (auto *takings = qobject_cast<TF_Posxs_Sytj *>(&form)) {
        takings->btnShiftsClick();
        takeOpened(form, photographer, name + QStringLiteral("_shifts"));
    }
    if (auto *shifts = qobject_cast<TF_Posxs_Jbgl *>(&form)) {
        if (shifts->grid().current() == nullptr)
            return;
        form.db().execute(QStringLiteral("update jxc_posprint set pp_dyfs=0,pp_zjdy=1"));
        takePreview(photographer, name);
        shifts->btnReprintClick();
    }
    if (auto *till = qobject_cast<TF_Posxs_Crk *>(&form)) {
        till->btnInClick();
        takeOpened(form, photographer, name + QStringLiteral("_Add"), false);
        takePreview(photographer, name);
        press(Qt::Key_F12);
    }
    if (auto *settlements = qobject_cast<TF_Posxs_Rj *>(&form)) {
        settlements->btnDetailClick();
        takeOpened(form, photographer, QStringLiteral("TF_Posxs_Rjmx"));
    }
}

} // namespace jxc::test
