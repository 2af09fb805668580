#pragma once

#include <QString>
#include <vector>

namespace jxc {

class Database;

/// One figure of the books that does not follow from the approved documents.
struct Difference {
    QString store; ///< the table that is wrong
    QString key;   ///< goods and warehouse, batch, partner or account
    QString text;  ///< what stands and what should stand, in plain Chinese
    /// Carries history (counters, costs in force): shown on request, not a fault of the books.
    bool information = false;
};

struct VerifyOptions {
    bool all = false; ///< also what only carries history
};

/// Holds journal, stock, batches, goods figures, partner ledger, cash, fees, invoices and the
/// counter's receipts against the approved documents, recomputed by rules written down here a
/// second time, apart from the posting. Answers one difference, the first by date, for each goods
/// and warehouse, batch, partner and account of a store; none when the books are right. Changes
/// nothing; others who want to write wait meanwhile, so that what is read belongs together.
[[nodiscard]] std::vector<Difference> verifyBooks(Database &db, const VerifyOptions &options = {});

} // namespace jxc
