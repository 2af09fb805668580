#pragma once

#include <QString>

namespace jxc {

// Values are bound, so nothing here guards a statement. The replacements stay because they shape
// what is stored: a password or name typed with a half-width sign must meet the full-width one that
// stands in the table.

/// For passwords, names and notes: half-width punctuation becomes full-width, "^" and the grave
/// accent vanish, "*" and "#" stay.
[[nodiscard]] QString sanitizeSqlText(QStringView text);

/// For codes and numbers: the same, but dots, brackets, stars and the signs + - / survive.
[[nodiscard]] QString sanitizeSqlTextLight(QStringView text);

} // namespace jxc
