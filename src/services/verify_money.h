#pragma once

#include "services/verify_findings.h"

#include <QSet>

namespace jxc {
class Database;
}

namespace jxc::verify {

/// Holds partner ledger, cash journal, fees and invoice register against the approved documents.
void checkMoneyAgainstDocuments(Database &db, const QSet<QString> &beforeBooks, Findings &findings);

} // namespace jxc::verify
