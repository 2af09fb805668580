#pragma once

#include "db/row.h"
#include "retail/counter_rows.h"

namespace jxc {

/// What is ranked, and by what.
enum class RankedBy { goods, goodsClass, member, cashier };
enum class RankMeasure { amount, quantity, profit };

/// 销售排行: the first `most` of a group, the largest first (0: all). Fields: rank, gkey (what
/// narrows a CounterFilter to the row), code, name, spec, unit, sl, zje, lr, share and cumulative,
/// percent of the measure over all of the group, also of what is not listed. Receipts without a
/// member are one row. A search by code or name leaves ranks and shares as they are. Net, exact,
/// quantities in base units.
[[nodiscard]] Rows counterRanking(const Session &session, const CounterFilter &filter, RankedBy by,
                                  RankMeasure measure, int most);

} // namespace jxc
