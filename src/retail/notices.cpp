#include "retail/notices.h"

#include "core/session.h"
#include "db/database.h"
#include "db/fitted.h"
#include "retail/member.h"

namespace jxc {

QString filledNotice(const QString &text, const Member &member) {
    return QString(text)
        .replace(QStringLiteral("{hyname}"), member.name)
        .replace(QStringLiteral("{hybh}"), member.number)
        .replace(QStringLiteral("{hysr}"), member.birthday)
        .replace(QStringLiteral("{czkje}"), member.value.toText())
        .replace(QStringLiteral("{zjf}"), member.points.toText());
}

void queueRechargeNotice(Session &session, const QString &number, const Member &member,
                         Decimal amount, Decimal points) {
    Database &db = session.db();
    if (member.mobile.isEmpty() ||
        !db.exists(QStringLiteral("select id from jxc_xtcs where cs_sms<>0")))
        return;
    const auto settings =
        db.row(QStringLiteral("select sms_sign,sms_cznote from jxc_smscs order by id limit 1"));
    if (!settings || settings->text(u"sms_cznote").isEmpty())
        return;
    // The amounts first: a name may hold anything.
    const QString text = QString(settings->text(u"sms_cznote"))
                             .replace(QStringLiteral("{czje}"), amount.toText())
                             .replace(QStringLiteral("{bcjf}"), points.toText());
    const QString table = QStringLiteral("jxc_smshy");
    db.insertRow(
        table, {{QStringLiteral("gl_djh"), number},
                {QStringLiteral("hy_sn"), member.key},
                {QStringLiteral("hy_mobile"), member.mobile},
                {QStringLiteral("sms_rq"), session.timeStamp()},
                {QStringLiteral("sms_note"),
                 fitted(table, u"sms_note",
                        filledNotice(text, member) + u'【' + settings->text(u"sms_sign") + u'】')},
                {QStringLiteral("a_name"), session.currentOperatorName}});
}

} // namespace jxc
