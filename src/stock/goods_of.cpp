#include "stock/goods_of.h"

#include "stock/document_kind.h"

namespace jxc {

GoodsOf::GoodsOf(const DocumentKind &kind, const QString &number)
    : values{number} {
    QString goods =
        QStringLiteral("select g_sn from %1 where %2=?").arg(kind.lineTable, kind.numberColumn);
    if (kind.headerHasGoods) {
        goods += QStringLiteral(" union select g_sn from %1 where %2=?")
                     .arg(kind.headerTable, kind.numberColumn);
        values.emplace_back(number);
    }
    set = QStringLiteral("(with named as materialized (%1) select g_sn from named)").arg(goods);
}

Values GoodsOf::after(Values first) const {
    first.insert(first.end(), values.begin(), values.end());
    return first;
}

} // namespace jxc
