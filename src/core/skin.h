#pragma once

#include "core/action.h"

namespace jxc {

class Session;

// The look that an operator has chosen, by the name of its shade ("浅色", "深色"). A name of an
// older release, which no shade bears, stands until he chooses one.

/// The first row's, which the program wears until somebody is in.
[[nodiscard]] QString firstSkin(Database &db);
/// The current operator's; the first row's while he has chosen none.
[[nodiscard]] QString skinOf(const Session &session);
Outcome saveSkin(const Session &session, Prompter &prompter, const QString &name);

} // namespace jxc
