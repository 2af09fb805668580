#pragma once

#include "base/decimal.h"
#include "retail/counter_rows.h"

#include <vector>

namespace jxc {

/// What a cashier took over a time. Refunds are taken off each tender.
struct TillFigures {
    QString cashier;
    qint64 sales = 0, returns = 0; ///< receipts
    Decimal due;                   ///< sold less returned
    Decimal returned;              ///< positive
    Decimal tendered, change;
    Decimal rounding; ///< let go on receipts
    Decimal cash, storedValue, bankCard, voucher, weChat, aliPay;
    Decimal in, out; ///< put into and taken out of the till
    /// Money onto the members' cards; what was paid out again is taken off.
    struct Recharged {
        Decimal cash, bankCard, weChat, aliPay, change;

        [[nodiscard]] Decimal net() const { return cash + bankCard + weChat + aliPay - change; }
        friend bool operator==(const Recharged &, const Recharged &) = default;
    } recharged;

    [[nodiscard]] Decimal sold() const { return due + returned; }
    /// What the customer still owes.
    [[nodiscard]] Decimal owed() const { return due - (tendered - change); }
    /// The cash that all of it leaves in the till.
    [[nodiscard]] Decimal cashDue() const {
        return cash - change + in - out + recharged.cash - recharged.change;
    }
    friend bool operator==(const TillFigures &, const TillFigures &) = default;
};

/// 收银员收银统计: the figures of every cashier who did anything, by name. Of the filter, days (or
/// moments), cashier and `ofTillOnly` count; cash of the till bears a day alone.
[[nodiscard]] std::vector<TillFigures> tillFigures(const Session &session,
                                                   const CounterFilter &filter);

} // namespace jxc
