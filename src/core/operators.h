#pragma once

#include "base/decimal.h"
#include "core/action.h"

namespace jxc {

class Session;

/// Someone who logs in, as the list shows him.
struct Operator {
    qint64 id = 0;
    QString number;
    QString name;
    QString roleNo;
    QString roleName;
    Decimal roundingLimit; ///< a_zreoje: the most that he may round off
};

/// What the operator dialog edits. The password is the stored one, in plain text: it is for the
/// dialog's two fields only.
struct OperatorInput {
    QString name;
    QString password;
    QString confirmation;
    QString roleNo;
    Decimal roundingLimit;
};

/// The administrator's role sees all operators, another one himself.
[[nodiscard]] std::vector<Operator> listOperators(const Session &session);
/// What stands stored, to fill the dialog with or to paste later; none when it is gone.
[[nodiscard]] std::optional<OperatorInput> readOperator(const Session &session, qint64 id);

// Each of these is a user action. Only the administrator's role gives another role than one's own
// and touches others. Name and password are stored as sanitizeSqlTextLight leaves them, so that a
// password with a dot is kept and never matches at the login: deliberate.

Outcome addOperator(const Session &session, Prompter &prompter, const OperatorInput &input);
/// A new name is written into the warehouses' lists too, and into the session when it is one's own.
Outcome modifyOperator(Session &session, Prompter &prompter, qint64 id, const OperatorInput &input);
/// Adds "复制 " + name with the copied role, password and limit.
Outcome pasteOperator(const Session &session, Prompter &prompter, const OperatorInput &copied);
/// Refuses the first operator, oneself, and one named on a purchase or sales document; asks first.
Outcome deleteOperator(const Session &session, Prompter &prompter, const QString &number);

/// Changes the current operator's password. All three texts are only trimmed, deliberately unlike
/// the login's. Done, the outcome holds the text that says so.
Outcome changePassword(const Session &session, Prompter &prompter, const QString &current,
                       const QString &wanted, const QString &confirmation);

} // namespace jxc
