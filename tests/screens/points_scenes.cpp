#include "screens/points_scenes.h"

#include "core/session.h"
#include "db/database.h"
#include "retail/forms/tf_dhzp.h"
#include "retail/forms/tf_dhzp_add.h"
#include "retail/forms/tf_hyyh.h"
#include "support/windows.h"

namespace jxc::test {

namespace {

void takeExchange(TF_Dhzp &list, Photographer &photographer) {
    list.btnAddClick();
    auto *editor = list.findChild<TF_Dhzp_Add *>();
    const QString member = list.db().scalar(
        QStringLiteral("select hy_bh from jxc_hyxx where hy_sn<>'100001' order by id limit 1"));
    if (!member.isEmpty()) {
        enter(member);
        for (int i = 0; i < 3; ++i)
            enter();
        for (const Row &gift : list.db().rows(QStringLiteral(
                 "select g_sn from jxc_goods where g_iszp<>0 order by id limit 3"))) {
            enter(gift.text(u"g_sn"));
            enter(QStringLiteral("2"));
        }
        type(QStringLiteral("1"));
        photographer.takeDesk(editor, QStringLiteral("TF_Dhzp_Add_gifts"));
        press(Qt::Key_Escape);
        press(Qt::Key_Escape);
    }
    photographer.take(editor, QStringLiteral("TF_Dhzp_Add_full"));
    editor->done(0);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void takeOffers(TF_Hyyh &list, Photographer &photographer) {
    list.btnAddClick();
    RecordEditor *editor = list.editor();
    enter(QStringLiteral("满百返五"));
    photographer.take(editor, QStringLiteral("TF_Hyyh_Add_1"));
    for (int kind = 2; kind <= 3; ++kind) {
        press(Qt::Key_Down);
        photographer.take(editor, QStringLiteral("TF_Hyyh_Add_%1").arg(kind));
    }
    editor->done(0);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace

void takePoints(Form &form, Photographer &photographer, const QString &name) {
    if (auto *list = qobject_cast<TF_Dhzp *>(&form); list != nullptr && photographer.wants(name))
        takeExchange(*list, photographer);
    if (auto *list = qobject_cast<TF_Hyyh *>(&form); list != nullptr && photographer.wants(name))
        takeOffers(*list, photographer);
}

} // namespace jxc::test
