#pragma once

#include "base/decimal.h"

#include <QString>
#include <span>

namespace jxc {

/// How a row of the movement journal moves the running stock.
enum class StockRule {
    add,     ///< stock + gl_sl
    subtract ///< stock - gl_sl
};

/// When a row of the movement journal sets a new average cost.
enum class CostRule { never, always, whenIncoming };

/// What the walk knows of a row kind (gl_flag).
struct JournalKind {
    QStringView flag;
    StockRule stockRule;
    CostRule costRule;
    QStringView title; ///< what the user calls it

    /// The change of the stock by a row of this quantity.
    [[nodiscard]] Decimal stockChange(Decimal quantity) const {
        return stockRule == StockRule::add ? quantity : -quantity;
    }
    [[nodiscard]] bool setsCost(Decimal quantity) const {
        return costRule == CostRule::always ||
               (costRule == CostRule::whenIncoming && quantity.isPositive());
    }
    /// A walk that starts at such a row writes the cost to the stock row; whatever the sign of its
    /// quantity, deliberately.
    [[nodiscard]] bool writesStockCost() const { return costRule != CostRule::never; }
};

/// All kinds, in the order in which lists offer them.
[[nodiscard]] std::span<const JournalKind> journalKinds();
/// Throws std::logic_error for an unknown kind.
[[nodiscard]] const JournalKind &journalKind(QStringView flag);

} // namespace jxc
