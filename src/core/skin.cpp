#include "core/skin.h"

#include "core/session.h"

namespace jxc {

QString firstSkin(Database &db) {
    return db.scalar(QStringLiteral("select skin_name from jxc_skin order by id limit 1"));
}

QString skinOf(const Session &session) {
    const auto own = session.db().row(
        QStringLiteral("select skin_name from jxc_skin where a_name=? order by id desc limit 1"),
        {session.currentOperatorName});
    return own ? own->text(u"skin_name") : firstSkin(session.db());
}

Outcome saveSkin(const Session &session, Prompter &prompter, const QString &name) {
    Database &db = session.db();
    return runAction(db, prompter, [&](Answers &) {
        if (db.execute(QStringLiteral("update jxc_skin set skin_name=? where a_name=?"),
                       {name, session.currentOperatorName}) == 0)
            db.insertRow(QStringLiteral("jxc_skin"),
                         {{QStringLiteral("skin_name"), name},
                          {QStringLiteral("a_name"), session.currentOperatorName}});
    });
}

} // namespace jxc
