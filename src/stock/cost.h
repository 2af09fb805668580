#pragma once

#include "base/decimal.h"

#include <QString>
#include <limits>

namespace jxc {

class Database;

/// An id above every row of the journal.
inline constexpr qint64 afterEveryRow = std::numeric_limits<qint64>::max();

/// The cost of a goods in a warehouse on a date: of the last journal row up to it, else of the
/// first later one, else of the stock row, else the goods' average; 0 without any. Per base unit.
[[nodiscard]] Decimal getCbjAt(Database &db, const QString &warehouse, const QString &goods,
                               const QString &date);

/// The cost that an outbound line is charged: looks through the journal before the date and id in
/// five steps, then at the stock row, then at the goods' average; 0 without any. Per base unit. A
/// line being entered passes afterEveryRow.
[[nodiscard]] Decimal getCbjBefore(Database &db, const QString &warehouse, const QString &goods,
                                   const QString &date, qint64 id = afterEveryRow);

} // namespace jxc
