#pragma once

#include <QString>

namespace jxc {

/// A copied or composed text, cut to the width of the column that keeps the copy. For what a user
/// typed there is TextTooLong instead.
[[nodiscard]] QString fitted(QStringView table, QStringView column, const QString &text);

} // namespace jxc
