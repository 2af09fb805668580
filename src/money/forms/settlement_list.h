#pragma once

#include "ui/approval_list.h"

namespace jxc {

/// The list of a kind of settlement document: SK, FK, YS or YF.
[[nodiscard]] ApprovalSpec settlementSpec(QStringView code);

} // namespace jxc
