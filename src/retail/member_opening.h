#pragma once

#include "retail/recharge.h"

namespace jxc {

class Record;

/// Saves a new member as the list's editor does, and puts the first money on the card in the same
/// action. `first` names amount and tenders; its member is the new one, and an amount of 0
/// recharges nothing. Refused by a field, `field` names its column.
Outcome openMember(Session &session, Prompter &prompter, Record &record, const Recharge &first,
                   QString *field, RechargeReceipt *receipt);

} // namespace jxc
