#pragma once

namespace jxc {

class Database;

/// Teaches a connection of the embedded engine the aggregates exact_sum(x) and
/// exact_sum_of_products(x,y), which add decimals instead of doubles and answer text.
void registerExactSums(Database &db);

} // namespace jxc
