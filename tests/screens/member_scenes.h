#pragma once

#include "screens/photographer.h"
#include "ui/form.h"

namespace jxc::test {

/// The members' forms with what opens over them; nothing for others.
void takeMembers(Form &form, Photographer &photographer);

} // namespace jxc::test
