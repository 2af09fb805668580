#pragma once

#include "db/where.h"
#include "stock/document_query.h"
#include "stock/document_sources.h"

namespace jxc {

/// The conditions on a kind's header (called `h`) that a filter means, and those that the
/// operator's warehouses mean. The kinds and the partner's type are not among them.
[[nodiscard]] Where documentConditions(const Session &session, const DocumentSource &source,
                                       const DocumentQuery &filter);

} // namespace jxc
