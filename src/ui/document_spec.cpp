#include "ui/document_spec.h"

#include <algorithm>
#include <stdexcept>

namespace jxc {

namespace {

DocumentFormSpec spec(const char16_t *code, const char16_t *formClass,
                      std::vector<HeaderField> header) {
    DocumentFormSpec s;
    s.kind = findDocumentKind(QStringView(code));
    s.formClass = QString::fromUtf16(formClass);
    const bool sale = s.isSale();
    s.partnerWord = sale ? QStringLiteral("客户") : QStringLiteral("供货商");
    s.isReturn = s.code().endsWith(u'T');
    s.followsSource = s.code().endsWith(u'K');
    s.hasMoney = !s.followsSource;
    // Returns turn the direction of the money, not the side of the books.
    s.dueWord = sale ? QStringLiteral("应收") : QStringLiteral("应付");
    s.paidWord = sale ? QStringLiteral("实收") : QStringLiteral("实付");
    s.restWord = sale ? QStringLiteral("未收") : QStringLiteral("未付");
    s.owedWord = sale ? QStringLiteral("余款记入应收帐") : QStringLiteral("余款记入应付帐");
    s.header = {HeaderField::date, HeaderField::partner, HeaderField::warehouse,
                HeaderField::clerk};
    s.header.insert(s.header.end(), header.begin(), header.end());
    s.header.push_back(HeaderField::note);
    return s;
}

std::vector<DocumentFormSpec> makeSpecs() {
    using H = HeaderField;
    std::vector<DocumentFormSpec> all;
    all.push_back(spec(u"CJ", u"TF_Cgjh",
                       {H::supplierNumber, H::invoiceNo, H::invoiced, H::freight, H::packing,
                        H::freightTerms, H::contract}));
    all.back().sourceWord = QStringLiteral("采购订单");
    all.push_back(spec(u"CT", u"TF_Cgth", {}));
    all.back().sourceWord = QStringLiteral("进货单");
    all.push_back(spec(u"RK", u"TF_Cgrk", {}));
    all.back().sourceWord = QStringLiteral("进货单");
    all.push_back(spec(u"XS", u"TF_Spxs",
                       {H::member, H::invoiceNo, H::invoiced, H::freight, H::packing,
                        H::freightTerms, H::reminder, H::contract}));
    all.back().sourceWord = QStringLiteral("销售订单");
    all.push_back(spec(u"XT", u"TF_Xsth", {H::member}));
    all.back().sourceWord = QStringLiteral("销售单");
    all.push_back(spec(u"CK", u"TF_Spck", {}));
    all.back().sourceWord = QStringLiteral("销售单");
    return all;
}

} // namespace

const DocumentFormSpec &documentFormSpec(const QString &code) {
    static const std::vector<DocumentFormSpec> all = makeSpecs();
    const auto found = std::find_if(all.begin(), all.end(),
                                    [&](const DocumentFormSpec &s) { return s.code() == code; });
    if (found == all.end())
        throw std::logic_error("no windows for documents " + code.toStdString());
    return *found;
}

} // namespace jxc
