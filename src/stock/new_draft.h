#pragma once

#include "stock/draft.h"

namespace jxc {

/// A new document of today with the usual partner, warehouse and clerk: those marked as default.
[[nodiscard]] Draft newDraft(const Session &session, const QString &code);

} // namespace jxc
