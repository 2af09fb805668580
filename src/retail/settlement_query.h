#pragma once

#include "base/decimal.h"
#include "db/row.h"

namespace jxc {

class Session;

/// What stands unsettled at the counter.
struct Unsettled {
    qint64 receipts = 0; ///< sales and returns
    Decimal amount;      ///< of their lines, returns taken off
};
[[nodiscard]] Unsettled unsettledReceipts(const Session &session);

/// The settlements of the days from `from` to `to`, newest first, found by a part of the number or
/// of the operator's name: id gl_djh rj_rq rj_sl rj_je a_name.
[[nodiscard]] Rows listSettlements(const Session &session, const QString &from, const QString &to,
                                   const QString &search);

/// The lines of one, by day and goods: id rj_xsrq rj_sl rj_je and the fields that name a goods,
/// which are searched.
[[nodiscard]] Rows settlementLines(const Session &session, const QString &number,
                                   const QString &search);

/// Its receipts, as listReceipts() answers them.
[[nodiscard]] Rows settlementReceipts(const Session &session, const QString &number,
                                      const QString &search);

} // namespace jxc
