#include "retail/tender.h"

#include "core/action.h"

#include <array>

namespace jxc {

namespace {

/// In the order of pos_zffs.
std::array<Decimal, 6> partsOf(const Tender &t) {
    return {t.cash,          t.other.bankCard, t.other.storedValue,
            t.other.voucher, t.other.weChat,   t.other.aliPay};
}

void checkAmounts(const CounterSettings &settings, const Tender &tender, Decimal total) {
    for (const Decimal &part : partsOf(tender))
        if (part.isNegative())
            throw Refusal(QStringLiteral("付款金额不能小于零！"));
    if (tender.discount.isNegative() || tender.rounding.isNegative())
        throw Refusal(QStringLiteral("优惠和抹零金额不能小于零！"));
    if (settings.mostRounding.isPositive() && tender.rounding > settings.mostRounding)
        throw Refusal(QStringLiteral("抹零金额不能大于%1元！").arg(settings.mostRounding.toText()));
    if (tender.discount + tender.rounding > total)
        throw Refusal(QStringLiteral("优惠后的金额不能小于零！"));
}

} // namespace

int tenderMethod(const Tender &tender) {
    const auto parts = partsOf(tender);
    int method = 0, used = 0;
    for (size_t i = 0; i < parts.size(); ++i) {
        if (parts[i].isZero())
            continue;
        method = static_cast<int>(i);
        ++used;
    }
    return used > 1 ? 6 : method;
}

Decimal dueOf(const CounterSettings &settings, Decimal total, const Tender &tender) {
    return (total - tender.discount - tender.rounding).rounded(settings.dueDecimals);
}

TenderOutcome checkTender(const CounterSettings &settings, const Receipt &receipt,
                          const Tender &tender) {
    TenderOutcome o;
    o.total = receipt.total(settings.amountDecimals);
    if (settings.memberRequired && receipt.member.isEmpty())
        throw Refusal(QStringLiteral("请先刷会员卡！"));
    checkAmounts(settings, tender, o.total);
    o.due = dueOf(settings, o.total, tender);
    o.rounding = o.total - tender.discount - o.due;
    o.tendered = tender.sum();
    o.method = tenderMethod(tender);
    if (tender.other.storedValue.isPositive()) {
        if (receipt.member.isEmpty())
            throw Refusal(QStringLiteral("请先刷会员卡！"));
        if (tender.other.storedValue > tender.memberBalance)
            throw Refusal(QStringLiteral("储值卡余额不足！"));
    }
    if (o.tendered < o.due) {
        if (receipt.customer == walkInCustomer)
            throw Refusal(QStringLiteral("付款金额不足！"));
        o.owing = true;
        return o;
    }
    o.change = o.tendered - o.due;
    if (o.change > tender.cash)
        throw Refusal(QStringLiteral("找零金额不能大于现金金额！"));
    return o;
}

} // namespace jxc
