#pragma once

#include "ui/document_list.h"

namespace jxc {

/// 采购进货单: goods bought from suppliers.
class TF_Cgjh : public DocumentList {
    Q_OBJECT
public:
    explicit TF_Cgjh(const FormContext &context, QWidget *parent = nullptr);
};

} // namespace jxc
