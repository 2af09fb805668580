#include "retail/receipt_copy.h"

#include "db/database.h"
#include "db/fitted.h"
#include "retail/document_tenders.h"
#include "stock/document.h"
#include "stock/document_kind.h"

namespace jxc {

namespace {

const QString receiptTable = QStringLiteral("jxc_posxsd");
const QString lineTable = QStringLiteral("jxc_posxssp");

/// The columns of a document under the names that sales and returns share, amounts with their sign.
class DocumentReader {
public:
    explicit DocumentReader(const Document &document)
        : m_document(document)
        , m_prefix(document.kind.prefix)
        , m_isReturn(document.kind.code == QLatin1String("XT")) {}

    [[nodiscard]] Decimal signedFigure(Decimal figure) const {
        return m_isReturn ? -figure : figure;
    }
    [[nodiscard]] QString name(const char16_t *column) const {
        return m_prefix + QString::fromUtf16(column);
    }

    [[nodiscard]] Assignments header() const {
        const Row &h = m_document.header;
        const DocumentTenders t = tendersOf(m_document);
        // What was granted at settlement is no longer due; a return grants nothing.
        const Decimal off = m_isReturn ? Decimal() : h.decimal(u"ls_yhje");
        const Decimal due = h.decimal(name(u"_yfje")) - off;
        Decimal atRetail;
        for (const Row &line : m_document.lines)
            atRetail += (line.decimal(name(u"_lsj")) * line.decimal(name(u"_sl"))).rounded(6);
        const Decimal none;
        return {{QStringLiteral("gl_djh"), m_document.number},
                {QStringLiteral("hy_sn"), h.text(u"hy_sn")},
                {QStringLiteral("pos_xsrq"), m_document.date},
                {QStringLiteral("kh_sn"), m_document.partner.number},
                {QStringLiteral("ck_sn"), m_document.warehouse},
                {QStringLiteral("pos_yfje"), signedFigure(due)},
                {QStringLiteral("pos_sfje"), signedFigure(t.paid)},
                {QStringLiteral("pos_mlje"), none},
                {QStringLiteral("a_name"), h.text(u"a_name")},
                {QStringLiteral("u_sn"), m_document.clerkNo},
                {QStringLiteral("pos_note"), fitted(receiptTable, u"pos_note", m_document.note())},
                {QStringLiteral("pos_zffs"), t.method},
                {QStringLiteral("pos_xj"), signedFigure(t.rest())},
                {QStringLiteral("pos_czk"), signedFigure(t.other.storedValue)},
                {QStringLiteral("pos_yhk"), signedFigure(t.other.bankCard)},
                {QStringLiteral("pos_djq"), signedFigure(t.other.voucher)},
                {QStringLiteral("pos_yhje"), off},
                {QStringLiteral("pos_yhzkje"), signedFigure(atRetail - due)},
                {QStringLiteral("pos_wxje"), none},
                {QStringLiteral("pos_zfbje"), none},
                {QStringLiteral("pos_zftype"), u""},
                {QStringLiteral("pos_transactionid"), u""},
                {QStringLiteral("pos_rjid"), u""},
                {QStringLiteral("pos_bcjf"), none},
                {QStringLiteral("pos_jfye"), none},
                {QStringLiteral("pos_zlje"), none},
                {QStringLiteral("pos_zjf"), none}};
    }

