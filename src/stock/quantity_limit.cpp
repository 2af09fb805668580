#include "stock/quantity_limit.h"

#include "core/action.h"
#include "core/session.h"
#include "db/database.h"
#include "stock/document.h"
#include "stock/document_kind.h"
#include "stock/goods_of.h"

#include <map>

namespace jxc {

void checkQuantityLimit(Session &session, const Document &d) {
    std::map<QString, Decimal> sold;
    for (const Row &line : d.lines)
        sold[line.text(u"g_sn")] += line.decimal(d.kind.quantityColumn);
    const GoodsOf named(d.kind, d.number);
    for (const Row &goods :
         session.db().rows(QStringLiteral("select g_sn,g_name,g_xzsl from jxc_goods where "
                                          "g_xzsl>0 and g_sn in %1 order by g_sn")
                               .arg(named.set),
                           named.values)) {
        const Decimal limit = goods.decimal(u"g_xzsl");
        if (sold[goods.text(u"g_sn")] <= limit)
            continue;
        const QString sentence =
            QStringLiteral("%1 每次最多销售数量为%2").arg(goods.text(u"g_name"), limit.toText());
        throw Refusal(QStringLiteral("其中的药品“%1”，\r\n\r\n不能超过这个数量！").arg(sentence));
    }
}

} // namespace jxc
