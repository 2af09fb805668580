#pragma once

#include "base/decimal.h"

#include <QString>
#include <optional>

namespace jxc {

class Database;

/// Whose price is asked for.
struct PriceBuyer {
    QString level{};                    ///< hl_sn of a member; empty: no member
    std::optional<Decimal> dayFactor{}; ///< jf_hyrzk, on a day of the members
};

/// The price of one unit at the counter, tax included, rounded to so many decimals: the special
/// price while it runs, a member's price, or the retail price at the goods' discount or the
/// member's. A unit's own retail price goes before the base unit's times its factor. `day` is
/// "yyyy-MM-dd". 0 for goods without a price.
[[nodiscard]] Decimal counterPrice(Database &db, const QString &goods, const QString &unit,
                                   Decimal factor, const PriceBuyer &buyer, const QString &day,
                                   int decimals);

} // namespace jxc
