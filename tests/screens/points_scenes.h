#pragma once

#include "screens/photographer.h"
#include "ui/form.h"

namespace jxc::test {

/// Offers of each kind, and an exchange of points that is being entered. Nothing for other forms.
void takePoints(Form &form, Photographer &photographer, const QString &name);

} // namespace jxc::test
