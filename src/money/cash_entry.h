#pragma once

#include "core/action.h"

namespace jxc {

class Session;

/// Money that is put into an account (XC), taken out (XJ) or moved to another one (XZ), as it is
/// typed. It counts in the balances once it is approved.
struct CashDraft {
    QString code; ///< XC, XJ or XZ
    QString date;
    QString account; ///< of XZ: where the money goes out
    QString target;  ///< of XZ: where it comes in
    Decimal amount;  ///< positive
    QString clerk;   ///< the employee's name, as the journal keeps it
    QString note;
    QString number{}; ///< empty until it is saved for the first time
    QString stored{}; ///< how it stood when it was loaded
    bool approved = false;
};

/// "存款", "取款" or "转账": the title of an entry, and the kind its rows bear.
[[nodiscard]] QString cashEntryTitle(QStringView code);
/// Whether a row of the journal was typed here; others belong to a document.
[[nodiscard]] bool isTypedCash(const QString &number, const QString &kind);

[[nodiscard]] std::optional<CashDraft> loadCashEntry(const Session &session, const QString &number);
Outcome saveCashEntry(Session &session, Prompter &prompter, const CashDraft &draft,
                      QString *number);
Outcome deleteCashEntry(Session &session, Prompter &prompter, const QString &number);
/// Lets the entry count. While cs_xjyh forbids it, an account may not be overdrawn.
Outcome approveCashEntry(Session &session, Prompter &prompter, const QString &number);
Outcome cancelCashEntry(Session &session, Prompter &prompter, const QString &number);

/// What the journal shows; empty texts narrow nothing.
struct CashQuery {
    QString account{};
    QString from{}, to{}; ///< "yyyy-MM-dd", both included
    QString search{};     ///< part of number, partner or note
};

/// The journal in its order, by one statement: id xj_rq number xj_dlx xj_kmmc income expense
/// xj_ljje ghs_name ck_name u_name xj_note a_name xj_chk. Rows that are not approved have xj_chk
/// "0".
[[nodiscard]] Rows listCash(const Session &session, const CashQuery &query);
/// What the account, or all of them, held before a day.
[[nodiscard]] Decimal cashBefore(const Session &session, const QString &account,
                                 const QString &date);

} // namespace jxc
