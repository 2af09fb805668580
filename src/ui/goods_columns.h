#pragma once

#include "ui/column.h"

namespace jxc {

/// The columns that name a goods, as every list shows them.
[[nodiscard]] inline ColumnSpecs goodsNameColumns() {
    return {text(u"g_sn", u"商品编号", 96),
            text(u"g_name", u"商品名称", 176),
            text(u"g_tym", u"有效成分", 96),
            hidden(text(u"g_yjlx", u"剂型", 72)),
            text(u"gg_name", u"规格", 96),
            text(u"dw_name", u"单位", 56),
            hidden(text(u"g_sccs", u"生产厂商", 120)),
            hidden(text(u"color_name", u"登记证号", 112))};
}

/// A list's own columns after those.
[[nodiscard]] inline ColumnSpecs afterGoodsName(const ColumnSpecs &more) {
    ColumnSpecs columns = goodsNameColumns();
    columns.insert(columns.end(), more.begin(), more.end());
    return columns;
}

} // namespace jxc
