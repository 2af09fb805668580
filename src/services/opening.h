#pragma once

#include "core/action.h"
#include "db/upgrade.h"

#include <QStringList>

namespace jxc {

class Session;

/// What opening an account set did.
struct Opening {
    Outcome outcome;
    QStringList upgradeSteps; ///< dates of the steps that an older set needed
};

/// Logs an operator in, as the program's start does: checks the password, brings a set of an older
/// release up to date, writes "登录系统" to the log and loads company, parameters and rights.
/// Refused with "用户密码不正确，请重新输入！".
Opening openSession(Session &session, const QString &operatorName, const QString &password);

/// What an upgrade needs of the money ledgers.
[[nodiscard]] UpgradeHooks upgradeHooks();

/// Runs the upgrade alone; answers the dates of its steps. Throws DatabaseError.
QStringList upgradeAccountSet(Session &session);

} // namespace jxc
