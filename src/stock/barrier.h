#pragma once

#include <QString>

namespace jxc {

class Database;
struct Document;

// A counted stock must not be changed behind the count: documents of a warehouse wait while a
// stocktaking of their goods is open, and nothing is posted or taken back before one that is done.

/// Called first by every approval. Throws Refusal.
void checkPdBeforeChk(Database &db, const Document &document);
/// Called by every cancelling. A document without journal rows passes. Throws Refusal.
void checkPdBeforeCancel(Database &db, const QString &number);

} // namespace jxc
