#pragma once

#include "core/action.h"

namespace jxc {

class Session;

// Slips of paper: each operator has one of his own under his number, and other names are shared.

[[nodiscard]] QString readNote(const Session &session, const QString &flag);
Outcome saveNote(const Session &session, Prompter &prompter, const QString &flag,
                 const QString &text);

} // namespace jxc
