#pragma once

#include <QDate>
#include <QString>
#include <optional>

namespace jxc {

// Dates of batches are written as they stand on the packing: by day or by month. "0000-00" and
// nothing never expire.

/// The last day on which a batch is good: the day itself, the last one of a month ("2026-03"),
/// also without dashes or with dots; invalid for what never expires or cannot be read.
[[nodiscard]] QDate lastGoodDay(QStringView expiry);

/// The same for a batch of a goods that is good for so many months from its production, by which it
/// goes when it has no expiry of its own.
[[nodiscard]] QDate lastGoodDay(QStringView expiry, QStringView produced, int shelfLifeMonths);

/// Whole days from a day until a batch expires: 0 on its last one, negative past it; nothing for
/// what never expires.
[[nodiscard]] std::optional<qint64> daysLeft(QStringView expiry, QDate today);

/// The expiry of what was produced then, in the books' form; empty without either.
[[nodiscard]] QString expiryAfter(QStringView produced, int shelfLifeMonths);

} // namespace jxc
