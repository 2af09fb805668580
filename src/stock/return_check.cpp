#include "stock/return_check.h"

#include "stock/return_book.h"

#include <map>

namespace jxc {

namespace {

ReturnKey keyOf(const CompleteLine &line) {
    return {line.typed.sourceNumber, line.typed.goods, line.unit, line.typed.batch.normalised()};
}

} // namespace

void checkReturnSources(const DraftContext &c, const std::vector<CompleteLine> &lines) {
    const bool needsSource =
        c.isSale ? c.parameters.salesReturnNeedsSource : c.parameters.purchaseReturnNeedsSource;
    ReturnBook book(c.db, returnSide(c.kind.code), c.draft.partner, c.draft.number);
    std::map<ReturnKey, Decimal> here;
    for (size_t i = 0; i < lines.size(); ++i) {
        const DraftLine &line = lines[i].typed;
        const QString opening = QStringLiteral("第%1行：").arg(i + 1);
        // The rest of a receipt that was closed is tied by its line's id, not by its note.
        if (line.sourceNumber.isEmpty()) {
            if (needsSource && line.closedLine == 0)
                throw Refusal(opening + QStringLiteral("必须选择原单！"));
            continue;
        }
        const ReturnKey key = keyOf(lines[i]);
        const Decimal quantity = here[key] += line.quantity;
        if (quantity > book.returnable(key))
            throw Refusal(opening + QStringLiteral("退货数量大于可退数量！"));
    }
}

} // namespace jxc
