#pragma once

#include "db/database.h"

#include <QDate>
#include <functional>

namespace jxc {

/// What an upgrade needs from the rooms above.
struct UpgradeHooks {
    /// Rebuilds the running balances of a partner from a day on. Kind is "kh", a customer.
    std::function<void(Database &db, const QString &kind, const QString &number,
                       const QString &fromDate)>
        recomputePartner;
};

/// Whether the account set is of an older release, or lacks a table. Reads only.
[[nodiscard]] bool needsUpgrade(Database &db);

/// Brings an account set of an older release up to the layout of the schema and answers the dates
/// of the steps that it ran, in their order; none when the set is current. To be called before
/// anything reads the parameters or rights, whose columns may be missing.
///
/// `today` is the day of the opening balances of tables that are created. All is one transaction:
/// what fails leaves the set as it was, its version date too, and is tried again next time. Throws
/// DatabaseError, also for a set without parameters, whose release cannot be told.
QStringList upgradeDatabase(Database &db, QDate today, const UpgradeHooks &hooks);

} // namespace jxc
