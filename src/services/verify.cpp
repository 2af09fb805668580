#include "services/verify.h"

#include "core/parameters.h"
#include "db/transaction.h"
#include "services/verify_balances.h"
#include "services/verify_findings.h"
#include "services/verify_journal.h"
#include "services/verify_money.h"
#include "services/verify_receipts.h"
#include "services/verify_walk.h"

namespace jxc {

std::vector<Difference> verifyBooks(Database &db, const VerifyOptions &options) {
    using namespace verify;
    Transaction snapshot(db); // nothing is written; what is read belongs together
    const Parameters parameters = Parameters::load(db);
    Findings findings;
    DueStock stock;
    const QSet<QString> beforeBooks = documentsBeforeTheBooks(db);
    checkJournalAgainstDocuments(db, beforeBooks, stock, findings);
    checkJournalFigures(db, parameters, options.all, stock, findings);
    stock.check(db, findings);
    if (options.all)
        stock.compareCosts(db, parameters.priceDecimals, findings);
    checkMoneyAgainstDocuments(db, beforeBooks, findings);
    checkReceipts(db, beforeBooks, findings);
    checkBalances(db, findings);
    snapshot.commit(); // inside a greater action, that action goes on
    return findings.take();
}

} // namespace jxc
