#include "retail/recharge_paper.h"

#include "core/action.h"
#include "core/session.h"

namespace jxc {

RechargePaper readRechargePaper(Session &session, const QString &number) {
    const auto row = session.db().row(
        QStringLiteral("select x.gl_djh,x.xf_rq,x.a_name,x.xf_note,x.xf_je,x.xf_yhje,x.xf_xj,"
                       "x.xf_zlje,x.xf_xyk,x.xf_czk,x.xf_djq,x.xf_wxje,x.xf_zfbje,m.hy_bh,"
                       "m.hy_name,m.hy_mobile,m.hy_zhje,m.hy_jf from jxc_hyxf x left join jxc_hyxx "
                       "m on m.hy_sn=x.hy_sn where x.gl_djh=? order by x.id limit 1"),
        {number});
    if (!row)
        throw Refusal(QStringLiteral("没有找到充值单“%1”！").arg(number));
    RechargePaper paper;
    paper.number = row->text(u"gl_djh");
    paper.time = row->text(u"xf_rq");
    paper.cashier = row->text(u"a_name");
    paper.note = row->text(u"xf_note");
    paper.memberNumber = row->text(u"hy_bh");
    paper.memberName = row->text(u"hy_name");
    paper.memberMobile = row->text(u"hy_mobile");
    paper.amount = row->decimal(u"xf_je");
    paper.bonus = row->decimal(u"xf_yhje");
    paper.cash = row->decimal(u"xf_xj");
    paper.change = row->decimal(u"xf_zlje");
    paper.other = {row->decimal(u"xf_xyk"), row->decimal(u"xf_czk"), row->decimal(u"xf_djq"),
                   row->decimal(u"xf_wxje"), row->decimal(u"xf_zfbje")};
    paper.value = row->decimal(u"hy_zhje");
    paper.points = row->decimal(u"hy_jf");
    return paper;
}

} // namespace jxc
