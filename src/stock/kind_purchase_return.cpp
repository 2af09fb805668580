#include "db/database.h"
#include "stock/document.h"
#include "stock/kinds.h"
#include "stock/line_prices.h"

namespace jxc {

namespace {

/// A line that closes the rest of a receipt: its goods never came, so only the books move.
bool closesReceipt(const Row &line) {
    return line.integer(u"id2") != 0;
}

bool movesPhysically(const Row &line) {
    return !closesReceipt(line);
}

std::vector<JournalRow> movements(const Document &d) {
    std::vector<JournalRow> rows;
    for (const Row &line : d.lines) {
        JournalRow r = journalRowOfLine(d, line);
        const Decimal quantity = line.decimal(u"th_zsl");
        r.quantity = -quantity;
        r.price = closesReceipt(line)
                      ? perBaseUnit(line.decimal(u"th_je"), quantity)
                      : basePrice(line.decimal(u"th_dj"), line.decimal(u"th_sl"), quantity);
        r.costPrice = r.price;
        r.totalCost = -line.decimal(u"th_je");
        r.discount = line.decimal(u"th_dzl");
        r.amountWithTax = -line.decimal(u"th_zje");
        r.amount = -line.decimal(u"th_je");
        r.taxRate = line.decimal(u"th_tax");
        // The only figure of the row that keeps its sign.
        r.taxPrice =
            quantity.isPositive() ? perBaseUnit(line.decimal(u"th_zje"), quantity) : Decimal();
        r.taxAmount = -line.decimal(u"th_taxje");
        r.retailPrice = d.goods.value(r.goods).retailPrice;
        r.entryQuantity = -line.decimal(u"th_sl");
        r.lineNote = line.text(u"th_bz");
        rows.push_back(std::move(r));
    }
    return rows;
}

DocumentMoney payments(const Document &d) {
    DocumentMoney m = moneyOf(d);
    m.due = -d.header.decimal(u"th_yfje");
    m.settled = -d.header.decimal(u"th_sfje");
    m.account = accountOf(d.header.text(u"th_kmmc"));
    m.cashKind = QStringLiteral("采购退货");
    m.cash = d.header.decimal(u"th_sfje");
    m.invoiceNo = d.header.text(u"th_fpno");
    m.invoiced = -d.header.decimal(u"th_fpje");
    return m;
}

void markCancelled(Database &db, const QString &number) {
    db.execute(
        QStringLiteral("update jxc_jhsp set jh_qxsl=0 where id2<>0 and id2 in (select id2 from "
                       "jxc_thsp where gl_djh=? and id2<>0)"),
        {number});
    db.execute(QStringLiteral("update jxc_thsp set id2=0 where gl_djh=?"), {number});
    db.execute(QStringLiteral("update jxc_thd set th_note='' where gl_djh=?"), {number});
}

} // namespace

DocumentKind purchaseReturnKind() {
    DocumentKind k;
    k.code = QStringLiteral("CT");
    k.title = QStringLiteral("采购退货单");
    k.headerTable = QStringLiteral("jxc_thd");
    k.lineTable = QStringLiteral("jxc_thsp");
    k.numberColumn = QStringLiteral("gl_djh");
    k.dateColumn = QStringLiteral("th_thrq");
    k.prefix = QStringLiteral("th");
    k.warehouseColumn = QStringLiteral("ck_sn");
    k.noteColumn = QStringLiteral("th_note");
    k.partnerColumn = QStringLiteral("ghs_sn");
    k.partnerKind = Partner::Kind::supplier;
    k.quantityColumn = QStringLiteral("th_sl");
    k.baseQuantityColumn = QStringLiteral("th_zsl");
    k.rightGroup = QStringLiteral("cggl");
    k.entryRight = 2;
    k.approveRight = 7;
    k.cancelRight = 11;
    k.approveLog = QStringLiteral("增加采购退货单"); // 增加, unlike every other kind: deliberate
    k.cancelLog = QStringLiteral("取消审核采购退货单");
    k.shortageWord = QStringLiteral("退货");
    k.onApproval = {-1, 0, false, true};
    k.onCancelling = {1, 0, false, true};
    k.headerZeroes = {QStringLiteral("th_hkje")};
    k.markCancelled = markCancelled;
    k.movements = movements;
    k.movesPhysically = movesPhysically;
    k.payments = payments;
    return k;
}

} // namespace jxc
