#include "retail/document_tenders.h"

#include "core/action.h"
#include "retail/member_card.h"
#include "stock/document.h"
#include "stock/document_kind.h"

namespace jxc {

DocumentTenders tendersOf(const Document &d) {
    const Row &h = d.header;
    DocumentTenders t;
    t.paid = h.decimal(d.kind.prefix + QStringLiteral("_sfje"));
    t.other.bankCard = h.decimal(u"pos_yhk");
    t.other.storedValue = h.decimal(u"pos_czk");
    t.other.voucher = h.decimal(u"pos_djq");
    t.method = static_cast<int>(h.integer(u"pos_zffs"));
    return t;
}

void checkDocumentTenders(const Session &session, const Member &member, const DocumentTenders &t,
                          bool isReturn) {
    for (const Decimal &amount : {t.other.bankCard, t.other.storedValue, t.other.voucher})
        if (amount.isNegative())
            throw Refusal(QStringLiteral("付款金额不能小于零！"));
    if (t.rest().isNegative() && !t.other.sum().isZero())
        throw Refusal(QStringLiteral("储值卡、银行卡和代金券的金额之和不能大于实付金额！"));
    if (t.other.storedValue.isZero() || isReturn)
        return;
    memberUsable(session, member);
    if (t.other.storedValue > member.value)
        throw Refusal(QStringLiteral("储值卡余额不足！"));
}

} // namespace jxc
