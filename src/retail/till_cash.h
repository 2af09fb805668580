#pragma once

#include "base/decimal.h"
#include "core/action.h"

#include <vector>

namespace jxc {

class Session;

/// Which way cash goes at the till.
enum class TillDirection {
    in, ///< 入款, "r", numbers RK
    out ///< 出款, "c", numbers CK
};

struct TillCash {
    TillDirection direction = TillDirection::in;
    Decimal amount; ///< above 0 either way
    QString note{};
};

/// Records cash put into or taken out of the till by the operator, today, after asking.
Outcome recordTillCash(Session &session, Prompter &prompter, const TillCash &cash, QString *number);

/// A row of the list; one of the two amounts is 0.
struct TillRow {
    QString number, date, kind; ///< "POS 入款" or "POS 出款"
    Decimal in, out;
    QString cashier, note;
};

/// What stands for every cashier in the filter.
inline const QString everyCashier = QStringLiteral("所有收银员");

/// The movements of the days from `from` to `to` ("yyyy-MM-dd", both included) of a cashier (part
/// of the name; empty or `everyCashier`: all), newest first.
[[nodiscard]] std::vector<TillRow> listTillCash(Session &session, const QString &from,
                                                const QString &to, const QString &cashier);

} // namespace jxc
