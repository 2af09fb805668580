#pragma once

#include "core/clock.h"

namespace jxc {
class Database;
class Session;
} // namespace jxc

namespace jxc::ctl {

/// Plays a fortnight of a shop step by step and says after each what it did and the figures that
/// prove it: buy, take in by parts, sell, back-date a receipt, take a sale back, return, close a
/// rest, be paid later.
void tellStory(Session &session, FixedClock &clock);

/// What the evening asks: documents, stock and cost, who owes what, cash.
void reportShop(Database &db);

} // namespace jxc::ctl
