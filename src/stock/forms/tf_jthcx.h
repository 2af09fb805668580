#pragma once

#include "stock/forms/document_lookup.h"

namespace jxc {

/// 进退货查询: receipts and purchase returns.
class TF_Jthcx : public DocumentLookup {
    Q_OBJECT
public:
    explicit TF_Jthcx(const FormContext &context, QWidget *parent = nullptr);
};

} // namespace jxc
