#pragma once

#include "db/database.h"

namespace jxc {

// A backup is one file of the embedded engine, whichever engine it was taken from, so that it
// restores into either.

/// Writes a complete copy of the account set while others work in it. It is written under another
/// name beside the target, read back, and takes the target's name only when it is whole; a file of
/// that name is overwritten then. Opens connections of its own, so that it may run in any thread.
void writeBackupFile(const Location &from, const QString &target);

/// What is wrong with a file as a backup.
enum class BackupFault {
    none,
    notOurs, ///< no database, or that of another program
    damaged
};
/// Reads the whole file and changes nothing in it or beside it.
[[nodiscard]] BackupFault checkBackupFile(const QString &path);

/// Copies a backup to where it can be opened as an account set, also from a place where nothing can
/// be written.
void unpackBackupFile(const QString &file, const QString &target);

/// What replaceFromFile does where pages cannot be copied: all tables in one transaction, compared
/// before it is committed.
void replaceByTables(Database &db, const QString &file, const QString &keepAs);

} // namespace jxc
