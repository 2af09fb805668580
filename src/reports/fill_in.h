#pragma once

#include "reports/print_data.h"

#include <optional>

namespace jxc {

/// Where on the paper a text is being filled in.
struct PrintPlace {
    std::optional<size_t> line; ///< of a detail band
    size_t firstLine = 0, endLine = 0;
    size_t page = 1, pages = 1;
};

/// Puts the values in the place of the fields in brackets: [head.x], [line.x], [var.x],
/// [company.c_name], [page], [pages], [sum(line.x)] of all lines, [pagesum(line.x)] of those on the
/// page, [capital(...)] of a figure. A field that is not there prints empty; brackets that hold no
/// field stay as they are.
[[nodiscard]] QString fillIn(const QString &text, const PrintData &data, const PrintPlace &place,
                             const QString &format = {});

} // namespace jxc
