#include "retail/notices.h"

#include "core/session.h"
#include "db/database.h"
#include "db/fitted.h"
#include "retail/member.h"
#include "retail/sms_settings.h"
#include "retail/sms_text.h"

namespace jxc {

qint64 queueRechargeNotice(Session &session, const QString &number, const Member &member,
                           Decimal amount, Decimal points) {
    Database &db = session.db();
    const QString mobile = member.mobile.trimmed();
    if (mobile.isEmpty() || !isSmsOn(db))
        return 0;
    const SmsSettings settings = loadSmsSettings(db);
    if (settings.rechargeNote.isEmpty())
        return 0;
    const QString text =
        fillSmsTemplate(settings.rechargeNote, {{QStringLiteral("{hyname}"), member.name},
                                                {QStringLiteral("{hybh}"), member.number},
                                                {QStringLiteral("{hysr}"), member.birthday},
                                                {QStringLiteral("{czje}"), amount.toText()},
                                                {QStringLiteral("{bcjf}"), points.toText()},
                                                {QStringLiteral("{czkje}"), member.value.toText()},
                                                {QStringLiteral("{zjf}"), member.points.toText()}});
    const QString table = QStringLiteral("jxc_smshy");
    // Who sends it stamps it; until then it waits.
    return db.insertRow(table, {{QStringLiteral("gl_djh"), number},
                                {QStringLiteral("hy_sn"), member.key},
                                {QStringLiteral("hy_mobile"), fitted(table, u"hy_mobile", mobile)},
                                {QStringLiteral("sms_rq"), QString()},
                                {QStringLiteral("sms_note"),
                                 fitted(table, u"sms_note", withSmsSign(text, settings.sign))},
                                {QStringLiteral("a_name"), session.currentOperatorName}});
}

} // namespace jxc
