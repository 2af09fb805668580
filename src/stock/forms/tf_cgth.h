#pragma once

#include "ui/document_list.h"

namespace jxc {

/// 采购退货单: goods given back to suppliers.
class TF_Cgth : public DocumentList {
    Q_OBJECT
public:
    explicit TF_Cgth(const FormContext &context, QWidget *parent = nullptr);
};

} // namespace jxc
