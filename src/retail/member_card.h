#pragma once

#include "core/action.h"
#include "retail/member.h"

namespace jxc {

class Session;

/// Whether a card may be used today, at the counter, for recharge, transfer and exchange. Throws
/// Refusal for a lost or expired one.
void memberUsable(const Session &session, const Member &member);
/// Whether this is the card's password; any is, while it has none.
[[nodiscard]] bool isMemberPassword(const Member &member, const QString &typed);
/// Before value or points leave a card, and before it is changed: its password, unless it has none.
/// Throws Refusal.
void checkMemberPassword(const Member &member, const QString &typed);

/// Signs that a card's password may have.
inline constexpr int memberPasswordLength = 16;

// What is done to a card from the list of members; members by their key. Each is one action and
// logged.

/// Sets the password, typed twice; empty takes it away.
Outcome setMemberPassword(Session &session, Prompter &prompter, const QString &member,
                          const QString &password, const QString &again);
Outcome setMemberMobile(Session &session, Prompter &prompter, const QString &member,
                        const QString &mobile);
/// Reports a card lost (挂失), so that nobody uses it, or found again (解挂).
Outcome setMemberLost(Session &session, Prompter &prompter, const QString &member, bool lost);
/// Gives the member a card of another number; key and all figures stay, a lost one is usable again.
Outcome changeMemberCard(Session &session, Prompter &prompter, const QString &member,
                         const QString &newNumber, const QString &password);

} // namespace jxc
