#pragma once

#include "sheets/sheet.h"

namespace jxc {

/// The sheets of an .xls file, read by the helper program jxcxls beside this one: what a damaged
/// file does to the library that reads it, it does there. Throws SheetError.
[[nodiscard]] std::vector<Sheet> readXls(const QString &path);

} // namespace jxc
