#pragma once

#include "base/decimal.h"

#include <QString>

namespace jxc {

class Session;
struct Member;

/// Queues the notice of a recharge, waiting to be sent: {czje} is its amount and {bcjf} its points,
/// beside what every message knows of the member. Only when notices are switched on, a text is set
/// and the member has a mobile number. The row of jxc_smshy; 0 for none. Nothing is sent here.
qint64 queueRechargeNotice(Session &session, const QString &number, const Member &member,
                           Decimal amount, Decimal points);

} // namespace jxc
