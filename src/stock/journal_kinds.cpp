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
    {u"cj", add, always, u"采购进货"},
    {u"ct", add, always, u"采购退货"},
    {u"xs", subtract, never, u"商品销售"},
    {u"xt", subtract, never, u"顾客退货"},
    {u"db", add, whenIncoming, u"库存调拨"}, // transfer: an out row and an in row
    {u"bs", add, never, u"商品报损"},
    {u"by", add, never, u"商品报溢"},
    {u"pd", add, always, u"库存盘点"},       // stocktaking: counted minus book
    {u"cf", add, whenIncoming, u"商品拆分"}, // split: the parent out, the parts in
    {u"kb", add, always, u"商品捆绑"},
    {u"qc", add, always, u"期初建账"},
    {u"jh", subtract, never, u"客户借货"},
    {u"hh", add, never, u"客户还货"}, // back from a loan, or sold out of it
    {u"dh", subtract, never, u"积分兑换"},
    {u"jg", add, always, u"加工入库"},
    {u"sc", add, always, u"生产入库"},
    {u"st", add, always, u"生产退库"},
    {u"ws", add, always, u"委外收货"},
    {u"bh", add, whenIncoming, u"补货"}, // older makes only
    {u"pl", add, never, u"加工领料"},
    {u"bf", add, never, u"报废"},
    {u"wp", add, never, u"委外发料"},
    {u"wt", add, never, u"委外调整"},
    {u"lt", subtract, never, u"部门退库"},
    {u"ly", subtract, never, u"部门领用"},
}};

} // namespace

std::span<const JournalKind> journalKinds() {
    return kinds;
}

const JournalKind &journalKind(QStringView flag) {
    for (const JournalKind &kind : kinds)
        if (kind.flag == flag)
            return kind;
    throw std::logic_error("unknown kind of journal row: " + flag.toString().toStdString());
}

} // namespace jxc
