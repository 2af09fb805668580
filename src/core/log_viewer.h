#pragma once

#include "core/action.h"
#include "db/row.h"

namespace jxc {

class Session;

/// The entries of whole days ("yyyy-MM-dd", both included) whose note or operator contains the
/// text, newest first: id, log_time, a_name, log_note.
[[nodiscard]] Rows searchLog(const Session &session, const QString &from, const QString &to,
                             const QString &text);

/// Whether the current operator sees the button that clears the log.
[[nodiscard]] bool mayClearLog(const Session &session);

/// Deletes every entry, not only those shown, after asking. Without entries nothing happens; the
/// viewer does not offer it while its list is empty.
Outcome clearLog(const Session &session, Prompter &prompter);

} // namespace jxc
