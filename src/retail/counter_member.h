#pragma once

#include "base/decimal.h"
#include "retail/counter_price.h"

#include <QString>
#include <optional>

namespace jxc {

class Session;

/// What the counter shows and needs of a member.
struct CounterMember {
    QString key, number, name, mobile;
    QString level; ///< hl_sn, for the prices
    Decimal balance, points;
    bool hasPassword = false;           ///< asked before the card is charged
    std::optional<Decimal> dayFactor{}; ///< a discount of the members' day, when it is today

    [[nodiscard]] PriceBuyer asBuyer() const { return {level, dayFactor}; }
};

/// A member by the key (hy_sn) for a purchase of today. Throws Refusal for an unknown one and for a
/// card that may not be used.
[[nodiscard]] CounterMember counterMember(Session &session, const QString &key);

} // namespace jxc
