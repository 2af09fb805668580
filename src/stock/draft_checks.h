#pragma once

#include "stock/draft_context.h"

namespace jxc {

// What is looked at before a draft is saved, in this order; the first that is wrong is said.

/// The rights, and that a stored draft is still the one that was loaded.
void checkMaySave(const DraftContext &context);
/// Date, partner, warehouse, clerk and what the kind demands of the header.
void checkHeader(const DraftContext &context);
/// That there are lines, each of them by itself, and that no goods repeats where it must not.
void checkTypedLines(const DraftContext &context);
/// Sources of returns, buyers of restricted goods and expired batches.
void checkCompleteLines(const DraftContext &context, const std::vector<CompleteLine> &lines);

/// The settlement columns of a document, from its due and what is typed.
struct Settlement {
    Decimal due, paid, forgiven;
    bool owing = false;
};
/// Refuses a payment that does not fit.
[[nodiscard]] Settlement settle(const DraftContext &context, Decimal due);

/// All that is asked, once nothing is refused any more.
void askQuestions(const DraftContext &context, Answers &answers,
                  const std::vector<CompleteLine> &lines, const Settlement &settlement);

} // namespace jxc
