#pragma once

#include "base/decimal.h"
#include "core/action.h"

namespace jxc {

class Session;

/// Settles the counter (日结): every receipt and return without a settlement, whatever its day, is
/// summed up by goods and day under a new number (RJ) and marked with it, and so are the sales and
/// returns of the same numbers. Asks first. Refused when there is nothing to settle, and without
/// the right (tjgl 20). Amounts of returns are taken off, their quantities are added.
Outcome settleCounter(Session &session, Prompter &prompter, QString *number);

} // namespace jxc
