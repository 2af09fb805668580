#include "reports/pagination.h"

#include <numeric>

namespace jxc {

namespace {

/// Sums of lengths that are exact in the template must not fail by a rounding in the last digit.
constexpr qreal tolerance = 0.001;

} // namespace

std::vector<PageRows> dealRows(const std::vector<qreal> &heights, const PageRoom &room) {
    const qreal all = std::accumulate(heights.begin(), heights.end(), qreal(0));
    const qreal end = room.total + room.footer;
    if (room.first < 0 || all + end <= room.first + tolerance)
        return {{0, heights.size(), room.first < 0 ? 0 : room.first - all - end}};
    std::vector<PageRows> pages;
    size_t next = 0;
    bool isDone = false;
    while (!isDone) {
        const qreal capacity = (pages.empty() ? room.first : room.others) - room.pageSum;
        PageRows page{next, next, 0};
        qreal used = 0;
        while (page.to < heights.size() &&
               (page.to == page.from || used + heights[page.to] <= capacity + tolerance))
            used += heights[page.to++];
        if (page.to == heights.size()) {
            isDone = used + end <= capacity + tolerance || page.to - page.from <= 1;
            // The sums do not fit below the last row: it goes over with them.
            if (!isDone)
                used -= heights[--page.to];
        }
        page.free = qMax(qreal(0), capacity - used - (isDone ? end : 0));
        pages.push_back(page);
        next = page.to;
    }
    return pages;
}

} // namespace jxc
