#include "stock/line_prices.h"

#include "stock/document_kind.h"

namespace jxc {

Decimal perBaseUnit(Decimal amount, Decimal quantity) {
    return (amount / quantity).rounded(6);
}

Decimal basePrice(Decimal price, Decimal quantity, Decimal baseQuantity) {
    if (quantity == baseQuantity)
        return price;
    return (price * quantity / baseQuantity).rounded(6);
}

DocumentMoney moneyOf(const Document &d) {
    DocumentMoney m;
    m.partner = d.partner;
    m.partnerName = d.partnerName.value_or(QString());
    m.number = d.number;
    m.date = d.date;
    m.note = d.note();
    m.kindCode = d.kind.code;
    m.kindText = d.kind.title;
    m.feeDocument = d.kind.feeDocument;
    m.clerkNo = d.clerkNo;
    m.clerkName = d.clerkName;
    m.warehouseName = d.warehouseName.value_or(QString());
    m.operatorName = d.header.text(u"a_name");
    return m;
}

QString accountOf(const QString &account) {
    return account.isEmpty() ? QStringLiteral("现金") : account;
}

} // namespace jxc
