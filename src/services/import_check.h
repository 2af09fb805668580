#pragma once

#include "master/master_kind.h"
#include "services/import.h"

namespace jxc {

/// Every filled row below the header with its fate. Throws Refusal while the name has no column.
[[nodiscard]] std::vector<ImportRow> checkedRows(const Session &session,
                                                 const ImportRequest &request);

/// The field of the kind that a field of the catalogue fills; "kt_name" fills the customer's type.
[[nodiscard]] const MasterField &importedField(const MasterKind &kind, const QString &id);

} // namespace jxc
