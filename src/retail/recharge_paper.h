#pragma once

#include "retail/tender_moves.h"

#include <QString>

namespace jxc {

class Session;

/// A recharge of a card, or a payout off it, as it is handed to the member.
struct RechargePaper {
    QString number, time, cashier, note;
    QString memberNumber, memberName, memberMobile;
    Decimal amount; ///< negative when it was paid out
    Decimal bonus;  ///< on top of the amount
    Decimal cash, change;
    OtherTenders other;
    Decimal value, points; ///< on the card when the paper is printed

    [[nodiscard]] bool isPayout() const { return amount.isNegative(); }
    [[nodiscard]] QString title() const {
        return isPayout() ? QStringLiteral("会员退款单") : QStringLiteral("会员充值单");
    }
};

/// Reads it by its number (XF…). Throws Refusal for an unknown one.
[[nodiscard]] RechargePaper readRechargePaper(Session &session, const QString &number);

} // namespace jxc
