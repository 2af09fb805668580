#include "stock/return_book.h"

#include "db/database.h"
#include "stock/document_kind.h"

namespace jxc {

namespace {

ReturnSide side(const DocumentKind &source, const DocumentKind &returned, const QString &done) {
    ReturnSide s;
    s.sourceHeader = source.headerTable;
    s.sourceLines = source.lineTable;
    s.number = source.numberColumn;
    s.status = source.statusColumn();
    s.date = source.dateColumn;
    s.partner = source.partnerColumn;
    s.prefix = source.quantityColumn.left(2);
    s.done = done;
    s.returnHeader = returned.headerTable;
    s.returnLines = returned.lineTable;
    s.isSale = source.partnerKind == Partner::Kind::customer;
    return s;
}

Batch batchOf(const Row &row) {
    return Batch{row.text(u"t_ph"), row.text(u"t_yxq"), row.text(u"t_scrq")}.normalised();
}

/// What lines of returns have taken back, found by a condition on them (a) and their headers (b);
/// of one document, or of all for an empty number.
std::map<ReturnKey, Decimal> returnedBy(Database &db, const ReturnSide &s, const QString &condition,
                                        Values values, const QString &number) {
    // A range, not a pattern: the notes are found by their index.
    const QString from = QStringLiteral("原单") + number;
    values.insert(values.end(), {from, from + QChar(0xFFFF)});
    std::map<ReturnKey, Decimal> returned;
    for (const Row &row :
         db.rows(QStringLiteral("select a.g_sn,a.dw_name,a.t_ph,a.t_yxq,a.t_scrq,a.th_sl,a.th_bz "
                                "from %1 a,%2 b where a.gl_djh=b.gl_djh and %3 and a.th_bz>=? and "
                                "a.th_bz<?")
                     .arg(s.returnLines, s.returnHeader, condition),
                 values)) {
        const TiedNote tied = readTiedNote(row.text(u"th_bz"));
        if (!tied.number.isEmpty())
            returned[{tied.number, row.text(u"g_sn"), row.text(u"dw_name"), batchOf(row)}] +=
                row.decimal(u"th_sl");
    }
    return returned;
}

} // namespace

const ReturnSide &returnSide(const QString &returnCode) {
    static const ReturnSide purchases =
        side(*findDocumentKind(u"CJ"), *findDocumentKind(u"CT"), QStringLiteral("jh_rksl"));
    static const ReturnSide sales =
        side(*findDocumentKind(u"XS"), *findDocumentKind(u"XT"), QStringLiteral("ls_cksl"));
    return returnCode == QLatin1String("XT") ? sales : purchases;
}

std::map<ReturnKey, Decimal> returnedByPartner(Database &db, const ReturnSide &s,
                                               const QString &partner,
                                               const QString &exceptReturn) {
    return returnedBy(db, s, QStringLiteral("b.%1=? and a.gl_djh<>?").arg(s.partner),
                      {partner, exceptReturn}, {});
}

Decimal ReturnBook::returnable(const ReturnKey &key) {
    if (!m_documents.contains(key.number)) {
        readDocument(key.number);
        readReturned(key.number);
    }
    const auto &document = m_documents[key.number];
    const auto traded = document.find(key);
    if (traded == document.end())
        return {};
    const auto returned = m_returned.find(key);
    return returned == m_returned.end() ? traded->second : traded->second - returned->second;
}

void ReturnBook::readReturned(const QString &number) {
    m_returned.merge(returnedBy(m_db, m_side,
                                QStringLiteral("b.%1=? and a.gl_djh<>?").arg(m_side.partner),
                                {m_partner, m_exceptReturn}, number));
}

void ReturnBook::readDocument(const QString &number) {
    auto &document = m_documents[number];
    for (const Row &row : m_db.rows(
             QStringLiteral("select b.g_sn,b.dw_name,b.t_ph,b.t_yxq,b.t_scrq,b.%1 as done from %2 "
                            "a,%3 b where a.%4=b.%4 and a.%4=? and a.%5=1 and a.%6=? and b.g_sn<>?")
                 .arg(m_side.done, m_side.sourceHeader, m_side.sourceLines, m_side.number,
                      m_side.status, m_side.partner),
             {number, m_partner, discountGoods}))
        document[{number, row.text(u"g_sn"), row.text(u"dw_name"), batchOf(row)}] +=
            row.decimal(u"done");
}

} // namespace jxc
