#pragma once

#include "sheets/sheet.h"

namespace jxc {

/// The sheets of an .xls file. Throws SheetError; a damaged file may also crash the library that
/// reads it, so that only the helper program calls this.
[[nodiscard]] std::vector<Sheet> readXlsFile(const QString &path);

} // namespace jxc
