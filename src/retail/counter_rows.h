#pragma once

#include "db/value.h"

#include <QString>

namespace jxc {

class Session;

/// Stands for receipts without a member, and for goods without a class.
inline const QString noneAtAll = QStringLiteral("-");

/// Which receipts of the counter a list is about; empty texts narrow nothing.
struct CounterFilter {
    QString from, to; ///< days "yyyy-MM-dd" or moments "yyyy-MM-dd hh:mm:ss", both included
    QString cashier{}, warehouse{}, member{}; ///< name, number, key (or `noneAtAll`)
    QString goods{};                          ///< of lines
    QString goodsClass{};                     ///< of lines: this very class (or `noneAtAll`)
    QString search{};                         ///< what is typed; each list says in what it looks
    QString settlement{};                     ///< number of the day end
    /// Leaves out what the back office sold to members: it carries a day, but no time.
    bool ofTillOnly = false;
};

/// The last moment of a day; a moment stays as it is.
[[nodiscard]] QString endOf(const QString &moment);

/// A part of a statement, with the values of its marks in their order.
struct SqlPart {
    QString text;
    Values values;
};

// The one place that says what counts at the counter: every receipt as it stands (what a member
// brought back to the back office stands among them, negative) and every return of the counter with
// its sign turned. A member's return stands among the receipts too; it counts once. Warehouses that
// the operator may not see are left out.

/// A table to select from: id gl_djh pos_xsrq hy_sn ck_sn a_name pos_rjid; pos_yfje pos_sfje
/// pos_zlje pos_xj pos_czk pos_yhk pos_djq pos_wxje pos_zfbje pos_mlje; pos_bcjf pos_jfye;
/// is_return (1: of the tables of returns), is_back (1: goods came back, wherever it stands).
[[nodiscard]] SqlPart counterReceipts(const Session &session, const CounterFilter &filter);

/// The same line by line: id gl_djh pos_xsrq hy_sn ck_sn a_name g_sn dw_name t_zp t_ph t_yxq pos_dj
/// pos_dzl; pos_sl in the line's unit, pos_zsl in the base unit (both 0 of a discount line, which
/// is an amount alone); pos_zje, pos_zcb (cost); is_return, is_back.
[[nodiscard]] SqlPart counterLines(const Session &session, const CounterFilter &filter);

} // namespace jxc
