#include "screens/member_scenes.h"

#include "retail/forms/member_filter_bar.h"
#include "retail/forms/tf_hygl.h"
#include "retail/forms/tf_hyxf.h"
#include "retail/member_search.h"
#include "support/windows.h"

#include <QAction>

namespace jxc::test {

namespace {

/// What an action opens over the form; it goes again.
void takeAction(Form &form, Photographer &photographer, const char *action) {
    const QString name = form.objectName() + u'_' + QString::fromLatin1(action);
    if (!photographer.wantsOf(form.objectName()))
        return;
    bool taken = false;
    atNextDialog([&photographer, &taken, name](QWidget *dialog) {
        photographer.take(dialog, name);
        static_cast<QDialog *>(dialog)->done(0);
        taken = true;
    });
    child<QAction>(form, QString::fromLatin1(action))->trigger();
    (void)QTest::qWaitFor([&taken] { return taken; });
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void takeList(TF_Hygl &form, Photographer &photographer) {
    form.grid().goToLine(3);
    for (const char *action : {"btnAdd", "btnModi", "btnXfjl", "btnGjcx", "btnHk", "btnPwd",
                               "btnMobile", "btnZz", "btnZz2", "btnJf", "btnJe"})
        takeAction(form, photographer, action);
    form.conditions().setFilter({.valueFrom = Decimal(1), .birthMonth = 5, .idleDays = 7});
    photographer.take(&form, QStringLiteral("TF_Hygl_filtered"));
    form.conditions().clear();
}

void takeRecharge(TF_Hyxf &form, Photographer &photographer) {
    const Rows members = findMembers(form.session(), {}, 1);
    if (members.empty())
        return;
    form.setMember(members.front().text(u"hy_sn"));
    type(QStringLiteral("200"));
    photographer.take(&form, QStringLiteral("TF_Hyxf_typed"));
    takeAction(form, photographer, "btnSave");
    const QString preview = QStringLiteral("update jxc_posprint set pp_zjdy=%1,pp_dyfs=0");
    form.db().execute(preview.arg(1));
    takeAction(form, photographer, "btnReprint");
    form.db().execute(preview.arg(0));
}

} // namespace

void takeMembers(Form &form, Photographer &photographer) {
    if (auto *list = qobject_cast<TF_Hygl *>(&form))
        takeList(*list, photographer);
    if (auto *recharge = qobject_cast<TF_Hyxf *>(&form))
        takeRecharge(*recharge, photographer);
}

} // namespace jxc::test
