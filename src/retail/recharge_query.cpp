#include "retail/recharge_query.h"

#include "core/session.h"
#include "db/database.h"
#include "db/where.h"
#include "money/list_conditions.h"

namespace jxc {

Rows listRecharges(const Session &session, const RechargeFilter &filter) {
    Where where;
    addPeriod(where, QStringLiteral("x.xf_rq"), filter.from,
              filter.to.isEmpty() ? QString() : filter.to + QStringLiteral(" 23:59:59"));
    where.addEqual(QStringLiteral("x.hy_sn"), filter.member);
    addSearch(where,
              {QStringLiteral("x.gl_djh"), QStringLiteral("m.hy_bh"), QStringLiteral("m.hy_name"),
               QStringLiteral("x.xf_note"), QStringLiteral("x.a_name")},
              filter.search);
    return session.db().rows(
        QStringLiteral("select x.id,x.xf_rq,x.gl_djh,m.hy_bh,m.hy_name,x.xf_je,x.xf_yhje,x.xf_xj,"
                       "x.xf_xyk,x.xf_wxje,x.xf_zfbje,x.xf_djq,x.xf_zlje,x.xf_zt,x.xf_note,"
                       "x.a_name from jxc_hyxf x left join jxc_hyxx m on m.hy_sn=x.hy_sn "
                       "where %1 order by x.xf_rq desc,x.id desc")
            .arg(where.text()),
        where.values());
}

} // namespace jxc
