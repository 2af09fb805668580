#include "stock/document_kind.h"

#include "stock/kinds.h"

namespace jxc {

const std::vector<DocumentKind> &documentKinds() {
    static const std::vector<DocumentKind> kinds = {purchaseReceiptKind(), purchaseReturnKind(),
                                                    goodsInKind(),         saleKind(),
                                                    salesReturnKind(),     goodsOutKind()};
    return kinds;
}

const DocumentKind *findDocumentKind(QStringView number) {
    for (const DocumentKind &kind : documentKinds())
        if (number.left(2) == kind.code)
            return &kind;
    return nullptr;
}

} // namespace jxc
