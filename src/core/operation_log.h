#pragma once

#include <QString>

namespace jxc {

class Session;

/// Appends a line to the operation log in the name of the current operator. A note longer than its
/// column is cut: the log must never stop an action.
void writeLog(Session &session, const QString &note);

} // namespace jxc
