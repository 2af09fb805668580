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
    std::map<ReturnKey, Decimal> returned;
    for (const Row &row :
         db.rows(QStringLiteral("select a.g_sn,a.dw_name,a.t_ph,a.t_yxq,a.t_scrq,a.th_sl,a.th_bz "
                                "from %1 a,%2 b where a.gl_djh=b.gl_djh and b.%3=? and a.gl_djh<>? "
                                "and a.th_bz like '原单%'")
                     .arg(s.returnLines, s.returnHeader, s.partner),
                 {partner, exceptReturn})) {
        const TiedNote tied = readTiedNote(row.text(u"th_bz"));
        if (!tied.number.isEmpty())
            returned[{tied.number, row.text(u"g_sn"), row.text(u"dw_name"), batchOf(row)}] +=
                row.decimal(u"th_sl");
    }
    return returned;
}

Decimal ReturnBook::returnable(const ReturnKey &key) {
    if (!m_returnedRead) {
        m_returned = returnedByPartner(m_db, m_side, m_partner, m_exceptReturn);
        m_returnedRead = true;
    }
    if (!m_documents.contains(key.number))
        readDocument(key.number);
    const auto &document = m_documents[key.number];
    const auto traded = document.find(key);
    if (traded == document.end())
        return {};
    const auto returned = m_returned.find(key);
    return returned == m_returned.end() ? traded->second : traded->second - returned->second;
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
