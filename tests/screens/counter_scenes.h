#pragma once

#include "screens/photographer.h"
#include "ui/form.h"

namespace jxc::test {

/// What else there is to see of the counter's reports: the lines behind a row, another ranking,
/// cash being put into the till, its print, a settlement. Nothing for other forms.
void takeCounterReports(Form &form, Photographer &photographer, const QString &name);

} // namespace jxc::test
