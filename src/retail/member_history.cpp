#include "retail/member_history.h"

#include "core/session.h"
#include "core/visible_warehouses.h"
#include "db/database.h"
#include "db/where.h"

namespace jxc {

namespace {

QString endOf(const QString &day) {
    return day + QStringLiteral(" 23:59:59");
}

} // namespace

Rows memberGoods(const Session &session, const QString &member, const QString &from,
                 const QString &to) {
    Where where;
    where.add(QStringLiteral("d.hy_sn=?"), {member});
    where.add(QStringLiteral("d.pos_xsrq>=? and d.pos_xsrq<=?"), {from, endOf(to)});
    addWarehouseRestriction(session, where, QStringLiteral("d.ck_sn"));
    return session.db().rows(
        QStringLiteral("select a.id,d.pos_xsrq,d.gl_djh,a.g_sn,"
                       "coalesce(g.g_name,'')||coalesce(a.t_zp,'') as g_name,g.gg_name,a.dw_name,"
                       "a.pos_sl,a.pos_dj,a.pos_zje,a.t_ph from jxc_posxsd d join jxc_posxssp a on "
                       "a.gl_djh=d.gl_djh left join jxc_goods g on g.g_sn=a.g_sn where %1 "
                       "order by d.pos_xsrq desc,d.gl_djh desc,a.id")
            .arg(where.text()),
        where.values());
}

Rows memberTransfers(const Session &session, const QString &member, const QString &from,
                     const QString &to) {
    return session.db().rows(
        QStringLiteral("select id,hy_rq as moved_at,'转账' as kind,xf_je as value,0 as points,"
                       "hy_bz as remark,a_admin as a_name from jxc_czxf where hy_sn=? and "
                       "hy_rq>=? and hy_rq<=? union all "
                       "select id,jf_rq,'积分',0,-jf_xfjf,jf_note,a_name from jxc_jfdh where "
                       "hy_sn=? and jf_rq>=? and jf_rq<=? order by 2 desc,1 desc"),
        {member, from, endOf(to), member, from, endOf(to)});
}

} // namespace jxc
