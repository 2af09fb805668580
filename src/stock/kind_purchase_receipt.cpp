#include "db/database.h"
#include "money/fees.h"
#include "stock/document.h"
#include "stock/kinds.h"
#include "stock/line_prices.h"

namespace jxc {

namespace {

/// A line with nothing recorded as taken in goes into the books only; goods-in brings the stock.
bool movesPhysically(const Row &line) {
    return !line.decimal(u"jh_rksl").isZero();
}

std::vector<JournalRow> movements(const Document &d) {
    std::vector<JournalRow> rows;
    for (const Row &line : d.lines) {
        JournalRow r = journalRowOfLine(d, line);
        r.line = line.integer(u"id"); // approval has just set id2 to it
        r.quantity = line.decimal(u"jh_zsl");
        r.price = basePrice(line.decimal(u"jh_dj"), line.decimal(u"jh_sl"), r.quantity);
        r.costPrice = r.price;
        r.totalCost = line.decimal(u"jh_je");
        r.discount = line.decimal(u"jh_dzl");
        r.amountWithTax = line.decimal(u"jh_zje");
        r.amount = line.decimal(u"jh_je");
        r.taxRate = line.decimal(u"jh_tax");
        r.taxPrice = perBaseUnit(r.amountWithTax, r.quantity);
        r.taxAmount = line.decimal(u"jh_taxje");
        r.retailPrice = d.goods.value(r.goods).retailPrice;
        r.entryQuantity = line.decimal(u"jh_sl");
        r.lineNote = line.text(u"jh_bz");
        rows.push_back(std::move(r));
    }
    return rows;
}

DocumentMoney payments(const Document &d) {
    const Row &h = d.header;
    DocumentMoney m = moneyOf(d);
    m.discount = h.decimal(u"j_yhje");
    m.due = h.decimal(u"j_yfje") - m.discount;
    m.settled = h.decimal(u"j_sfje");
    m.account = accountOf(h.text(u"j_kmmc"));
    m.cashKind = QStringLiteral("采购进货");
    m.cash = -m.settled;
    m.invoiceNo = h.text(u"j_fpno");
    m.invoiced = h.decimal(u"j_fpje");
    if (h.text(u"j_yffs") == shopPaysFreight) {
        m.freight = h.decimal(u"j_yf");
        m.packing = h.decimal(u"j_bzf");
    }
    return m;
}

void markApproved(Database &db, const QString &number) {
    db.execute(QStringLiteral("update jxc_jhsp set id2=id,jh_qxsl=0 where j_sn=?"), {number});
}

} // namespace

DocumentKind purchaseReceiptKind() {
    DocumentKind k;
    k.code = QStringLiteral("CJ");
    k.title = QStringLiteral("采购进货单");
    k.headerTable = QStringLiteral("jxc_jhd");
    k.lineTable = QStringLiteral("jxc_jhsp");
    k.numberColumn = QStringLiteral("j_sn");
    k.dateColumn = QStringLiteral("j_jhrq");
    k.prefix = QStringLiteral("j");
    k.warehouseColumn = QStringLiteral("ck_sn");
    k.noteColumn = QStringLiteral("j_note");
    k.partnerColumn = QStringLiteral("ghs_sn");
    k.partnerKind = Partner::Kind::supplier;
    k.quantityColumn = QStringLiteral("jh_sl");
    k.baseQuantityColumn = QStringLiteral("jh_zsl");
    k.rightGroup = QStringLiteral("cggl");
    k.entryRight = 1;
    k.approveRight = 6;
    k.cancelRight = 10;
    k.approveLog = QStringLiteral("审核采购进货单");
    k.cancelLog = QStringLiteral("取消审核采购进货单");
    k.followers = {
        {QStringLiteral("select gl_djh from jxc_rksp where j_sn=? order by id"),
         QStringLiteral("该单据%1已有入库信息，不能取消审核！\r\n\r\n"
                        "请在商品入库单中删除该单据的所有信息，然后再取消审核！")},
        {QStringLiteral(
             "select b.gl_djh from jxc_thsp a,jxc_thd b where a.gl_djh=b.gl_djh and b.th_status=1 "
             "and a.id2<>0 and a.id2 in (select id2 from jxc_jhsp where j_sn=?) order by a.id "
             "limit 1"),
         QStringLiteral("该单据%1已做取消入库，不能取消审核！\r\n\r\n请先取消审核退货单：%2")},
    };
    k.feeDocument = QStringLiteral("采购单");
    k.onApproval = {1, 0, true, true};
    k.onCancelling = {-1, 0, false, true};
    k.headerZeroes = {QStringLiteral("j_hkje")};
    k.markApproved = markApproved;
    k.movements = movements;
    k.movesPhysically = movesPhysically;
    k.payments = payments;
    return k;
}

} // namespace jxc
