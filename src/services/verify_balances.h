#pragma once

#include "services/verify_findings.h"

namespace jxc {
class Database;
}

namespace jxc::verify {

/// Each running balance of partners and accounts from the one before it, and the partners' own
/// figures from their last row.
void checkBalances(Database &db, Findings &findings);

} // namespace jxc::verify
