#pragma once

#include "stock/document_members.h"

namespace jxc {

/// Posts the member of a sale or return: its copy among the receipts, the tenders that are no cash,
/// points, stored value and visits. A receipt of the counter has its copy already.
[[nodiscard]] const DocumentMembers &documentPosting();

} // namespace jxc
