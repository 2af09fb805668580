#pragma once

#include "stock/forms/source_document_list.h"

namespace jxc {

/// 商品入库单: receipts taken in.
class TF_Cgrk : public SourceDocumentList {
    Q_OBJECT
public:
    explicit TF_Cgrk(const FormContext &context, QWidget *parent = nullptr);
};

} // namespace jxc
