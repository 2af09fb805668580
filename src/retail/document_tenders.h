#pragma once

#include "retail/tender_moves.h"

namespace jxc {

struct Document;

/// How a sale was paid, or a return paid back: all positive, as the document has them.
struct DocumentTenders {
    Decimal paid; ///< in all
    OtherTenders other;
    int method = 0; ///< pos_zffs

    /// What is left was cash, or went through the document's account.
    [[nodiscard]] Decimal rest() const { return paid - other.sum(); }
};

[[nodiscard]] DocumentTenders tendersOf(const Document &document);

} // namespace jxc
