#pragma once

#include "stock/forms/document_lookup.h"

namespace jxc {

/// 单据查询: documents of every kind, drafts among them.
class TF_Djcx : public DocumentLookup {
    Q_OBJECT
public:
    explicit TF_Djcx(const FormContext &context, QWidget *parent = nullptr);
};

} // namespace jxc
