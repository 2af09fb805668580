#pragma once

#include "reports/pages.h"

class QPagedPaintDevice;

namespace jxc {

/// The paper of a page, for a printer or a file; the margins are the template's own.
void setPaper(QPagedPaintDevice &device, const Page &page);

/// Writes the pages into a PDF file. False when the file could not be written.
[[nodiscard]] bool writePdf(const Pages &pages, const QString &title, const QString &file);

} // namespace jxc
