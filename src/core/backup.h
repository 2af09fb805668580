#pragma once

#include "core/action.h"
#include "core/session.h"

#include <optional>

namespace jxc {

/// The name of the account set that is open: its file's without the extension.
[[nodiscard]] QString accountSetName(const Session &session);
/// The name of a backup taken at that time: account set, "yy_mm_dd_hh_nn_ss", ".DAT".
[[nodiscard]] QString backupFileName(const Session &session, const QDateTime &time);

/// Writes a backup into the folder, complete while others work, and answers its path. Two within
/// one second overwrite each other. Throws DatabaseError when the folder does not exist, or nothing
/// can be written there.
QString backupTo(const Session &session, const QString &folder);

/// The automatic backup and that on leaving: into the folder of the settings, then old files there
/// are deleted. Says nothing, whatever happens, and answers the new file's path or nothing.
QString backupDatabase(const Session &session);

/// When the newest backup of this account set in the settings' folder was written; nothing when
/// there is none. What stands there under its name was read back before it got it.
[[nodiscard]] std::optional<QDateTime> newestBackup(const Session &session);

/// Deletes the folder's "*.DAT" files whose last write is more days ago than the settings keep them
/// (0 keeps all), whether or not a new backup came about. Answers how many.
int deleteBackupFiles(const Session &session, const QString &folder);

/// Stores the settings, as the one row, and loads them into the session.
Outcome saveBackupSettings(Session &session, Prompter &prompter, const BackupSettings &settings);

/// The backup dialog's OK: stores the settings, also when the backup then fails, and makes a
/// backup. Deletes nothing old. The outcome's text is for the user, also when it is done.
Outcome manualBackup(Session &session, Prompter &prompter, const BackupSettings &settings);

} // namespace jxc
