#pragma once

#include "ui/document_list.h"

namespace jxc {

/// 商品销售单: goods sold to customers.
class TF_Spxs : public DocumentList {
    Q_OBJECT
public:
    explicit TF_Spxs(const FormContext &context, QWidget *parent = nullptr);

public Q_SLOTS:
    /// 重取成本: the costs of a draft that has lain for a while are taken anew.
    void btnCostClick();
    void btnWalletClick();
};

} // namespace jxc
