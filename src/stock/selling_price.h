#pragma once

#include "core/parameters.h"

#include <QString>

namespace jxc {

class Database;

/// The price proposed for a customer and goods in one of its units, rounded to the price decimals;
/// the first that gives one: the customer's agreed price (per base unit, times the unit's factor),
/// the last approved sale to that customer in this unit while cs_xsdj is 1, the price of the
/// customer's level while cs_cs001 is on, the standard price. A price of 0 is none. 0 when nothing
/// gives one.
[[nodiscard]] Decimal defaultSellingPrice(Database &db, const Parameters &parameters,
                                          const QString &goods, const QString &customer,
                                          const QString &unit);

} // namespace jxc
