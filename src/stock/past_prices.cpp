#include "core/session.h"
#include "db/database.h"
#include "stock/document_kind.h"
#include "stock/proposals.h"

namespace jxc {

std::vector<PastPrice> lastPrices(Session &session, const QString &code, const QString &goods,
                                  const QString &partner) {
    const bool sale = code.startsWith(u'X');
    const DocumentKind &kind = *findDocumentKind(sale ? u"XS" : u"CJ");
    const QString p = kind.quantityColumn.left(2);
    QString sql = QStringLiteral("select a.%1 as rq,a.%2 as number,p.%3 as partner_name,b.dw_name,"
                                 "b.%4_sl as sl,b.%4_dj as dj,b.%4_taxdj as taxdj,b.%4_dzl as dzl ")
                      .arg(kind.dateColumn, kind.numberColumn,
                           sale ? QStringLiteral("kh_name") : QStringLiteral("ghs_name"), p) +
                  QStringLiteral("from %1 b join %2 a on a.%3=b.%3 left join %4 p on p.%5=a.%5 "
                                 "where b.g_sn=? and a.%6=1")
                      .arg(kind.lineTable, kind.headerTable, kind.numberColumn,
                           sale ? QStringLiteral("jxc_khxx") : QStringLiteral("jxc_ghsxx"),
                           kind.partnerColumn, kind.statusColumn());
    Values values{goods};
    if (!partner.isEmpty()) {
        sql += QStringLiteral(" and a.%1=?").arg(kind.partnerColumn);
        values.emplace_back(partner);
    }
    sql += QStringLiteral(" order by a.%1 desc,b.id desc limit 10").arg(kind.dateColumn);
    std::vector<PastPrice> prices;
    for (const Row &row : session.db().rows(sql, values))
        prices.push_back({row.text(u"rq"), row.text(u"number"), row.text(u"partner_name"),
                          row.text(u"dw_name"), row.decimal(u"sl"), row.decimal(u"dj"),
                          row.decimal(u"taxdj"), row.decimal(u"dzl")});
    return prices;
}

} // namespace jxc
