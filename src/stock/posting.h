#pragma once

#include "core/action.h"

namespace jxc {

class Session;
struct Document;
struct JournalRow;
struct Parameters;

/// Approves a document of any kind: its journal rows, stock, batches, costs, money and log line are
/// written in one transaction, or nothing is. Refusals come in this order: the right, exists, not
/// approved yet, date and lines, stocktaking, the kind's own limits, batches.
Outcome approveDocument(Session &session, Prompter &prompter, const QString &number);

/// Takes an approval back, whole. Refusals in this order: exists and is approved, the right (the
/// administrator, the approver, or the kind's cancelling right), documents that follow,
/// stocktaking; then the question.
Outcome cancelDocument(Session &session, Prompter &prompter, const QString &number);

/// The same inside a transaction that is already open.
void approveInTransaction(Session &session, Answers &answers, const QString &number);
void cancelInTransaction(Session &session, Answers &answers, const QString &number);

/// The same for what the counter rings up: whoever may work there books it, without the approver's
/// right.
void approveAtCounter(Session &session, Answers &answers, const QString &number);

/// Writes what approval writes, after everything was checked: nothing refuses any more, except
/// a payment that its account cannot bear and figures out of range.
void postDocument(Session &session, const Parameters &parameters, const Document &document);

/// Writes a document's journal rows and moves stock, batches and costs by them.
void postMovements(Session &session, const Parameters &parameters, const Document &document,
                   std::vector<JournalRow> rows);
/// Deletes them and moves everything back.
void takeBackMovements(Session &session, const Parameters &parameters, const Document &document);

} // namespace jxc
