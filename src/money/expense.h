#pragma once

#include "core/action.h"
#include "core/approval_query.h"

namespace jxc {

class Session;

/// An expense (FY) or other income (SR) as it is typed; its type says which.
struct ExpenseDraft {
    QString date, type; ///< fy_lx, a type of jxc_fylx
    Decimal amount;     ///< positive
    QString account = QStringLiteral("现金");
    QString clerk{};      ///< number of the employee
    QString department{}; ///< de_sn, may be empty
    QString note{};
    QString number{}; ///< empty until it is saved for the first time
    QString stored{}; ///< how it stood when it was loaded
    bool approved = false;
};

[[nodiscard]] std::optional<ExpenseDraft> loadExpense(const Session &session,
                                                      const QString &number);
/// A type of the other direction gives the draft a new number.
Outcome saveExpense(Session &session, Prompter &prompter, const ExpenseDraft &draft,
                    QString *number);
Outcome deleteExpense(Session &session, Prompter &prompter, const QString &number);
/// Books the money on its account: an expense takes it out, an income puts it in.
Outcome approveExpense(Session &session, Prompter &prompter, const QString &number);
Outcome cancelExpense(Session &session, Prompter &prompter, const QString &number);

/// Expenses and income, newest first, by one statement: id rq number direction (费用, 收入) fy_lx
/// amount fy_kmmc u_name de_name fy_note a_name. Fees that a document brought have no number.
[[nodiscard]] Rows listExpenses(const Session &session, const ApprovalQuery &query);
/// The same summed by type: direction fy_lx count amount.
[[nodiscard]] Rows expenseTotals(const Rows &expenses);

} // namespace jxc
