#pragma once

#include "core/action.h"
#include "retail/tender_moves.h"

namespace jxc {

class Session;
struct Member;

/// Money onto a member's card, or with a negative amount off it.
struct Recharge {
    QString member{};     ///< key
    Decimal amount{};     ///< xf_je: what is paid for it
    Decimal cash{};       ///< as it is tendered, change included
    OtherTenders other{}; ///< `storedValue` stays 0: a card does not pay for itself
    QString note{};
    QString password{}; ///< of the card, when money is paid out
};

/// What a recharge made of the card.
struct RechargeReceipt {
    QString number; ///< XF…
    Decimal bonus;  ///< on top of the amount; negative when a payout lets it lapse
    Decimal points; ///< of this recharge
    Decimal change;
    Decimal value;     ///< on the card now
    Decimal pointsNow; ///< to spend, with them
    qint64 notice = 0; ///< the message to the member that waits to be sent; 0 for none
};

/// What is to be given back when a recharge is paid so; 0 for a payout. Throws Refusal when the
/// tenders do not fit the amount.
[[nodiscard]] Decimal rechargeChange(const Recharge &recharge);

/// The bonus that the member's offer gives on an amount: by a factor, or by the table of gifts when
/// the amount stands there exactly. Rounded to the amount decimals.
[[nodiscard]] Decimal rechargeBonus(Session &session, const Member &member, Decimal amount);
/// The most that can be paid out of the card now: what was paid in and not spent.
[[nodiscard]] Decimal refundableValue(Session &session, const Member &member);

/// Recharges a card: movement row, cash journal, value, points where money onto the card earns
/// them, level, notice. An amount of 0 does nothing and leaves `receipt` empty.
Outcome rechargeMember(Session &session, Prompter &prompter, const Recharge &recharge,
                       RechargeReceipt *receipt);
/// The same inside an open transaction, with the kind of recharge that the movement row names.
RechargeReceipt rechargeInTransaction(Session &session, const Recharge &recharge,
                                      const QString &kind);

/// The kinds of movement (xf_zt).
inline const QString rechargeKind = QStringLiteral("储值卡续费");
inline const QString openingRechargeKind = QStringLiteral("会员开户时充值");

} // namespace jxc
