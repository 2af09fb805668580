#pragma once

#include "ui/document_spec.h"

namespace jxc {

/// What stands before a field of a document's header; fields are named and remembered by it.
[[nodiscard]] QString captionOf(HeaderField field, const DocumentFormSpec &spec);
/// What fits into the column behind a text field.
[[nodiscard]] int lengthOf(HeaderField field, const DocumentFormSpec &spec);
/// Fields of work that is still to come stand there disabled.
[[nodiscard]] bool isForLater(HeaderField field);

} // namespace jxc
