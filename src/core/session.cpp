#include "core/session.h"

#include "base/dates.h"
#include "core/rights.h"
#include "db/database.h"

namespace jxc {

QString Session::today() const {
    return toDateText(now().date());
}

QString Session::timeStamp() const {
    return toTimeStampText(now());
}

namespace {

void loadCompany(Session &session) {
    const auto row = session.db().row(
        QStringLiteral("select c_name,c_jc,c_tele,c_address from jxc_company order by id"));
    session.company = {};
    if (!row)
        return;
    session.company = {row->text(u"c_name"), row->text(u"c_jc"), row->text(u"c_tele"),
                       row->text(u"c_address")};
}

void loadBackupSettings(Session &session) {
    const auto row = session.db().row(QStringLiteral(
        "select back_path,back_auto,back_exit,back_sj,back_days from jxc_backup order by id"));
    session.backup = {};
    if (!row)
        return;
    session.backup = {row->text(u"back_path"), row->flag(u"back_auto"), row->flag(u"back_exit"),
                      static_cast<int>(row->integer(u"back_sj")),
                      static_cast<int>(row->integer(u"back_days"))};
}

} // namespace

void loadGlobals(Session &session) {
    loadCompany(session);
    session.parameters = Parameters::load(session.db());
    loadBackupSettings(session);
    session.rights = {hasRight(session, u"qtcz", 7), hasRight(session, u"qtcz", 8),
                      hasRight(session, u"qtcz", 9), hasRight(session, u"xsgl", 14)};
}

} // namespace jxc
