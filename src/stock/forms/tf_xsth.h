#pragma once

#include "ui/document_list.h"

namespace jxc {

/// 顾客退货单: goods that customers bring back.
class TF_Xsth : public DocumentList {
    Q_OBJECT
public:
    explicit TF_Xsth(const FormContext &context, QWidget *parent = nullptr);
};

} // namespace jxc
