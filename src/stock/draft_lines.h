#pragma once

#include "stock/draft_context.h"

namespace jxc {

/// Completes the lines by their goods, units, sources and costs, and reckons their amounts. Throws
/// Refusal for a goods that does not exist or a typed cost without the right.
[[nodiscard]] std::vector<CompleteLine> completeLines(const DraftContext &context);

/// The row of a line, for the kind's line table.
[[nodiscard]] Assignments lineRow(const DraftContext &context, const CompleteLine &line);

} // namespace jxc
