#pragma once

#include <QDate>
#include <QString>
#include <optional>

namespace jxc {

/// Whole days from `today` until a batch expires: 0 on its last day, negative past it. The expiry
/// is a day or a month ("2026-03": to its end); nothing for a batch that never expires ("0000-00",
/// empty) or carries something else.
[[nodiscard]] std::optional<qint64> daysLeft(const QString &expiry, QDate today);

} // namespace jxc
