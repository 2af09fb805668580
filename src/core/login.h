#pragma once

#include <QStringList>
#include <functional>

namespace jxc {

class Session;

/// Who may log in, in the order in which they were added.
[[nodiscard]] QStringList operatorNames(const Session &session);
/// Whether an operator's stored password is empty, so that the dialog can say so.
[[nodiscard]] bool hasEmptyPassword(const Session &session, const QString &operatorName);

/// Checks name and password and, when they match, sets the session's login values. The password is
/// trimmed and goes through sanitizeSqlText, so a stored one with ".", "(", ")", "+", "-" or "/"
/// can never match: deliberate. Nothing is written.
[[nodiscard]] bool authenticate(Session &session, const QString &operatorName,
                                const QString &password);

} // namespace jxc
