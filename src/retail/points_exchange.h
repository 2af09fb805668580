#pragma once

#include "base/decimal.h"
#include "core/action.h"

#include <vector>

namespace jxc {

class Session;

/// Gifts that a member takes for points (积分兑换). There is no draft: saving posts.
struct PointsExchange {
    struct Line {
        QString goods; ///< marked as a gift (g_iszp); its points (g_zpjf) are the price of one
        Decimal quantity;
    };
    QString date, member, warehouse, note{};
    std::vector<Line> lines{};
    QString password{}; ///< of the card
};

/// What so many of a gift cost, in points.
[[nodiscard]] inline Decimal pointsFor(Decimal each, Decimal quantity) {
    return (each * quantity).rounded(2);
}

/// Takes the points, and the gifts out of stock from the batches that expire first. Refused with
/// too few points, and for gifts out of stock while negative stock is not allowed. `number` gets
/// the document's number (DH).
Outcome exchangePoints(Session &session, Prompter &prompter, const PointsExchange &exchange,
                       QString *number);
/// Takes an exchange back, whole, after asking, and deletes it.
Outcome undoPointsExchange(Session &session, Prompter &prompter, const QString &number);

} // namespace jxc
