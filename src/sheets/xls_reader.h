#pragma once

#include "sheets/sheet.h"

namespace jxc {

/// The sheets of an .xls file. Throws SheetError.
[[nodiscard]] std::vector<Sheet> readXls(const QString &path);

} // namespace jxc
