#include "db/database.h"
#include "money/fees.h"
#include "stock/document.h"
#include "stock/kinds.h"
#include "stock/line_prices.h"
#include "stock/quantity_limit.h"

namespace jxc {

namespace {

/// A line with nothing issued at once leaves the shelf later, by a goods-out document.
bool movesPhysically(const Row &line) {
    return !line.decimal(u"ls_cksl").isZero();
}

void takeBuyerRecord(JournalRow &r, const Row &line) {
    r.use = line.text(u"t_cfsm");
    r.buyer = line.text(u"ls_xm");
    r.identityNo = line.text(u"ls_cardno");
    r.prescription = line.text(u"t_cfhm");
    r.address = line.text(u"t_addr");
    r.mobile = line.text(u"t_mobile");
}

std::vector<JournalRow> movements(const Document &d) {
    std::vector<JournalRow> rows;
    for (const Row &line : d.lines) {
        JournalRow r = journalRowOfLine(d, line);
        const Decimal factor = line.decimal(u"g_zhxs");
        r.line = line.integer(u"id"); // approval has just set id2 to it
        r.nameSuffix = line.text(u"t_zp");
        r.quantity = line.decimal(u"ls_zsl");
        r.price = perBaseUnit(line.decimal(u"ls_dj"), factor);
        r.costPrice = perBaseUnit(line.decimal(u"ls_cbj"), factor);
        r.totalCost = line.decimal(u"ls_zcb");
        r.discount = line.decimal(u"ls_dzl");
        r.amountWithTax = line.decimal(u"ls_zje");
        r.amount = line.decimal(u"ls_je");
        r.taxRate = line.decimal(u"ls_tax");
        r.taxPrice = perBaseUnit(line.decimal(u"ls_taxdj"), factor);
        r.taxAmount = line.decimal(u"ls_taxje");
        r.retailPrice = perBaseUnit(line.decimal(u"ls_lsj"), factor);
        // A whole-document discount is profit (or, negative, takes from it) to its full amount.
        r.profit = r.goods == discountGoods ? r.amount : r.amount - r.totalCost;
        r.entryQuantity = line.decimal(u"ls_sl");
        r.lineNote = line.text(u"ls_bz");
        r.branch = d.header.text(u"ls_fdmc");
        takeBuyerRecord(r, line);
        rows.push_back(std::move(r));
    }
    return rows;
}

DocumentMoney payments(const Document &d) {
    const Row &h = d.header;
    DocumentMoney m = moneyOf(d);
    m.discount = h.decimal(u"ls_yhje");
    m.due = h.decimal(u"ls_yfje") - m.discount;
    m.settled = h.decimal(u"ls_sfje");
    m.account = accountOf(h.text(u"ls_kmmc"));
    m.cashKind = QStringLiteral("商品销售");
    m.cash = m.settled;
    m.invoiceNo = h.text(u"ls_fpno");
    m.invoiced = h.decimal(u"ls_fpje");
    if (h.text(u"ls_yffs") == shopPaysFreight) {
        m.freight = h.decimal(u"ls_yf");
        m.packing = h.decimal(u"ls_bzf");
    }
    return m;
}

void markApproved(Database &db, const QString &number) {
    db.execute(QStringLiteral("update jxc_lsxssp set id2=id,ls_qxsl=0 where gl_djh=?"), {number});
}

/// The counter's copies of the sale go with it.
void markCancelled(Database &db, const QString &number) {
    db.execute(QStringLiteral("delete from jxc_posxsd where gl_djh=?"), {number});
    db.execute(QStringLiteral("delete from jxc_posxssp where gl_djh=?"), {number});
}

/// What a wallet paid is the provider's to give back.
QString cancelWarning(Database &db, const QString &number) {
    Decimal paid;
    for (const QString &sql :
         {QStringLiteral("select pos_wxje,pos_zfbje from jxc_posxsd where gl_djh=?"),
          QStringLiteral("select total_fee as pos_wxje,0 as pos_zfbje from jxc_wxfk where gl_djh=? "
                         "and wx_flag='fk' and coalesce(err_code,'')=''")})
        if (paid.isZero())
            for (const Row &row : db.rows(sql, {number}))
                paid += row.decimal(u"pos_wxje") + row.decimal(u"pos_zfbje");
    if (paid.isZero())
        return {};
    return QStringLiteral("微信或支付宝已收的%1元不会自动退还，请另行退给顾客！")
        .arg(paid.toText(2));
}

} // namespace

DocumentKind saleKind() {
    DocumentKind k;
    k.code = QStringLiteral("XS");
    k.title = QStringLiteral("商品销售单");
    k.headerTable = QStringLiteral("jxc_lsxsd");
    k.lineTable = QStringLiteral("jxc_lsxssp");
    k.numberColumn = QStringLiteral("gl_djh");
    k.dateColumn = QStringLiteral("ls_xsrq");
    k.prefix = QStringLiteral("ls");
    k.warehouseColumn = QStringLiteral("ck_sn");
    k.noteColumn = QStringLiteral("ls_note");
    k.partnerColumn = QStringLiteral("kh_sn");
    k.partnerKind = Partner::Kind::customer;
    k.quantityColumn = QStringLiteral("ls_sl");
    k.baseQuantityColumn = QStringLiteral("ls_zsl");
    k.memberColumn = QStringLiteral("hy_sn");
    k.rightGroup = QStringLiteral("xsgl");
    k.entryRight = 1;
    k.approveRight = 7;
    k.cancelRight = 11;
    k.approveLog = QStringLiteral("审核销售单");
    k.cancelLog = QStringLiteral("取消审核商品销售单");
    k.shortageWord = QStringLiteral("销售");
    k.followers = {
        {QStringLiteral("select gl_djh from jxc_cksp where gl_djh2=? order by id"),
         QStringLiteral("该单据%1已有出库信息，不能取消审核！\r\n\r\n"
                        "请在商品出库单中删除该单据的所有信息，然后再取消审核！")},
        {QStringLiteral("select pos_rjid from jxc_posxsd where gl_djh=? and pos_rjid<>'' limit 1"),
         QStringLiteral("该单据已日结，不能取消审核，请做退货！")},
        {QStringLiteral(
             "select b.gl_djh from jxc_xsthsp a,jxc_xsthd b where a.gl_djh=b.gl_djh and "
             "b.th_status=1 and a.id2<>0 and a.id2 in (select id2 from jxc_lsxssp where gl_djh=?) "
             "order by a.id"),
         QStringLiteral("该单据%1已做取消出库，不能取消审核！\r\n\r\n请先取消审核退货单：%2")},
    };
    k.feeDocument = QStringLiteral("销售单");
    k.onApproval = {0, 1, false, false};
    k.onCancelling = {0, -1, false, false};
    k.headerZeroes = {QStringLiteral("ls_dhbz"), QStringLiteral("ls_hkje")};
    k.check = checkQuantityLimit;
    k.cancelWarning = cancelWarning;
    k.markApproved = markApproved;
    k.markCancelled = markCancelled;
    k.movements = movements;
    k.movesPhysically = movesPhysically;
    k.payments = payments;
    return k;
}

} // namespace jxc
