#include "retail/sms_settings.h"

#include "core/action.h"
#include "core/operation_log.h"
#include "core/session.h"

namespace jxc {

SmsSettings loadSmsSettings(Database &db) {
    const auto row = db.row(QStringLiteral("select sms_sign,sms_user,sms_pwd,sms_cznote,sms_xfnote "
                                           "from jxc_smscs order by id limit 1"));
    if (!row)
        return {};
    return {row->text(u"sms_sign"), row->text(u"sms_user"), row->text(u"sms_pwd"),
            row->text(u"sms_cznote"), row->text(u"sms_xfnote")};
}

Outcome saveSmsSettings(Session &session, Prompter &prompter, const SmsSettings &settings) {
    return runAction(session.db(), prompter, [&](Answers &) {
        if (loadSmsSettings(session.db()) == settings)
            return;
        session.db().execute(QStringLiteral("delete from jxc_smscs"));
        session.db().insertRow(QStringLiteral("jxc_smscs"),
                               {{QStringLiteral("sms_sign"), settings.sign},
                                {QStringLiteral("sms_user"), settings.user},
                                {QStringLiteral("sms_pwd"), settings.password},
                                {QStringLiteral("sms_cznote"), settings.rechargeNote},
                                {QStringLiteral("sms_xfnote"), settings.purchaseNote}});
        writeLog(session, QStringLiteral("修改短信参数"));
    });
}

bool isSmsOn(Database &db) {
    return db.exists(QStringLiteral("select id from jxc_xtcs where cs_sms=1"));
}

} // namespace jxc
