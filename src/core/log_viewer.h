#pragma once

#include "core/action.h"

namespace jxc {

class Session;

struct LogEntry {
    qint64 id = 0;
    QString time; ///< "yyyy-MM-dd hh:mm:ss"
    QString operatorName;
    QString note;
};

/// The entries of whole days ("yyyy-MM-dd", both included) whose note or operator contains the
/// text, newest first.
[[nodiscard]] std::vector<LogEntry> searchLog(const Session &session, const QString &from,
                                              const QString &to, const QString &text);

/// Whether the current operator sees the button that clears the log.
[[nodiscard]] bool mayClearLog(const Session &session);

/// Deletes every entry, not only those shown, after asking. Without entries nothing happens; the
/// viewer does not offer it while its list is empty.
Outcome clearLog(const Session &session, Prompter &prompter);

} // namespace jxc
