#pragma once

#include "base/decimal.h"
#include "core/employees.h"

#include <QString>
#include <vector>

namespace jxc {

class Session;

/// Who or what a picker of a document looks for.
enum class Sought { supplier, customer, warehouse, employee, account };

struct Found {
    qint64 id = 0;
    QString code, name, mnemonic;
    QString phone, address; ///< of partners
    Decimal balance;        ///< of partners and accounts
    bool isDefault = false; ///< the one that a new document proposes
};

/// What matches the text typed: its code or mnemonic code begins with it (in any reading of the
/// name), or it is a part of the name; of partners also of phone, contact and address. Exact ones
/// first, then the usual ones; at most fifty. Nothing typed: the usual ones. Disabled rows and
/// those of other operators' warehouses are left out; `duty` narrows employees.
[[nodiscard]] std::vector<Found> findNamed(const Session &session, Sought what,
                                           const QString &typed,
                                           EmployeeDuty duty = EmployeeDuty::any);

} // namespace jxc
