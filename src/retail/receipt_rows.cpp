#include "retail/receipt_rows.h"

#include "core/session.h"
#include "db/database.h"
#include "stock/document.h"
#include "stock/document_kind.h"

namespace jxc {

namespace {

/// The tables of one side and how the columns of its documents begin.
struct Side {
    QString documents, documentLines, prefix; ///< jxc_lsxsd jxc_lsxssp ls
    QString receipts, receiptLines;
    bool isReturn;

    [[nodiscard]] QString named(const char16_t *column) const {
        return prefix + QString::fromUtf16(column);
    }
};

const Side &saleSide() {
    static const Side side{QStringLiteral("jxc_lsxsd"),   QStringLiteral("jxc_lsxssp"),
                           QStringLiteral("ls"),          QStringLiteral("jxc_posxsd"),
                           QStringLiteral("jxc_posxssp"), false};
    return side;
}

const Side &returnSideOfCounter() {
    static const Side side{QStringLiteral("jxc_xsthd"),   QStringLiteral("jxc_xsthsp"),
                           QStringLiteral("th"),          QStringLiteral("jxc_posthd"),
                           QStringLiteral("jxc_posthsp"), true};
    return side;
}

Row headerOf(Database &db, const Side &side, const QString &number) {
    return db
        .row(QStringLiteral("select * from %1 where gl_djh=? order by id").arg(side.documents),
             {number})
        .value();
}

Assignments headRow(Session &session, const Side &side, const ReceiptHead &head, const Row &h,
                    Decimal atRetail) {
    const Tender &t = head.tender;
    const TenderOutcome &o = head.outcome;
    const Decimal none;
    return {{QStringLiteral("gl_djh"), head.number},
            {QStringLiteral("hy_sn"), h.text(u"hy_sn")},
            {QStringLiteral("pos_xsrq"), session.timeStamp()},
            {QStringLiteral("kh_sn"), h.text(u"kh_sn")},
            {QStringLiteral("ck_sn"), h.text(u"ck_sn")},
            {QStringLiteral("u_sn"), h.text(u"u_sn")},
            {QStringLiteral("a_name"), session.currentOperatorName},
            {QStringLiteral("pos_note"), head.note},
            {QStringLiteral("pos_yfje"), o.due},
            {QStringLiteral("pos_sfje"), o.tendered},
            {QStringLiteral("pos_zlje"), o.change},
            {QStringLiteral("pos_mlje"), o.rounding},
            {QStringLiteral("pos_yhje"), t.discount},
            {QStringLiteral("pos_yhzkje"), side.isReturn ? none : atRetail - o.due},
            {QStringLiteral("pos_zffs"), o.method},
            {QStringLiteral("pos_xj"), t.cash},
            {QStringLiteral("pos_yhk"), t.other.bankCard},
            {QStringLiteral("pos_czk"), t.other.storedValue},
            {QStringLiteral("pos_djq"), t.other.voucher},
            {QStringLiteral("pos_wxje"), t.other.weChat},
            {QStringLiteral("pos_zfbje"), t.other.aliPay},
            {QStringLiteral("pos_zftype"), t.walletKind},
            {QStringLiteral("pos_transactionid"), t.walletTransaction},
            {QStringLiteral("pos_rjid"), u""},
            {QStringLiteral("pos_bcjf"), none},
            {QStringLiteral("pos_jfye"), none},
            {QStringLiteral("pos_zjf"), none}};
}

/// What a line of a document is on a receipt; the discount line goes along, so that the lines come
/// to what was due.
Assignments lineRow(const Side &side, const Row &row) {
    return {{QStringLiteral("gl_djh"), row.text(u"gl_djh")},
            {QStringLiteral("g_sn"), row.text(u"g_sn")},
            {QStringLiteral("pos_dj"), row.decimal(side.named(u"_taxdj"))},
            {QStringLiteral("pos_sl"), row.decimal(side.named(u"_sl"))},
            {QStringLiteral("pos_zsl"), row.decimal(side.named(u"_zsl"))},
            {QStringLiteral("pos_zje"), row.decimal(side.named(u"_zje"))},
            {QStringLiteral("pos_zhje"), row.decimal(side.named(u"_zhje"))},
            {QStringLiteral("pos_dzl"), row.decimal(side.named(u"_dzl"))},
            {QStringLiteral("pos_lsj"), row.decimal(side.named(u"_lsj"))},
            {QStringLiteral("pos_cbj"), row.decimal(side.named(u"_cbj"))},
            {QStringLiteral("pos_zcb"), row.decimal(side.named(u"_zcb"))},
            {QStringLiteral("dw_name"), row.text(u"dw_name")},
            {QStringLiteral("g_sptm"), row.text(u"g_sptm")},
            {QStringLiteral("g_zhxs"), row.decimal(u"g_zhxs")},
            {QStringLiteral("a_name"), row.text(u"a_name")},
            {QStringLiteral("t_ph"), row.text(u"t_ph")},
            {QStringLiteral("t_scrq"), row.text(u"t_scrq")},
            {QStringLiteral("t_yxq"), row.text(u"t_yxq")}};
}

void addSaleColumns(Assignments &line, const Row &row) {
    line.push_back({QStringLiteral("t_zp"), row.text(u"t_zp")});
    line.push_back({QStringLiteral("t_cfsm"), row.text(u"t_cfsm")});
    line.push_back({QStringLiteral("t_cfhm"), row.text(u"t_cfhm")});
    line.push_back({QStringLiteral("t_addr"), row.text(u"t_addr")});
    line.push_back({QStringLiteral("t_mobile"), row.text(u"t_mobile")});
    line.push_back({QStringLiteral("pos_xm"), row.text(u"ls_xm")});
    line.push_back({QStringLiteral("pos_cardno"), row.text(u"ls_cardno")});
}

void write(Session &session, const Side &side, const ReceiptHead &head,
           const SoldQuantities &sold) {
    Database &db = session.db();
    QStringList columns;
    std::vector<Values> rows;
    Decimal atRetail;
    for (const Row &row : db.rows(
             QStringLiteral("select * from %1 where gl_djh=? order by id").arg(side.documentLines),
             {head.number})) {
        Assignments line = lineRow(side, row);
        if (side.isReturn)
            line.push_back({QStringLiteral("pos_xssl"),
                            rows.size() < sold.size() ? sold[rows.size()] : Decimal()});
        else
            addSaleColumns(line, row);
        atRetail += (row.decimal(side.named(u"_lsj")) * row.decimal(side.named(u"_sl"))).rounded(6);
        Values &values = rows.emplace_back();
        for (Assignment &a : line) {
            if (rows.size() == 1)
                columns << a.column;
            values.push_back(std::move(a.value));
        }
    }
    db.insertRow(side.receipts,
                 headRow(session, side, head, headerOf(db, side, head.number), atRetail));
    db.insertRows(side.receiptLines, columns, rows);
}

} // namespace

void writeReceipt(Session &session, const ReceiptHead &head) {
    write(session, saleSide(), head, {});
}

void writeReturn(Session &session, const ReceiptHead &head, const SoldQuantities &sold) {
    write(session, returnSideOfCounter(), head, sold);
}

void moveReceiptTenders(Session &session, const QString &number, const OtherTenders &t, int sign) {
    if (t.sum().isZero())
        return;
    const Document d = loadDocument(session.db(), *findDocumentKind(number), number);
    const CashEntry entry{QStringLiteral("现金"),
                          d.date,
                          number,
                          {},
                          {},
                          d.partner.number,
                          d.partnerName.value_or(QString()),
                          d.clerkName,
                          d.warehouseName.value_or(QString()),
                          d.note(),
                          session.currentOperatorName};
    moveTenders(
        session.db(), entry,
        sign > 0 ? t : OtherTenders{-t.bankCard, -t.storedValue, -t.voucher, -t.weChat, -t.aliPay});
}

} // namespace jxc
