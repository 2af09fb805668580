#include "core/operation_log.h"

#include "core/session.h"
#include "db/database.h"
#include "db/fitted.h"

namespace jxc {

void writeLog(Session &session, const QString &note) {
    session.db().insertRow(QStringLiteral("jxc_log"),
                           {{QStringLiteral("log_time"), session.timeStamp()},
                            {QStringLiteral("a_name"), session.currentOperatorName},
                            {QStringLiteral("log_note"), fitted(u"jxc_log", u"log_note", note)}});
}

} // namespace jxc
