#include "core/visible_warehouses.h"

#include "core/rights.h"
#include "core/session.h"
#include "db/where.h"

namespace jxc {

void addWarehouseRestriction(const Session &session, Where &where, const QString &column) {
    if (!isWarehouseRestricted(session))
        return;
    // A number inside a longer one matches too, as everywhere in these lists.
    where.add(column + QStringLiteral(" in (select ck_sn from jxc_ckxx where ck_asn like ?)"),
              {QString(u'%' + session.currentOperatorNo + u'%')});
}

} // namespace jxc
