#pragma once

#include "core/parameters.h"

#include <QString>
#include <optional>
#include <tuple>
#include <vector>

namespace jxc {

class Database;

/// The journal of one goods in one warehouse.
struct JournalKey {
    QString goods;
    QString warehouse;
    friend bool operator<(const JournalKey &a, const JournalKey &b) {
        return std::tie(a.goods, a.warehouse) < std::tie(b.goods, b.warehouse);
    }
};

/// Stock, average cost and stock value after a row of the journal.
struct JournalState {
    Decimal stock;
    Decimal cost;
    Decimal value;
    friend bool operator==(const JournalState &, const JournalState &) = default;
};

/// By which branch of the rule a row comes to the cost after it.
enum class CostBranch {
    keptByKind,         ///< the kind of row never sets a cost
    keptByNothing,      ///< there is no quantity to take an average over
    average,            ///< value / quantity
    averageOfAbsolutes, ///< the same over absolute values: row and stock have opposite signs
    lastPrice           ///< the stock comes to nothing: the row's own price
};

/// One row of the walk: what stood before, what the average was taken over, what stands after.
struct JournalStep {
    JournalState before;
    Decimal averaged; ///< quantity
    Product worth;    ///< value
    CostBranch branch = CostBranch::keptByKind;
    JournalState after;
};

/// Applies one row to a state by the moving average.
///
/// Phases: (1) the stock moves; where row and stock have opposite signs the average is taken over
/// absolute values, deliberately also for a return out of a positive stock; (2) a kind that sets
/// cost takes |value / quantity|, or the row's price when the stock comes to nothing; (3) cost,
/// stock and value are rounded, after 0.000000001 is added to each.
[[nodiscard]] JournalStep journalStep(const JournalState &before, QStringView flag,
                                      Decimal quantity, Decimal price,
                                      const Parameters &parameters);
/// The same, the state after it alone.
[[nodiscard]] JournalState applyJournalRow(const JournalState &before, QStringView flag,
                                           Decimal quantity, Decimal price,
                                           const Parameters &parameters);

/// Where a walk starts and what set it off.
struct WalkStart {
    JournalKey key;
    QString date;           ///< the whole day is walked anew
    qint64 lastTouched = 0; ///< id of the last row added or taken out on that day
    QString flag;           ///< kind of the row that set it off
    /// The goods' average cost, with which a journal without earlier rows opens; read when absent.
    std::optional<Decimal> averageCost{};
    /// The rounding changed: a row that stands as it is does not mean that the rest does.
    bool toTheEnd = false;
};

/// Re-costs the journal of one goods in one warehouse from the start's day to its end and writes
/// the rows whose figures changed. Answers the cost of the last row (of the opening state when the
/// walk is empty), which the stock row takes when the kind of the start and the parameters let it.
Decimal reCalcGoodsList(Database &db, const Parameters &parameters, const WalkStart &start);
/// The same for the goods of one document, which start on one day: read and written together where
/// that day is near the journals' ends. Answers the costs in the order of the starts.
std::vector<Decimal> reCalcGoodsLists(Database &db, const Parameters &parameters,
                                      const std::vector<WalkStart> &starts);

} // namespace jxc
