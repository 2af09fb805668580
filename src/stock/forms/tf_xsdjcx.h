#pragma once

#include "stock/forms/document_lookup.h"

namespace jxc {

/// 销售退货查询: sales and sales returns.
class TF_Xsdjcx : public DocumentLookup {
    Q_OBJECT
public:
    explicit TF_Xsdjcx(const FormContext &context, QWidget *parent = nullptr);
};

} // namespace jxc
