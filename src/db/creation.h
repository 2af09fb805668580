#pragma once

#include "db/database.h"

#include <QDate>

namespace jxc {

/// Drops the table with all its rows and makes it anew, with its indexes and starting rows.
/// `today` is the day of the opening balances. Throws std::logic_error for a table that the schema
/// does not know.
void createTable(Database &db, QStringView name, QDate today);

/// Makes a new account set: every table is dropped and made anew. What fails leaves everything as
/// it was.
void resetAllTables(Database &db, QDate today);

/// Starts the books anew and keeps the master data. The kept goods have no stock and the walk-in
/// supplier afterwards; their rows of jxc_kcsp stay, deliberately, and are set to zero by a form of
/// their own. What fails leaves everything as it was.
void resetBusinessTables(Database &db, QDate today);

} // namespace jxc
