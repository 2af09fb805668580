#pragma once

#include "core/action.h"
#include "db/value.h"

namespace jxc {

class Session;

// What is checked alike when money is entered by hand: settlements, cash, fees, invoices.

/// Refuses an empty field: caption + "必须填写！".
void demandFilled(bool filled, const QString &caption);
/// The date must be one, not lie ahead, and be today unless the operator may choose it. A date that
/// stands in the stored draft may stay.
void checkEntryDate(const Session &session, const QString &date, const QString &stored,
                    bool mayChoose);
/// Refuses an empty account and one that is not in the list of accounts.
void checkAccount(const Session &session, const QString &account, const QString &caption);
/// Refuses an empty clerk and one that does not exist.
void checkClerk(const Session &session, const QString &clerk);

/// How a stored row reads now, to see later whether another workstation changed it.
[[nodiscard]] QString fingerprint(Database &db, const QString &table, const QString &column,
                                  const QString &number);

/// Deletes a draft by its number after asking, and what hangs on it. `approved` is its state now.
void confirmDeleting(Answers &answers, const QString &number, bool approved);

} // namespace jxc
