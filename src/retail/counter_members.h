#pragma once

#include "base/decimal.h"

#include <QString>
#include <optional>

namespace jxc {

class Session;

/// What the counter shows and needs of a member.
struct CounterMember {
    QString key, number, name, mobile;
    QString level; ///< hl_sn, for the prices
    Decimal balance, points;
    bool hasPassword = false;           ///< asked before the card is charged
    std::optional<Decimal> dayFactor{}; ///< a discount of the members' day, when it is today
};

/// Who knows the members, for the counter. This one knows none: the counter works without.
class CounterMembers {
public:
    CounterMembers() = default;
    virtual ~CounterMembers() = default;
    CounterMembers(const CounterMembers &) = delete;
    CounterMembers &operator=(const CounterMembers &) = delete;

    [[nodiscard]] virtual bool areKept() const { return false; }
    /// By card number, mobile phone or name; throws Refusal for a card that may not be used.
    [[nodiscard]] virtual std::optional<CounterMember> find(Session &session,
                                                            const QString &typed) const;
    [[nodiscard]] virtual bool isPassword(Session &session, const CounterMember &member,
                                          const QString &typed) const;
    /// Inside the transaction of a member's return, before its approval: writes its negative copy
    /// among the receipts.
    virtual void returnWritten(Session &session, const QString &number) const;
};

[[nodiscard]] const CounterMembers &noCounterMembers();

} // namespace jxc
