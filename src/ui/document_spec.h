#pragma once

#include "stock/document_kind.h"

#include <vector>

namespace jxc {

/// A field of a document's header, in the order in which Enter goes through them.
enum class HeaderField {
    date,
    partner,
    warehouse,
    clerk,
    supplierNumber, ///< the supplier's own number
    invoiceNo,
    invoiced,
    freight,
    packing,
    freightTerms,
    member,
    reminder, ///< day on which a sale on account is called in
    contract,
    note
};

/// What the windows of a kind of document need beside its row of constants.
struct DocumentFormSpec {
    const DocumentKind *kind;
    QString formClass;                             ///< "TF_Cgjh"; the editor is "TF_Cgjh_Add"
    QString partnerWord;                           ///< 供货商 or 客户
    QString dueWord, paidWord, restWord, owedWord; ///< 应付 实付 未付 余款记入应付帐
    bool hasMoney = true;
    bool isReturn = false;
    bool followsSource = false; ///< goods-in and goods-out: lines come from receipts and sales
    QString sourceWord;         ///< what F9 brings
    std::vector<HeaderField> header;

    [[nodiscard]] bool isSale() const { return kind->partnerKind == Partner::Kind::customer; }
    [[nodiscard]] const QString &code() const { return kind->code; }
    [[nodiscard]] const QString &title() const { return kind->title; }
};

/// By the code of the kind: CJ, CT, RK, XS, XT, CK. Throws std::logic_error for another.
[[nodiscard]] const DocumentFormSpec &documentFormSpec(const QString &code);

} // namespace jxc
