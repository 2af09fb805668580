#pragma once

#include "core/action.h"
#include "db/row.h"
#include "retail/till_figures.h"

namespace jxc {

/// A cashier's time at the till, from his last change of shift (jxc_poshb).
struct Shift {
    QString begin, end; ///< "yyyy-MM-dd hh:mm:ss", both included
    TillFigures figures;
    Decimal received; ///< left in the till for him when he began

    /// jb_yjje: the cash that ought to be in the till.
    [[nodiscard]] Decimal cashDue() const { return received + figures.cashDue(); }
    /// The money that came in, recharges included; what members paid from their cards and with
    /// vouchers came in before.
    [[nodiscard]] Decimal takings() const;

    friend bool operator==(const Shift &, const Shift &) = default;
};

/// What the cashier types when he hands over.
struct Handover {
    Decimal handedIn; ///< jb_sjje
    Decimal left;     ///< jb_xfje, stays in the till for who comes next
    QString next;     ///< his name; empty: the till stays the cashier's own
    QString note;

    /// Positive: more cash than there ought to be.
    [[nodiscard]] Decimal difference(const Shift &shift) const {
        return handedIn + left - shift.cashDue();
    }
};

/// The running shift of the operator, up to now. His first one begins with the day. Receipts, till
/// cash and recharges of the till count; documents of the back office do not.
[[nodiscard]] Shift runningShift(const Session &session);

/// Ends the shift that the cashier was shown (交班), after asking: jxc_poshb and jxc_jbgl. Refused
/// without the right to sell, for amounts below zero, and when the figures are no longer those that
/// were shown. `id` is the stored shift's.
Outcome endShift(Session &session, Prompter &prompter, const Shift &shown, const Handover &handover,
                 qint64 *id);

/// A shift that was handed over.
struct EndedShift {
    Shift shift;
    Handover handover;
};
/// Throws Refusal for an unknown one.
[[nodiscard]] EndedShift readShift(const Session &session, qint64 id);

/// The shifts that ended on the days from `from` to `to`, newest first; empty cashier: all. Fields:
/// id jb_begintime jb_endtime a_name jb_nextuser jb_xsje jb_thje jb_xjje jb_czkje jb_yhkje jb_djqje
/// jb_wxje jb_zfbje jb_zlje jb_rkje jb_ckje jb_xjje2 jb_zlje2 jb_yjje jb_sjje jb_xfje jb_note, and
/// difference = paid in + left - due.
[[nodiscard]] Rows listShifts(const Session &session, const QString &from, const QString &to,
                              const QString &cashier);

} // namespace jxc
