#pragma once

#include "sheets/sheet.h"

namespace jxc {

/// The visible sheets of an .xlsx file. Throws SheetError.
[[nodiscard]] std::vector<Sheet> readXlsx(const QString &path);

} // namespace jxc
