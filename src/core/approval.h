#pragma once

#include "core/action.h"

namespace jxc {

class Session;

// What the approval and cancelling of every kind of document say alike.

[[nodiscard]] Refusal unknownDocument(const QString &number);
/// What a second approver is told.
[[nodiscard]] Refusal changedMeanwhile();
[[nodiscard]] Refusal notApproved(const QString &number);

/// An approval may be taken back by the administrator, by its approver, and by whoever holds the
/// cancelling right of the kind. Throws Refusal for anyone else.
void checkMayCancel(const Session &session, const QString &number, const QString &approver,
                    bool holdsRight);
/// Asks before an approval is taken back; No ends the action. `warning` stands behind the question.
void confirmCancelling(Answers &answers, const QString &number, const QString &warning = {});

} // namespace jxc
