#pragma once

#include "stock/walk.h"

#include <limits>

namespace jxc {

class Session;

/// One row of the journal and what it did to the cost, for a reader.
struct CostStoryRow {
    qint64 id = 0;        ///< of the journal row
    QString number, date; ///< the document; the number is empty for opening stock
    QString flag, title;  ///< of the kind of row: "xs", "商品销售"
    Decimal change;       ///< what came (negative: went), base units
    Decimal price;        ///< of the row itself, per base unit
    JournalStep step;
    bool setsCost = false; ///< false: the row was charged the cost in force and left it
    /// "3月5日 采购进货单CJ26030510001 进 10 瓶，单价 3.30：…，库存 12 瓶、成本 3.25"
    QString sentence;
    /// The stored figures are not those that the rule gives: the books need a check.
    bool differs = false;
};

/// "Why this cost?": how a goods came to its cost in a warehouse.
struct CostStory {
    QString opening;                ///< what stood before the first row
    std::vector<CostStoryRow> rows; ///< newest last
    Decimal cost;                   ///< per base unit, after the last row
    QString conclusion;             ///< "2026年3月5日起成本为 3.25"
};

/// Up to which row a story is told: to the end of a day, or to one row of that day.
struct CostStoryEnd {
    QString date; ///< "yyyy-MM-dd"
    qint64 row = std::numeric_limits<qint64>::max();
};

/// The rows of the walk behind the cost in force at the end given: from the last row before it
/// that left no stock (what was earlier does not count any more), else from the journal's
/// beginning; at most `mostRows`, the latest. A goods without rows has a story of its opening
/// alone.
[[nodiscard]] CostStory costStory(const Session &session, const JournalKey &key,
                                  const CostStoryEnd &end, int mostRows = 500);

} // namespace jxc
