#include "services/opening.h"

#include "core/login.h"
#include "core/operation_log.h"
#include "core/session.h"
#include "money/partner_ledger.h"

namespace jxc {

namespace {

/// Customers of an old set whose debt stands in their own row alone keep it: there is nothing to
/// recompute it from.
void recomputeOldPartner(Database &db, const QString &kind, const QString &number,
                         const QString &fromDate) {
    const Partner partner = partnerOf(kind, number);
    if (db.exists(QStringLiteral("select id from jxc_ysyfk where k_type=? and k_ghskh=? limit 1"),
                  {partner.type(), number}))
        RecomputePartnerBalance(db, partner, fromDate);
}

} // namespace

UpgradeHooks upgradeHooks() {
    return {recomputeOldPartner};
}

QStringList upgradeAccountSet(Session &session) {
    if (!needsUpgrade(session.db()))
        return {};
    return upgradeDatabase(session.db(), session.now().date(), upgradeHooks());
}

Opening openSession(Session &session, const QString &operatorName, const QString &password) {
    if (!authenticate(session, operatorName, password))
        return {{Outcome::Kind::refused, QStringLiteral("用户密码不正确，请重新输入！")}, {}};
    // The older layout may lack the very columns that hold parameters and rights.
    Opening opening;
    opening.upgradeSteps = upgradeAccountSet(session);
    writeLog(session, QStringLiteral("登录系统"));
    loadGlobals(session);
    return opening;
}

} // namespace jxc
