#pragma once

#include "services/verify_stock.h"

namespace jxc {
struct Parameters;
}

namespace jxc::verify {

/// Follows the journal of every goods and warehouse from its first row to its last: each row's
/// figures must come from the row before it. Notes in `stock` what the books hold in the end and
/// what opening rows brought. With `all`, also informs of counters and last prices that differ from
/// the journal's.
void checkJournalFigures(Database &db, const Parameters &parameters, bool all, DueStock &stock,
                         Findings &findings);

} // namespace jxc::verify
