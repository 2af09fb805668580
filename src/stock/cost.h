#pragma once

#include "base/decimal.h"

#include <QHash>
#include <QStringList>
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
/// The same for lines being entered of several goods, in one statement where the journal has the
/// cost of all of them.
[[nodiscard]] QHash<QString, Decimal> costsBefore(Database &db, const QString &warehouse,
                                                  const QStringList &goods, const QString &date);

} // namespace jxc
