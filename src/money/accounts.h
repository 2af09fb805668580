#pragma once

#include "core/action.h"

namespace jxc {

class Session;

/// The kind of the cash row that an account begins with.
inline const QString openingCashKind = QStringLiteral("期初金额");

/// A cash or bank account as it is typed.
struct AccountDraft {
    qint64 id = 0; ///< 0 for a new one
    QString number, type, name, note;
    Decimal opening; ///< of a new one; later through setAccountOpening
};

/// All accounts with what they hold now, by one statement: id yh_sn yh_type yh_name yh_zje yh_note
/// balance.
[[nodiscard]] Rows listAccounts(const Session &session);

/// Adds an account with its opening row, or changes one. Its name may change while nothing but that
/// row stands on it; "现金" stays.
Outcome saveAccount(Session &session, Prompter &prompter, const AccountDraft &draft);
/// Deletes an account that was never used, after asking.
Outcome deleteAccount(Session &session, Prompter &prompter, qint64 id);
/// Sets what an account began with; its balances follow.
Outcome setAccountOpening(Session &session, Prompter &prompter, qint64 id, Decimal opening);

} // namespace jxc
