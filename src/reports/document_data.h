#pragma once

#include "reports/print_data.h"

namespace jxc {

/// Reads what the printed form of a document shows: one statement for its head, one for its lines.
/// Throws Refusal when there is no such document.
///
/// Head and lines carry the columns of their tables by name, the goods' own beside the lines'. For
/// every kind alike the head also has: title, number, date, note, checker, checked; partner,
/// partner_lxr, partner_tele, partner_address; ck_name, u_name, hy_name, hy_bh; due, off, paid,
/// settled (later), rest; before and after (what the partner owes, or is owed, around the
/// document); and buyers of restricted goods. Lines have no and discount (empty for none). Buyers'
/// identity numbers are masked. Purchase prices and a sale's cost are left out for an operator who
/// may not see cost prices.
[[nodiscard]] PrintData documentData(const Session &session, const QString &number);

/// An identity number as slips show it: "330102********1234". Shorter ones keep only their end.
[[nodiscard]] QString maskedIdentity(const QString &number);

} // namespace jxc
