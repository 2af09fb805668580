#pragma once

#include "stock/forms/source_document_list.h"

namespace jxc {

/// 商品出库单: sales issued.
class TF_Spck : public SourceDocumentList {
    Q_OBJECT
public:
    explicit TF_Spck(const FormContext &context, QWidget *parent = nullptr);
};

} // namespace jxc
