#pragma once

#include <functional>

namespace jxc {

class Database;
class Session;
struct Parameters;

/// Told how far long work has come; false stops it.
using RewalkProgress = std::function<bool(int done, int total)>;

/// Re-costs the whole journal of every goods and warehouse under parameters whose decimals changed,
/// and what follows from it: the stock rows' costs, the goods' average costs and this month's stock
/// value. Inside a transaction. Throws Refusal when it is stopped, so that all of it is taken back.
void rewalkEverything(const Session &session, const Parameters &parameters,
                      const RewalkProgress &progress);

} // namespace jxc
