#include "money/settlement_kind.h"

namespace jxc {

const std::array<SettlementKind, 4> &settlementKinds() {
    static constexpr std::array<SettlementKind, 4> kinds = {{
        {u"SK", u"收款单", u"审核收款，客户：", Partner::Kind::customer, 8, 1, u"k_sfje"},
        {u"FK", u"付款单", u"审核付款，供货商：", Partner::Kind::supplier, 10, -1, u"k_sfje"},
        {u"YS", u"应收登记", u"审核应收登记，客户：", Partner::Kind::customer, 7, 0, u"k_yfje"},
        {u"YF", u"应付登记", u"审核应付登记，供货商：", Partner::Kind::supplier, 9, 0, u"k_yfje"},
    }};
    return kinds;
}

const SettlementKind *findSettlementKind(QStringView number) {
    for (const SettlementKind &kind : settlementKinds())
        if (number.left(2) == kind.code)
            return &kind;
    return nullptr;
}

} // namespace jxc
