#pragma once

#include "app/form_registry.h"
#include "screens/photographer.h"

namespace jxc::test {

/// The splash, the login, and the main window with each of its groups.
void takeShell(FormRegistry &registry, Photographer &photographer);
/// A form as it opens; of documents also one to read.
void takeForm(FormRegistry &registry, Photographer &photographer, const QString &name);
/// Documents as a clerk leaves them in the middle of typing.
void takeTyping(FormRegistry &registry, Photographer &photographer);

} // namespace jxc::test
