#pragma once

#include "base/decimal.h"
#include "core/action.h"

namespace jxc {

class Session;

/// A receipt, payment or entry as it is typed.
struct SettlementDraft {
    QString code; ///< SK, FK, YS or YF
    QString date, partner, clerk;
    Decimal amount;     ///< received or paid; of YS and YF what becomes owed, negative lowers it
    Decimal discount{}; ///< granted on settlement (SK, FK): lowers the balance, not the cash
    QString account = QStringLiteral("现金");
    QString note{};
};

/// Checks and stores the document unapproved; the number is drawn in the same transaction.
Outcome saveSettlement(Session &session, Prompter &prompter, const SettlementDraft &draft,
                       QString *number);

} // namespace jxc
