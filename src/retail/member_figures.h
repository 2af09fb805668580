#pragma once

#include "base/decimal.h"
#include "core/action.h"

#include <QString>

namespace jxc {

class Session;

// Corrections of a member's figures and what moves between cards. Members are named by their keys.

/// Adds points (or with a negative figure takes them), to those to spend and to those ever earned;
/// the level follows the new total, whatever the member's own setting says. 0 does nothing.
Outcome correctPoints(Session &session, Prompter &prompter, const QString &member, Decimal points);
/// The same for what the member has spent.
Outcome correctSpending(Session &session, Prompter &prompter, const QString &member,
                        Decimal amount);

/// What goes from one card to another.
struct Transfer {
    QString from, to;
    Decimal amount;     ///< of value or of points, above 0
    QString password{}; ///< of the card that gives
};

/// Moves stored value (转账), at most what the card holds.
Outcome transferValue(Session &session, Prompter &prompter, const Transfer &transfer);
/// Moves points to spend (积分转移); those ever earned stay.
Outcome transferPoints(Session &session, Prompter &prompter, const Transfer &transfer);

} // namespace jxc
