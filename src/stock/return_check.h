#pragma once

#include "stock/draft_context.h"

namespace jxc {

/// Refuses a return that takes back more than a named document still has to give (other returns of
/// it counted, drafts too), or names none while the parameters demand one.
void checkReturnSources(const DraftContext &context, const std::vector<CompleteLine> &lines);

} // namespace jxc
