#pragma once

#include "base/decimal.h"

#include <QString>

namespace jxc {

class Session;
struct Member;

/// A text to a member with {hyname}, {hybh}, {hysr}, {czkje} and {zjf} filled in.
[[nodiscard]] QString filledNotice(const QString &text, const Member &member);

/// Queues the notice of a recharge, {czje} its amount and {bcjf} its points, when notices are
/// switched on, a text is set and the member has a mobile number. Nothing is sent here.
void queueRechargeNotice(Session &session, const QString &number, const Member &member,
                         Decimal amount, Decimal points);

} // namespace jxc
