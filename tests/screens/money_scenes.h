#pragma once

#include "screens/photographer.h"
#include "ui/form.h"

namespace jxc::test {

/// What else there is to see of a form of the money desk: its other tabs, the editors it opens, the
/// statement that is handed out. Nothing for other forms.
void takeMoney(Form &form, Photographer &photographer, const QString &name);

} // namespace jxc::test
