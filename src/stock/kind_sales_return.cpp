#include "db/database.h"
#include "stock/document.h"
#include "stock/kinds.h"
#include "stock/line_prices.h"

namespace jxc {

namespace {

/// The counter's copies of the return, which go with it.
const QStringList counterCopies = {QStringLiteral("jxc_posxsd"), QStringLiteral("jxc_posxssp"),
                                   QStringLiteral("jxc_posthd"), QStringLiteral("jxc_posthsp")};

/// A line that closes the rest of a sale: its goods never left, so only the books move.
bool movesPhysically(const Row &line) {
    return line.integer(u"id2") == 0;
}

std::vector<JournalRow> movements(const Document &d) {
    std::vector<JournalRow> rows;
    for (const Row &line : d.lines) {
        JournalRow r = journalRowOfLine(d, line);
        const Decimal factor = line.decimal(u"g_zhxs");
        r.quantity = -line.decimal(u"th_zsl");
        r.price = perBaseUnit(line.decimal(u"th_dj"), factor);
        r.costPrice = perBaseUnit(line.decimal(u"th_cbj"), factor);
        r.totalCost = -line.decimal(u"th_zcb");
        r.discount = line.decimal(u"th_dzl");
        r.amountWithTax = -line.decimal(u"th_zje");
        r.amount = -line.decimal(u"th_je");
        r.taxRate = line.decimal(u"th_tax");
        r.taxPrice = perBaseUnit(line.decimal(u"th_taxdj"), factor);
        r.taxAmount = -line.decimal(u"th_taxje");
        r.retailPrice = perBaseUnit(line.decimal(u"th_lsj"), factor);
        r.profit = line.decimal(u"th_zcb") - line.decimal(u"th_je");
        r.entryQuantity =
            line.decimal(u"th_sl"); // positive, unlike a purchase return's: deliberate
        r.lineNote = line.text(u"th_bz");
        r.branch = d.header.text(u"th_fdmc");
        r.use = line.text(u"t_cfsm");
        rows.push_back(std::move(r));
    }
    return rows;
}

DocumentMoney payments(const Document &d) {
    DocumentMoney m = moneyOf(d);
    m.due = -d.header.decimal(u"th_yfje");
    m.settled = -d.header.decimal(u"th_sfje");
    m.account = accountOf(d.header.text(u"th_kmmc"));
    m.cashKind = QStringLiteral("顾客退货");
    m.cash = -d.header.decimal(u"th_sfje");
    m.invoiceNo = d.header.text(u"th_fpno");
    m.invoiced = -d.header.decimal(u"th_fpje");
    return m;
}

void markCancelled(Database &db, const QString &number) {
    db.execute(
        QStringLiteral("update jxc_lsxssp set ls_qxsl=0 where id2<>0 and id2 in (select id2 from "
                       "jxc_xsthsp where gl_djh=? and id2<>0)"),
        {number});
    db.execute(QStringLiteral("update jxc_xsthsp set id2=0 where gl_djh=?"), {number});
    db.execute(QStringLiteral("update jxc_xsthd set th_note='' where gl_djh=?"), {number});
    for (const QString &copy : counterCopies)
        db.execute(QStringLiteral("delete from %1 where gl_djh=?").arg(copy), {number});
}

} // namespace

DocumentKind salesReturnKind() {
    DocumentKind k;
    k.code = QStringLiteral("XT");
    k.title = QStringLiteral("顾客退货单");
    k.headerTable = QStringLiteral("jxc_xsthd");
    k.lineTable = QStringLiteral("jxc_xsthsp");
    k.numberColumn = QStringLiteral("gl_djh");
    k.dateColumn = QStringLiteral("th_xsrq");
    k.prefix = QStringLiteral("th");
    k.warehouseColumn = QStringLiteral("ck_sn");
    k.noteColumn = QStringLiteral("th_note");
    k.partnerColumn = QStringLiteral("kh_sn");
    k.partnerKind = Partner::Kind::customer;
    k.quantityColumn = QStringLiteral("th_sl");
    k.baseQuantityColumn = QStringLiteral("th_zsl");
    k.memberColumn = QStringLiteral("hy_sn");
    k.rightGroup = QStringLiteral("xsgl");
    k.entryRight = 2;
    k.approveRight = 8;
    k.cancelRight = 12;
    k.approveLog = QStringLiteral("审核顾客退货单");
    k.cancelLog =
        QStringLiteral("取消审核商品退货单"); // 商品退货单 here, 顾客退货单 at approval: deliberate
    // A copy marked "-" is taken by the day end through the return's own rows.
    k.followers = {
        {QStringLiteral("select pos_rjid from jxc_posthd where gl_djh=? and pos_rjid<>'' union all "
                        "select pos_rjid from jxc_posxsd where gl_djh=? and pos_rjid<>'' and "
                        "pos_rjid<>'-' limit 1"),
         QStringLiteral("该单据已日结，不能取消审核！")},
    };
    // A return counts as one more sale of the goods, and cancelling it leaves the count:
    // deliberate.
    k.onApproval = {0, 1, false, false};
    k.onCancelling = {0, 0, false, false};
    k.headerZeroes = {QStringLiteral("th_qk"), QStringLiteral("th_hkje")};
    k.markCancelled = markCancelled;
    k.movements = movements;
    k.movesPhysically = movesPhysically;
    k.payments = payments;
    return k;
}

} // namespace jxc
