#pragma once

#include "db/database.h"

#include <memory>

namespace jxc {

/// The word that stands for this program in captions, and its release.
inline const QString productWord = QStringLiteral("岚舟通");
inline const QString productVersion = QStringLiteral("2019V3");

/// The folder that holds data/, Layout/ and report/: the wanted one, else the program's own if it
/// has data, else the user's data folder.
[[nodiscard]] QString homeFolder(const QString &wanted);

/// Where the account set is, whether it exists or not: a URL or path as given, else the embedded
/// file below home. Throws DatabaseError for a URL of another kind.
[[nodiscard]] Location accountSetLocation(const QString &home, const QString &database);

/// Whether nothing at all is there yet, so that a new account set may be offered. What is on a
/// server is never taken for nothing.
[[nodiscard]] bool isAccountSetMissing(const Location &location);

/// Opens the place of an account set to be made, and its folder; nothing is made in it yet. A file
/// of another kind is never overwritten, an account set only by force. Throws Refusal.
[[nodiscard]] std::unique_ptr<Database> openNewAccountSet(const Location &location, bool force);

} // namespace jxc
