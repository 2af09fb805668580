#pragma once

#include "core/action.h"
#include "core/approval_query.h"
#include "money/open_items.h"

namespace jxc {

class Session;

/// A receipt, payment or entry as it is typed.
struct SettlementDraft {
    QString code; ///< SK, FK, YS or YF
    QString date, partner, clerk;
    Decimal amount;     ///< received or paid; of YS and YF what becomes owed, negative lowers it
    Decimal discount{}; ///< granted on settlement (SK, FK): lowers the balance, not the cash
    QString account = QStringLiteral("现金");
    QString note{};
    QString number{};                ///< empty until it is saved for the first time
    std::vector<Allocation> parts{}; ///< of SK and FK: what it pays, in the items' signs
    QString stored{};                ///< how it stood when it was loaded
    bool approved = false;
};

/// The document as it is stored; nothing when there is none.
[[nodiscard]] std::optional<SettlementDraft> loadSettlement(const Session &session,
                                                            const QString &number);

/// Checks and stores the document unapproved; the number is drawn in the same transaction.
/// Refused when it was changed elsewhere since it was loaded.
Outcome saveSettlement(Session &session, Prompter &prompter, const SettlementDraft &draft,
                       QString *number);

/// Deletes a draft, after asking.
Outcome deleteSettlement(Session &session, Prompter &prompter, const QString &number);

/// The documents of a kind, newest first, by one statement: id number rq partner partner_name
/// amount k_yhje k_fkfs u_name k_note a_name k_checker k_chkrq.
[[nodiscard]] Rows listSettlements(const Session &session, const QString &code,
                                   const ApprovalQuery &query);

/// What a document pays: number part.
[[nodiscard]] Rows settlementParts(const Session &session, const QString &number);

} // namespace jxc
