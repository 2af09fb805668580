#pragma once

#include <QtGlobal>
#include <cstddef>
#include <vector>

namespace jxc {

/// The room that the rows of a printed form have, in millimetres.
struct PageRoom {
    qreal first = 0;   ///< for rows and all below them on the first page; negative: without end
    qreal others = 0;  ///< on the other pages
    qreal pageSum = 0; ///< the row of the page's own sums, printed when there are several pages
    qreal total = 0;   ///< the row of all sums, on the last page
    qreal footer = 0;  ///< what stands below the last row
};

/// The rows of one page: [from, to).
struct PageRows {
    size_t from = 0, to = 0;
    qreal free = 0; ///< left over at the bottom, for empty rows
};

/// Deals rows of these heights to pages. The last page always has a row, if there is any; a row
/// that is higher than its page has the page to itself.
[[nodiscard]] std::vector<PageRows> dealRows(const std::vector<qreal> &heights,
                                             const PageRoom &room);

} // namespace jxc
