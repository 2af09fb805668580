#pragma once

#include "services/verify_documents.h"

#include <QSet>

namespace jxc::verify {

/// Documents from before the journal was kept by approvals: they and their rows are left alone.
[[nodiscard]] QSet<QString> documentsBeforeTheBooks(Database &db);

/// Holds the rows of the journal against the lines of the approved documents, number by number, and
/// notes in `stock` what the documents moved physically.
void checkJournalAgainstDocuments(Database &db, const QSet<QString> &beforeBooks, DueStock &stock,
                                  Findings &findings);

} // namespace jxc::verify
