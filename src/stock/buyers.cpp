#include "stock/buyers.h"

#include "core/session.h"
#include "db/database.h"

namespace jxc {

namespace {

const QString columns = QStringLiteral("a.ls_xm,a.ls_cardno,a.t_mobile,a.t_addr,a.t_cfsm,a.t_cfhm");

std::optional<BuyerRecord> recordOf(const std::optional<Row> &row) {
    if (!row)
        return std::nullopt;
    return BuyerRecord{row->text(u"ls_xm"),  row->text(u"ls_cardno"), row->text(u"t_mobile"),
                       row->text(u"t_addr"), row->text(u"t_cfsm"),    row->text(u"t_cfhm")};
}

} // namespace

std::optional<BuyerRecord> lastBuyerOf(Session &session, const QString &customer) {
    if (customer == administratorNo) // the walk-in customer is another one every time
        return std::nullopt;
    return recordOf(session.db().row(
        QStringLiteral("select %1 from jxc_lsxsd b,jxc_lsxssp a where a.gl_djh=b.gl_djh and "
                       "b.kh_sn=? and a.ls_xm<>'' and a.ls_cardno<>'' "
                       "order by b.ls_xsrq desc,a.id desc limit 1")
            .arg(columns),
        {customer}));
}

std::optional<BuyerRecord> findBuyer(Session &session, const QString &phoneOrIdentity) {
    const QString wanted = phoneOrIdentity.trimmed();
    if (wanted.isEmpty())
        return std::nullopt;
    // By way of the goods: their lines are found by an index, those of a phone are not.
    return recordOf(session.db().row(
        QStringLiteral("select %1 from jxc_goods g join jxc_lsxssp a on a.g_sn=g.g_sn where "
                       "g.g_iscf<>0 and (a.t_mobile=? or upper(a.ls_cardno)=upper(?)) and "
                       "a.ls_xm<>'' order by a.id desc limit 1")
            .arg(columns),
        {wanted, wanted}));
}

} // namespace jxc
