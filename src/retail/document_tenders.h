#pragma once

#include "retail/tender_moves.h"

namespace jxc {

struct Document;
struct Member;
class Session;

/// How a sale was paid, or a return paid back: all positive, as the document has them.
struct DocumentTenders {
    Decimal paid; ///< in all
    OtherTenders other;
    int method = 0; ///< pos_zffs

    /// What is left was cash, or went through the document's account.
    [[nodiscard]] Decimal rest() const { return paid - other.sum(); }
};

[[nodiscard]] DocumentTenders tendersOf(const Document &document);

/// Holds them against the rules and, of a sale, against what the member has on his card. Throws
/// Refusal.
void checkDocumentTenders(const Session &session, const Member &member,
                          const DocumentTenders &tenders, bool isReturn);

} // namespace jxc
