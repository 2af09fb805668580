#pragma once

#include "ui/document_list.h"

namespace jxc {

/// 商品入库单: receipts taken in.
class TF_Cgrk : public DocumentList {
    Q_OBJECT
public:
    explicit TF_Cgrk(const FormContext &context, QWidget *parent = nullptr);
};

} // namespace jxc
