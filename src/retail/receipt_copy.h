#pragma once

#include <QString>

namespace jxc {

class Database;
struct Document;

// A document that names a member stands among the counter's receipts too, under its own number, so
// that every purchase of a member is posted and settled alike.

/// Whether a receipt of this number is there.
[[nodiscard]] bool hasReceipt(Database &db, const QString &number);
/// Copies an approved sale, or a sales return with every amount and quantity negative.
void writeReceiptCopy(Database &db, const Document &document);
/// Copies a return that stands in the counter's own tables of returns, negative; the day end takes
/// it there, so the copy is marked "-".
void writeReturnCopy(Database &db, const QString &number);

} // namespace jxc
