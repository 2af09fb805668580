#include "core/notes.h"

#include "core/session.h"

namespace jxc {

QString readNote(const Session &session, const QString &flag) {
    return session.db().scalar(
        QStringLiteral("select bq_txt from jxc_bqjl where bq_flag=? order by id desc limit 1"),
        {flag});
}

Outcome saveNote(const Session &session, Prompter &prompter, const QString &flag,
                 const QString &text) {
    Database &db = session.db();
    return runAction(db, prompter, [&](Answers &) {
        if (db.execute(QStringLiteral("update jxc_bqjl set bq_txt=? where bq_flag=?"),
                       {text, flag}) == 0)
            db.insertRow(QStringLiteral("jxc_bqjl"),
                         {{QStringLiteral("bq_txt"), text}, {QStringLiteral("bq_flag"), flag}});
    });
}

} // namespace jxc
