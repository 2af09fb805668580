#pragma once

#include "base/decimal.h"

#include <QString>

namespace jxc {

class Database;
struct Parameters;

/// A movement of money on an account (the cash account "现金" or a bank account). Money in is
/// positive, money out negative.
struct CashEntry {
    QString account; ///< xj_kmmc
    QString date;
    QString number; ///< gl_djh, empty for rows that a note ties to their document
    QString kind;   ///< xj_dlx
    Decimal amount;
    QString partnerNo, partnerName; ///< customers too
    QString clerkName, warehouseName, note, operatorName;
};

/// While the parameters forbid it (cs_xjyh), refuses a payment (negative amount) that the account
/// cannot bear.
void refuseShortAccount(Database &db, const Parameters &parameters, const QString &account,
                        Decimal amount);

/// Appends an approved row and brings the account's balances up to date from its date on.
void addCashEntry(Database &db, const CashEntry &entry);

/// The balance after the account's last approved row; 0 without any.
[[nodiscard]] Decimal AccountBalance(Database &db, const QString &account);
/// Rebuilds the running balances of the account's approved rows from this day on. Other accounts
/// and rows that are not approved keep what they have.
void RecomputeAccountBalance(Database &db, const QString &account, const QString &fromDate);

/// Deletes the rows of a document: those with its number, and the fee payments whose note is one of
/// these, exactly. Never a row that a clerk typed. Every account that lost a row is recomputed.
void removeCashEntries(Database &db, const QString &number, const QStringList &feeNotes);

} // namespace jxc
