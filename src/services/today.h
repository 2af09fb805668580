#pragma once

#include "base/decimal.h"

namespace jxc {

class Session;

/// What waits for somebody today.
struct TodayCounts {
    int belowMinimum = 0; ///< goods with less in stock than their lowest stock
    int nearExpiry = 0;   ///< batches in stock that expire within the warning days, or have expired
    int drafts = 0;      ///< documents that wait for approval, of the kinds the operator works with
    int receivables = 0; ///< sales whose reminder day has come and that are not paid in full
    Decimal receivableAmount;
};

[[nodiscard]] TodayCounts countToday(const Session &session);

} // namespace jxc
