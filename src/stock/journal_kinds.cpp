#include "stock/journal_kinds.h"

#include <array>
#include <stdexcept>

namespace jxc {

namespace {

using enum StockRule;
using enum CostRule;

// Returns are kept with a negative quantity and go through the ordinary rule: an xt row of -5
// raises the stock by 5, a ct row of -5 lowers it by 5.
constexpr std::array<JournalKind, 25> kinds = {{
    {u"cj", add, always},       // purchase receipt
    {u"ct", add, always},       // purchase return
    {u"xs", subtract, never},   // sale
    {u"xt", subtract, never},   // sales return
    {u"db", add, whenIncoming}, // transfer: an out row and an in row
    {u"bs", add, never},        // loss
    {u"by", add, never},        // overflow
    {u"pd", add, always},       // stocktaking: counted minus book
    {u"cf", add, whenIncoming}, // split: the parent out, the parts in
    {u"kb", add, always},       // bundle
    {u"qc", add, always},       // opening stock
    {u"jh", subtract, never},   // lent to a customer
    {u"hh", add, never},        // back from a loan, or sold out of it
    {u"dh", subtract, never},   // gifts for points
    {u"jg", add, always},       // processing
    {u"sc", add, always},       // production
    {u"st", add, always},       // production return
    {u"ws", add, always},       // outsourced processing
    {u"bh", add, whenIncoming}, // older makes only
    {u"pl", add, never},        // material for processing
    {u"bf", add, never},        // scrapped
    {u"wp", add, never},        // material given out
    {u"wt", add, never},        // outsourcing adjusted
    {u"lt", subtract, never},   // department returns
    {u"ly", subtract, never},   // department takes
}};

} // namespace

const JournalKind &journalKind(QStringView flag) {
    for (const JournalKind &kind : kinds)
        if (kind.flag == flag)
            return kind;
    throw std::logic_error("unknown kind of journal row: " + flag.toString().toStdString());
}

} // namespace jxc
