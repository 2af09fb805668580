#include "stock/barrier.h"

#include "core/action.h"
#include "db/database.h"
#include "stock/document.h"
#include "stock/goods_of.h"

namespace jxc {

namespace {

/// Whether a stocktaking of the document's warehouse counts any of its goods.
bool countsGoodsOf(Database &db, const Document &d, const QString &condition) {
    const GoodsOf goods(d.kind, d.number);
    return db.exists(
        QStringLiteral("select a.pd_status from jxc_kcpd a,jxc_kcpdsp b where "
                       "a.gl_djh=b.gl_djh and a.ck_sn=? and %1 and b.g_sn in %2 limit 1")
            .arg(condition, goods.set),
        goods.after({d.warehouse, d.date}));
}

} // namespace

void checkPdBeforeChk(Database &db, const Document &d) {
    if (countsGoodsOf(db, d, QStringLiteral("a.pd_status=0 and a.pd_rq<=?")))
        throw Refusal(QStringLiteral("还有未审核的库存盘点单，请先审核库存盘点单，\r\n\r\n"
                                     "在库存盘点单未审核之前不能审核任何单据！"));
    if (countsGoodsOf(db, d, QStringLiteral("a.pd_status=1 and a.pd_rq>?")))
        throw Refusal(
            QStringLiteral("在单据‘%1’之后已做过盘点，\r\n\r\n在盘点日期之前不能审核任何单据！")
                .arg(d.number));
}

void checkPdBeforeCancel(Database &db, const QString &number) {
    const auto last =
        db.row(QStringLiteral("select id,gl_kdrq,ck_sn from jxc_goodslist where gl_djh=? "
                              "order by id desc"),
               {number});
    if (!last)
        return;
    const QString warehouse = last->text(u"ck_sn");
    const QString stocktaking =
        db.scalar(QStringLiteral(
                      "select gl_djh from jxc_goodslist where gl_flag='pd' and gl_kdrq>=? and id>? "
                      "and ck_sn=? and g_sn in (select g_sn from jxc_goodslist where gl_djh=? "
                      "and ck_sn=?) order by id"),
                  {last->text(u"gl_kdrq"), last->integer(u"id"), warehouse, number, warehouse});
    if (!stocktaking.isEmpty())
        throw Refusal(QStringLiteral("在此单据‘%1’之后已做过库存盘点单，\r\n\r\n单号为：【%2】，"
                                     "在库存盘点单之前的单据不能取消审核！")
                          .arg(number, stocktaking));
}

} // namespace jxc
