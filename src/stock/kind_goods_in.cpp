#include "db/database.h"
#include "stock/against_source.h"
#include "stock/document.h"
#include "stock/kinds.h"

namespace jxc {

namespace {

const SourceLines &receiptLines() {
    static const SourceLines lines = [] {
        SourceLines s;
        s.headerTable = QStringLiteral("jxc_jhd");
        s.lineTable = QStringLiteral("jxc_jhsp");
        s.numberColumn = QStringLiteral("j_sn");
        s.statusColumn = QStringLiteral("j_status");
        s.quantity = QStringLiteral("jh_sl");
        s.done = QStringLiteral("jh_rksl");
        s.cancelled = QStringLiteral("jh_qxsl");
        s.numberInFollower = QStringLiteral("j_sn");
        s.tooMuch = QStringLiteral(
            "采购进货单【%1】的商品【%2】\r\n\r\n"
            "已经完成入库或入库数量大于采购数量或已经取消入库，不能重复入库，请检查！");
        s.physicalSign = 1;
        return s;
    }();
    return lines;
}

void check(Session &session, const Document &d) {
    checkOpenQuantities(session, d, receiptLines());
}

void moveAgainstSource(Session &session, const Document &d, int direction) {
    moveAgainstSourceLines(session, d, receiptLines(), direction);
}

/// Header rows of the same number that were left unapproved go.
void afterApproval(Database &db, const Document &d) {
    db.execute(QStringLiteral("delete from jxc_rkd where rk_status=0 and gl_djh=?"), {d.number});
}

} // namespace

DocumentKind goodsInKind() {
    DocumentKind k;
    k.code = QStringLiteral("RK");
    k.title = QStringLiteral("商品入库单");
    k.headerTable = QStringLiteral("jxc_rkd");
    k.lineTable = QStringLiteral("jxc_rksp");
    k.numberColumn = QStringLiteral("gl_djh");
    k.dateColumn = QStringLiteral("rk_rq");
    k.prefix = QStringLiteral("rk");
    k.warehouseColumn = QStringLiteral("ck_sn");
    k.noteColumn = QStringLiteral("rk_note");
    k.quantityColumn = QStringLiteral("rk_sl");
    k.baseQuantityColumn = QStringLiteral("rk_zsl");
    k.rightGroup = QStringLiteral("cggl");
    k.entryRight = 8;
    k.approveRight = 9;
    k.cancelRight = 12;
    k.approveLog = QStringLiteral("审核入库单");
    k.cancelLog = QStringLiteral("取消审核商品入库单：");
    k.cancelLogNamesNumber = true;
    k.followers = {
        {QStringLiteral(
             "select b.gl_djh from jxc_rksp a,jxc_thsp b where a.id2=b.id2 and a.gl_djh=? "
             "and a.id2<>0 and a.g_sn<>'00000000' order by a.id"),
         QStringLiteral("入库单：%1，至少有一种商品做了取消入库，\r\n\r\n"
                        "请先取消审核退货单：%2，然后才能取消审核该入库单！")}};
    k.check = check;
    k.moveAgainstSource = moveAgainstSource;
    k.afterApproval = afterApproval;
    return k;
}

} // namespace jxc
