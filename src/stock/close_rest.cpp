#include "stock/close_rest.h"

#include "core/approval.h"
#include "core/numbering.h"
#include "core/rights.h"
#include "core/session.h"
#include "db/database.h"
#include "stock/barrier.h"
#include "stock/document.h"
#include "stock/document_kind.h"
#include "stock/posting.h"

namespace jxc {

namespace {

struct OpenLine {
    const Row *line;
    Decimal quantity; ///< what is closed, in the unit of entry
};

/// What differs between closing a receipt and closing a sale.
struct Closing {
    QString question, nothingOpen;
    QString returnCode;                      ///< "CT" or "XT"
    QString quantity, done, cancelled, base; ///< columns of the source's lines
    QString account;
    QStringView rightGroup;
    int right;
    Assignments (*returnLine)(const OpenLine &, const Parameters &);
};

/// Stored with six places first, then rounded to the amount decimals, as the books have always had
/// it.
Decimal amountOf(Decimal a, Decimal b, Decimal c, const Parameters &parameters) {
    return roundedProduct(a, b, c, 6).rounded(parameters.amountDecimals);
}

/// The columns that both kinds of returns take alike; `p` is the prefix of the source's columns.
Assignments commonLine(const OpenLine &open, const Parameters &parameters, const QString &p) {
    const Row &l = *open.line;
    const auto from = [&](const char16_t *name) {
        return l.decimal(QString(p + QString::fromUtf16(name)));
    };
    const Decimal price = from(u"_dj");
    const Decimal discount = from(u"_dzl");
    // A rate of the shop has few places, so that a hundredth of it is exact.
    const Decimal rate = (from(u"_tax") / Decimal(100)).rounded(6);
    return {
        {QStringLiteral("g_sn"), l.text(u"g_sn")},
        {QStringLiteral("th_dj"), price},
        {QStringLiteral("th_sl"), open.quantity},
        {QStringLiteral("th_zje"), amountOf(open.quantity, from(u"_taxdj"), discount, parameters)},
        {QStringLiteral("th_je"), amountOf(open.quantity, price, discount, parameters)},
        {QStringLiteral("th_tax"), from(u"_tax")},
        {QStringLiteral("th_taxdj"), from(u"_taxdj")},
        {QStringLiteral("th_taxje"), amountOf(open.quantity, price, rate, parameters)},
        {QStringLiteral("th_zsl"), (from(u"_zsl") * open.quantity / from(u"_sl")).rounded(6)},
        {QStringLiteral("th_dzl"), discount},
        {QStringLiteral("th_bz"), u""},
        {QStringLiteral("dw_name"), l.text(u"dw_name")},
        {QStringLiteral("g_sptm"), l.text(u"g_sptm")},
        {QStringLiteral("a_name"), l.text(u"a_name")},
        {QStringLiteral("t_scrq"), l.text(u"t_scrq")},
        {QStringLiteral("t_yxq"), l.text(u"t_yxq")},
        {QStringLiteral("t_ph"), l.text(u"t_ph")},
        {QStringLiteral("id2"), l.integer(u"id2")}};
}

Assignments purchaseReturnLine(const OpenLine &open, const Parameters &parameters) {
    return commonLine(open, parameters, QStringLiteral("jh"));
}

Assignments salesReturnLine(const OpenLine &open, const Parameters &parameters) {
    Assignments line = commonLine(open, parameters, QStringLiteral("ls"));
    const Row &l = *open.line;
    const Decimal cost = l.decimal(u"ls_cbj");
    line.push_back({QStringLiteral("th_lsj"), l.decimal(u"ls_lsj")});
    line.push_back({QStringLiteral("th_cbj"), cost});
    line.push_back(
        {QStringLiteral("th_zcb"), (cost * open.quantity).rounded(parameters.amountDecimals)});
    line.push_back({QStringLiteral("g_zhxs"), l.decimal(u"g_zhxs")});
    line.push_back({QStringLiteral("th_zhje"), l.decimal(u"ls_zhje")});
    line.push_back({QStringLiteral("t_cfsm"), l.text(u"t_cfsm")});
    return line;
}

const Closing *closingOf(const DocumentKind &kind) {
    static const Closing receipt{
        QStringLiteral(
            "您的操作将取消当前单据所有未入库的商品，\r\n\r\n未入库的商品数量将不再入库，\r\n\r\n"
            "将会自动生成一个新的采购退货单据\r\n\r\n冲平本单据未入库商品的数量，确认吗？"),
        QStringLiteral("该单据没有未入库的商品！"),
        QStringLiteral("CT"),
        QStringLiteral("jh_sl"),
        QStringLiteral("jh_rksl"),
        QStringLiteral("jh_qxsl"),
        QStringLiteral("jh_zsl"),
        QStringLiteral("j_kmmc"),
        u"cggl",
        9,
        purchaseReturnLine};
    static const Closing sale{
        QStringLiteral(
            "您的操作将取消当前单据所有未出库的商品，\r\n\r\n未出库的商品数量将不再出库，\r\n\r\n"
            "将会自动生成一个新的顾客退货单据\r\n\r\n冲平本单据未出库商品的数量，确认吗？"),
        QStringLiteral("该单据没有未出库的商品！"),
        QStringLiteral("XT"),
        QStringLiteral("ls_sl"),
        QStringLiteral("ls_cksl"),
        QStringLiteral("ls_qxsl"),
        QStringLiteral("ls_zsl"),
        QStringLiteral("ls_kmmc"),
        u"xsgl",
        9,
        salesReturnLine};
    if (kind.code == QLatin1String("CJ"))
        return &receipt;
    if (kind.code == QLatin1String("XS"))
        return &sale;
    return nullptr;
}

std::vector<OpenLine> openLines(const Document &d, const Closing &closing) {
    std::vector<OpenLine> open;
    for (const Row &line : d.lines) {
        if (line.text(u"g_sn") == discountGoods)
            continue;
        const Decimal ordered = line.decimal(closing.quantity);
        const Decimal done = line.decimal(closing.done);
        if (ordered > done + line.decimal(closing.cancelled))
            open.push_back({&line, ordered - done});
    }
    return open;
}

QString writeReturn(Session &session, const Document &d, const Closing &closing,
                    const std::vector<OpenLine> &open, const Parameters &parameters) {
    Database &db = session.db();
    const DocumentKind &kind = *findDocumentKind(closing.returnCode);
    QString number =
        newDocNumberForDate(session, kind.headerTable, kind.numberColumn, kind.code, d.date);
    Decimal total;
    for (const OpenLine &line : open) {
        Assignments values = closing.returnLine(line, parameters);
        for (const Assignment &a : values)
            if (a.column == QLatin1String("th_zje"))
                total += *a.value.figure();
        values.push_back({kind.numberColumn, number});
        db.insertRow(kind.lineTable, values);
    }
    Assignments header = {
        {kind.numberColumn, number},
        {kind.dateColumn, d.date},
        {kind.partnerColumn, d.partner.number},
        {kind.warehouseColumn, d.warehouse},
        {QStringLiteral("u_sn"), d.clerkNo},
        {QStringLiteral("a_name"), session.currentOperatorName},
        {QStringLiteral("th_yfje"), total},
        {QStringLiteral("th_sfje"), 0},
        {QStringLiteral("th_hkje"), 0},
        {QStringLiteral("th_qk"), 1},
        {QStringLiteral("th_jsfs"), 1},
        {QStringLiteral("th_kmmc"), d.header.text(closing.account)},
        {QStringLiteral("th_fpno"), u""},
        {QStringLiteral("th_fpje"), 0},
        {QStringLiteral("th_note"), QStringLiteral("单据%1取消出库").arg(d.number)},
        {QStringLiteral("th_status"), 0},
        {QStringLiteral("th_checker"), u""},
        {QStringLiteral("th_chkrq"), u""}};
    if (kind.code == QLatin1String("XT"))
        for (const char16_t *empty : {u"th_fdmc", u"hy_sn", u"pos_rjid"})
            header.push_back({QString::fromUtf16(empty), u""});
    db.insertRow(kind.headerTable, header);
    return number;
}

QString closeInTransaction(Session &session, Answers &answers, const QString &number) {
    Database &db = session.db();
    const DocumentKind *kind = findDocumentKind(number);
    const Closing *closing = kind == nullptr ? nullptr : closingOf(*kind);
    if (closing == nullptr)
        throw unknownDocument(number);
    if (!hasRight(session, closing->rightGroup, closing->right))
        throw Refusal(noRightMessage(kind->title + QStringLiteral("！")));
    const Document d = loadDocument(db, *kind, number);
    if (!d.isApproved())
        throw notApproved(number);
    checkReferences(d);
    checkPdBeforeChk(db, d);
    const std::vector<OpenLine> open = openLines(d, *closing);
    if (open.empty())
        throw Refusal(closing->nothingOpen);
    answers.require(closing->question);

    const Parameters parameters = Parameters::load(db);
    std::vector<Values> marks;
    marks.reserve(open.size());
    for (const OpenLine &line : open)
        marks.push_back({line.line->integer(u"id"), line.quantity});
    db.updateById(kind->lineTable, {closing->cancelled}, marks);
    QString returned = writeReturn(session, d, *closing, open, parameters);
    postDocument(session, parameters, loadDocument(db, *findDocumentKind(returned), returned));
    return returned;
}

} // namespace

Outcome closeRest(Session &session, Prompter &prompter, const QString &number,
                  QString *returnNumber) {
    return runAction(session.db(), prompter, [&](Answers &answers) {
        const QString made = closeInTransaction(session, answers, number);
        if (returnNumber != nullptr)
            *returnNumber = made;
    });
}

} // namespace jxc
