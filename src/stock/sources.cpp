#include "stock/sources.h"

#include "core/session.h"
#include "db/database.h"
#include "stock/document_kind.h"
#include "stock/return_book.h"

#include <QHash>
#include <algorithm>

namespace jxc {

namespace {

/// The receipts or sales whose goods come or go by documents of their own.
struct FollowedSide {
    const DocumentKind &kind;
    QString quantity, baseQuantity, done, cancelled;
    QString partnerTable, partnerName;
};

const FollowedSide &followedSide(const QString &code) {
    static const FollowedSide receipts{*findDocumentKind(u"CJ"),  QStringLiteral("jh_sl"),
                                       QStringLiteral("jh_zsl"),  QStringLiteral("jh_rksl"),
                                       QStringLiteral("jh_qxsl"), QStringLiteral("jxc_ghsxx"),
                                       QStringLiteral("ghs_name")};
    static const FollowedSide sales{*findDocumentKind(u"XS"),  QStringLiteral("ls_sl"),
                                    QStringLiteral("ls_zsl"),  QStringLiteral("ls_cksl"),
                                    QStringLiteral("ls_qxsl"), QStringLiteral("jxc_khxx"),
                                    QStringLiteral("kh_name")};
    return code == QLatin1String("CK") ? sales : receipts;
}

} // namespace

std::vector<OpenLineOfSource> openLinesOf(Session &session, const QString &code,
                                          const QString &number, const QString &warehouse) {
    const FollowedSide &s = followedSide(code);
    QString sql =
        QStringLiteral(
            "select b.%1 as number,a.%2 as rq,a.ck_sn,a.%3 as partner,p.%4 as partner_name,b.id2,"
            "b.g_sn,g.g_name,g.gg_name,g.g_sccs,b.dw_name,b.g_sptm,b.t_ph,b.t_yxq,b.t_scrq,"
            "b.%5 as sl,b.%6 as zsl,b.%7 as done,b.%8 as cancelled ")
            .arg(s.kind.numberColumn, s.kind.dateColumn, s.kind.partnerColumn, s.partnerName,
                 s.quantity, s.baseQuantity, s.done, s.cancelled) +
        QStringLiteral("from %1 b join %2 a on a.%3=b.%3 left join jxc_goods g on g.g_sn=b.g_sn "
                       "left join %4 p on p.%5=a.%5 where a.%6=1 and b.g_sn<>? and "
                       "b.%7>b.%8+coalesce(b.%9,0)")
            .arg(s.kind.lineTable, s.kind.headerTable, s.kind.numberColumn, s.partnerTable,
                 s.kind.partnerColumn, s.kind.statusColumn(), s.quantity, s.done, s.cancelled);
    Values values{discountGoods};
    if (!number.isEmpty()) {
        sql += QStringLiteral(" and b.%1=?").arg(s.kind.numberColumn);
        values.emplace_back(number);
    }
    if (!warehouse.isEmpty()) {
        sql += QStringLiteral(" and a.ck_sn=?");
        values.emplace_back(warehouse);
    }
    std::vector<OpenLineOfSource> lines;
    for (const Row &row : session.db().rows(sql + QStringLiteral(" order by b.id"), values)) {
        OpenLineOfSource l;
        l.number = row.text(u"number");
        l.date = row.text(u"rq");
        l.warehouse = row.text(u"ck_sn");
        l.partner = row.text(u"partner");
        l.partnerName = row.text(u"partner_name");
        l.sourceLine = row.integer(u"id2");
        l.goods = row.text(u"g_sn");
        l.name = row.text(u"g_name");
        l.specification = row.text(u"gg_name");
        l.maker = row.text(u"g_sccs");
        l.unit = row.text(u"dw_name");
        l.barcode = row.text(u"g_sptm");
        l.ordered = row.decimal(u"sl");
        l.factor = (row.decimal(u"zsl") / l.ordered).rounded(6);
        l.batch = {row.text(u"t_ph"), row.text(u"t_yxq"), row.text(u"t_scrq")};
        l.done = row.decimal(u"done");
        l.cancelled = row.decimal(u"cancelled");
        l.open = l.ordered - l.done - l.cancelled;
        if (l.open.isPositive()) // the engine compares doubles
            lines.push_back(std::move(l));
    }
    return lines;
}

std::vector<OpenDocument> openDocuments(Session &session, const QString &code,
                                        const QString &warehouse) {
    std::vector<OpenDocument> documents;
    QHash<QString, size_t> known;
    for (const OpenLineOfSource &line : openLinesOf(session, code, {}, warehouse)) {
        auto place = known.constFind(line.number);
        if (place == known.constEnd()) {
            place = known.insert(line.number, documents.size());
            documents.push_back({line.number,
                                 line.date,
                                 line.partner,
                                 line.partnerName,
                                 line.warehouse,
                                 {},
                                 {},
                                 {},
                                 {}});
        }
        OpenDocument &document = documents[*place];
        document.ordered += line.ordered;
        document.done += line.done;
        document.cancelled += line.cancelled;
        document.open += line.open;
    }
    std::stable_sort(documents.begin(), documents.end(),
                     [](const OpenDocument &a, const OpenDocument &b) { return a.date < b.date; });
    return documents;
}

} // namespace jxc
