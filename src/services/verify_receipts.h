#pragma once

#include "services/verify_findings.h"

#include <QSet>

namespace jxc {
class Database;
}

namespace jxc::verify {

/// Holds the counter's receipts and returns against themselves (lines, tenders and change add up),
/// against the approved documents that name a member (one copy each, of the same member and amount;
/// those from before the books are left alone) and the day-end settlements against what they
/// settled.
void checkReceipts(Database &db, const QSet<QString> &beforeBooks, Findings &findings);

} // namespace jxc::verify
