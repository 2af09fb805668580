#include "db/database.h"
#include "stock/against_source.h"
#include "stock/document.h"
#include "stock/kinds.h"

namespace jxc {

namespace {

const SourceLines &saleLines() {
    static const SourceLines lines = [] {
        SourceLines s;
        s.headerTable = QStringLiteral("jxc_lsxsd");
        s.lineTable = QStringLiteral("jxc_lsxssp");
        s.numberColumn = QStringLiteral("gl_djh");
        s.statusColumn = QStringLiteral("ls_status");
        s.quantity = QStringLiteral("ls_sl");
        s.done = QStringLiteral("ls_cksl");
        s.cancelled = QStringLiteral("ls_qxsl");
        s.numberInFollower = QStringLiteral("gl_djh2");
        s.tooMuch = QStringLiteral(
            "商品销售单【%1】的商品【%2】\r\n\r\n"
            "已经完成出库或出库数量大于销售数量或已经取消出库，不能重复出库，请检查！");
        s.physicalSign = -1;
        return s;
    }();
    return lines;
}

void check(Session &session, const Document &d) {
    checkOpenQuantities(session, d, saleLines());
}

void moveAgainstSource(Session &session, const Document &d, int direction) {
    moveAgainstSourceLines(session, d, saleLines(), direction);
}

void afterApproval(Database &db, const Document &d) {
    db.execute(QStringLiteral("delete from jxc_ckd where ck_status=0 and gl_djh=?"), {d.number});
}

} // namespace

DocumentKind goodsOutKind() {
    DocumentKind k;
    k.code = QStringLiteral("CK");
    k.title = QStringLiteral("商品出库单");
    k.headerTable = QStringLiteral("jxc_ckd");
    k.lineTable = QStringLiteral("jxc_cksp");
    k.numberColumn = QStringLiteral("gl_djh");
    k.dateColumn = QStringLiteral("ck_rq");
    k.prefix = QStringLiteral("ck");
    k.warehouseColumn = QStringLiteral("ck_sn");
    k.noteColumn = QStringLiteral("ck_note");
    k.partnerKind = Partner::Kind::customer; // of the sale that it follows
    k.quantityColumn = QStringLiteral("ck_sl");
    k.baseQuantityColumn = QStringLiteral("ck_zsl");
    k.rightGroup = QStringLiteral("xsgl");
    k.entryRight = 6;
    k.approveRight = 9;
    k.cancelRight = 13;
    k.approveLog = QStringLiteral("审核出库单");
    k.cancelLog = QStringLiteral("取消审核商品出库单：");
    k.cancelLogNamesNumber = true;
    k.shortageWord = QStringLiteral("出库");
    k.followers = {
        {QStringLiteral(
             "select b.gl_djh from jxc_cksp a,jxc_xsthsp b where a.id2=b.id2 and a.gl_djh=? "
             "and a.id2<>0 and a.g_sn<>'00000000' order by a.id"),
         QStringLiteral("出库单：%1，至少有一种商品做了取消出库，\r\n\r\n"
                        "请先取消审核退货单：%2，然后才能取消审核该出库单！")}};
    k.check = check;
    k.moveAgainstSource = moveAgainstSource;
    k.afterApproval = afterApproval;
    return k;
}

} // namespace jxc
