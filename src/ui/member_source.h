#pragma once

#include "ui/form.h"
#include "ui/pick_list.h"

namespace jxc {

/// Members by card number, mobile, name or initials; the field stores the member's key (hy_sn) and
/// shows the name. Where the operator may add members, Ctrl+Ins does.
[[nodiscard]] PickSource memberSource(const FormContext &context);

} // namespace jxc
