#pragma once

#include "sheets/sheet.h"

namespace jxc {

/// The filled sheets of an .xlsx, .xls or text file (.csv, .txt), in the file's order and without
/// hidden ones. What the file is shows in its first bytes, not in its name. Throws SheetError with
/// a text for the user when it is missing, empty, damaged, encrypted, too large or something else.
[[nodiscard]] std::vector<Sheet> readSheets(const QString &path);

} // namespace jxc