    [[nodiscard]] Values line(const Row &row) const {
        return {m_document.number,
                row.text(u"g_sn"),
                row.decimal(name(u"_taxdj")),
                signedFigure(row.decimal(name(u"_sl"))),
                signedFigure(row.decimal(name(u"_zje"))),
                m_isReturn ? QString() : row.text(u"t_zp"),
                row.text(u"a_name"),
                row.decimal(name(u"_dzl")),
                row.decimal(name(u"_cbj")),
                signedFigure(row.decimal(name(u"_zcb"))),
                row.decimal(name(u"_lsj")),
                signedFigure(row.decimal(name(u"_zsl"))),
                row.text(u"dw_name"),
                row.text(u"g_sptm"),
                row.decimal(u"g_zhxs"),
                row.decimal(name(u"_zhje")),
                row.text(u"t_cfsm"),
                m_isReturn ? QString() : row.text(u"ls_xm"),
                m_isReturn ? QString() : row.text(u"ls_cardno"),
                m_isReturn ? QString() : row.text(u"t_cfhm"),
                m_isReturn ? QString() : row.text(u"t_addr"),
                m_isReturn ? QString() : row.text(u"t_mobile"),
                row.text(u"t_scrq"),
                row.text(u"t_ph"),
                row.text(u"t_yxq")};
    }

private:
    const Document &m_document;
    QString m_prefix;
    bool m_isReturn;
};

const QStringList &lineColumns() {
    static const QStringList columns =
        QStringLiteral("gl_djh,g_sn,pos_dj,pos_sl,pos_zje,t_zp,a_name,pos_dzl,pos_cbj,pos_zcb,"
                       "pos_lsj,pos_zsl,dw_name,g_sptm,g_zhxs,pos_zhje,t_cfsm,pos_xm,pos_cardno,"
                       "t_cfhm,t_addr,t_mobile,t_scrq,t_ph,t_yxq")
            .split(u',');
    return columns;
}

/// Columns that a return and its copy have alike, and those whose sign turns.
struct SharedColumns {
    QStringList texts, figures, turned;
};

/// Copies the rows of a number from the tables of returns, figure by figure.
void copyTurned(Database &db, const QString &from, const QString &to, const SharedColumns &columns,
                const QString &number, const Assignments &more) {
    for (const Row &row : db.rows(
             QStringLiteral("select * from %1 where gl_djh=? order by id").arg(from), {number})) {
        Assignments copy = more;
        for (const QString &column : columns.texts)
            copy.push_back({column, row.text(column)});
        for (const QString &column : columns.figures)
            copy.push_back({column, row.decimal(column)});
        for (const QString &column : columns.turned)
            copy.push_back({column, -row.decimal(column)});
        db.insertRow(to, copy);
    }
}

} // namespace

bool hasReceipt(Database &db, const QString &number) {
    return db.exists(QStringLiteral("select id from jxc_posxsd where gl_djh=?"), {number});
}

void writeReceiptCopy(Database &db, const Document &document) {
    const DocumentReader reader(document);
    db.insertRow(receiptTable, reader.header());
    std::vector<Values> lines;
    lines.reserve(document.lines.size());
    for (const Row &row : document.lines)
        lines.push_back(reader.line(row));
    db.insertRows(lineTable, lineColumns(), lines);
}

void writeReturnCopy(Database &db, const QString &number) {
    static const SharedColumns header = {
        QStringLiteral("gl_djh,hy_sn,pos_xsrq,kh_sn,ck_sn,a_name,u_sn,pos_note,pos_zftype,"
                       "pos_transactionid")
            .split(u','),
        {QStringLiteral("pos_zffs")},
        QStringLiteral("pos_yfje,pos_sfje,pos_mlje,pos_xj,pos_czk,pos_yhk,pos_djq,pos_yhje,"
                       "pos_yhzkje,pos_wxje,pos_zfbje,pos_zlje")
            .split(u',')};
    static const SharedColumns line = {
        QStringLiteral("gl_djh,g_sn,a_name,dw_name,g_sptm,t_scrq,t_ph,t_yxq").split(u','),
        QStringLiteral("pos_dj,pos_dzl,pos_cbj,pos_lsj,g_zhxs,pos_zhje").split(u','),
        QStringLiteral("pos_sl,pos_zje,pos_zcb,pos_zsl").split(u',')};
    copyTurned(db, QStringLiteral("jxc_posthd"), receiptTable, header, number,
               {{QStringLiteral("pos_rjid"), u"-"}});
    copyTurned(db, QStringLiteral("jxc_posthsp"), lineTable, line, number,
               {{QStringLiteral("t_zp"), u""}});
}

} // namespace jxc
