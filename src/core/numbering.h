#pragma once

#include <QString>

namespace jxc {

class Session;
class Database;

/// The next number of a table for today: a two-letter prefix, "yymmdd" and a serial that starts at
/// 10001 every day. Drawn inside the transaction that uses it, so that no two get the same.
/// Table and column are constants of the program, never typed text.
[[nodiscard]] QString newDocNumber(const Session &session, const QString &table,
                                   const QString &column, const QString &prefix);
/// The same with the digits of a document's own date ("yyyy-MM-dd").
[[nodiscard]] QString newDocNumberForDate(const Session &session, const QString &table,
                                          const QString &column, const QString &prefix,
                                          const QString &date);

/// Whether a number is taken. The current operator's own row does not count; counter receipts and
/// held receipts of the same prefix do.
[[nodiscard]] bool docNumberExists(const Session &session, const QString &table,
                                   const QString &column, const QString &number);

/// The next numeric code of master rows: the largest plus one, "100001" for the first.
[[nodiscard]] QString nextSerialNumber(Database &db, const QString &table, const QString &column);

} // namespace jxc
