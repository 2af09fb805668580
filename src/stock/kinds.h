#pragma once

#include "stock/document_kind.h"

namespace jxc {

// One file per kind: its row of constants and its two functions.

[[nodiscard]] DocumentKind purchaseReceiptKind(); ///< CJ 采购进货单
[[nodiscard]] DocumentKind purchaseReturnKind();  ///< CT 采购退货单
[[nodiscard]] DocumentKind goodsInKind();         ///< RK 商品入库单
[[nodiscard]] DocumentKind saleKind();            ///< XS 商品销售单
[[nodiscard]] DocumentKind salesReturnKind();     ///< XT 顾客退货单
[[nodiscard]] DocumentKind goodsOutKind();        ///< CK 商品出库单

} // namespace jxc
