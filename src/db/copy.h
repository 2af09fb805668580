#pragma once

#include "db/database.h"

namespace jxc {

/// How far a copy has come; called before each table. What it throws ends the copy, and the target
/// stays as it was.
using CopyProgress = std::function<void(int tablesDone, int tables, const QString &caption)>;

/// Whether a database holds an account set, or part of one, that a copy would replace.
[[nodiscard]] bool holdsAccountSet(Database &db);

/// Copies all tables of an account set into another place, on the same engine or the other, and
/// replaces what stands there. Rows keep their ids and new rows get ids that were never given out.
/// The source is read as it stands at one moment while others work in it; the target is written in
/// one transaction. Throws DatabaseError, also for a source of an older layout and for a value that
/// the target cannot hold; the text names the table.
void copyAccountSet(Database &from, Database &to, const CopyProgress &progress = {});

/// The differences of two account sets in the number of rows, the exact sum of every numeric column
/// and the characters of every text column; one line each, none when they are equal.
[[nodiscard]] QStringList compareAccountSets(Database &from, Database &to);

} // namespace jxc
