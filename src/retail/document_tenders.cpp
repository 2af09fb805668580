#include "retail/document_tenders.h"

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

} // namespace jxc
