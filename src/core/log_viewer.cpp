#include "core/log_viewer.h"

#include "core/rights.h"
#include "core/session.h"
#include "db/like.h"

namespace jxc {

Rows searchLog(const Session &session, const QString &from, const QString &to,
               const QString &text) {
    const QString part = containsPattern(text);
    return session.db().rows(
        QStringLiteral("select id,log_time,a_name,log_note from jxc_log where log_time>=? and "
                       "log_time<=? and (%1 or %2) order by id desc")
            .arg(contains(QStringLiteral("log_note")), contains(QStringLiteral("a_name"))),
        {from, QString(to + QStringLiteral(" 23:59:59")), part, part});
}

bool mayClearLog(const Session &session) {
    return hasRight(session, u"qtcz", 15);
}

Outcome clearLog(const Session &session, Prompter &prompter) {
    Database &db = session.db();
    return runAction(db, prompter, [&](Answers &answers) {
        if (!mayClearLog(session))
            throw Refusal(noRightMessage(QStringLiteral("清除日志！")));
        if (!db.exists(QStringLiteral("select id from jxc_log limit 1")))
            return;
        answers.require(QStringLiteral("将清除所有日志，并不能恢复，确认清除吗？"));
        db.execute(QStringLiteral("delete from jxc_log"));
    });
}

} // namespace jxc
