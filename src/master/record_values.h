#pragma once

#include "db/row.h"
#include "db/value.h"
#include "master/master_kind.h"

#include <QString>

// How the texts of a record become fields of the database and back.

namespace jxc {

class Record;

/// A stored field as the editor holds it.
[[nodiscard]] QString fieldText(const Row &row, const QString &table, const QString &column);
/// What is bound for a text of the editor. Throws NumberError.
[[nodiscard]] Value fieldValue(const QString &table, const QString &column, const QString &text);
/// 0 or empty text, as a column of this type starts.
[[nodiscard]] QString emptyText(const QString &table, const QString &column);

/// Every column that saving writes because of this field: its own, and those that follow from it.
[[nodiscard]] QStringList writtenColumns(const MasterKind &kind, const MasterField &field);

/// The values of a list field "100001,100002,".
[[nodiscard]] QStringList listValues(const QString &text);
/// What finds a value in such a list after ',' was put before it.
[[nodiscard]] QString listPattern(const QString &value);

/// Fills the texts that follow from a picked or chosen value: names, copied columns. False when a
/// picked value does not exist (any more).
[[nodiscard]] bool followPick(Database &db, const MasterField &field, Record &record);

} // namespace jxc
