#pragma once

#include "sheets/sheet.h"

namespace jxc {

/// The rows of a text file: UTF-8 with or without mark, UTF-16 with mark, else GB18030; cells
/// divided by comma, semicolon or tab, whichever the first line holds most of; quotes as usual.
/// Throws SheetError when it is no text or a quote never ends.
[[nodiscard]] std::vector<QStringList> readCsv(const QByteArray &bytes);

/// The rows as UTF-8 with mark, commas and quotes. A text that spreadsheet programs would take for
/// a formula gets an apostrophe in front, which readCsv takes away again; numbers do not.
[[nodiscard]] QByteArray csvText(const std::vector<QStringList> &rows);

} // namespace jxc
