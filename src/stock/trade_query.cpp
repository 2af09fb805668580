#include "stock/trade_query.h"

#include "core/session.h"
#include "db/computed_rows.h"
#include "db/database.h"
#include "stock/document_conditions.h"

namespace jxc {

namespace {

/// One direction of a trade, and how its amounts are called: discounts are given on receipts and
/// sales only.
struct Side {
    QString code;
    QString amounts; ///< due, paid, discount, settled later
};

std::vector<Side> sidesOf(Trade trade) {
    const QString ofReturn = QStringLiteral("h.th_yfje,h.th_sfje,0,h.th_hkje");
    if (trade == Trade::purchase)
        return {{QStringLiteral("CJ"), QStringLiteral("h.j_yfje,h.j_sfje,h.j_yhje,h.j_hkje")},
                {QStringLiteral("CT"), ofReturn}};
    return {{QStringLiteral("XS"), QStringLiteral("h.ls_yfje,h.ls_sfje,h.ls_yhje,h.ls_hkje")},
            {QStringLiteral("XT"), ofReturn}};
}

QString select(const Side &side, const DocumentSource &source, const QString &condition) {
    const QStringList amounts = side.amounts.split(u',');
    return QStringLiteral("select '%1' as code,h.id,h.%2 as number,%3 as rq,%4 as partner_sn,"
                          "h.ck_sn,%5 as due,%6 as paid,%7 as off,%8 as later,")
               .arg(side.code, source.number, source.date, source.partner, amounts[0], amounts[1],
                    amounts[2], amounts[3]) +
           QStringLiteral("h.u_sn,h.a_name,%1 as note,%2 as checker,%3_chkrq as chkrq from %4 h "
                          "where %5")
               .arg(source.note, source.checker, source.status.chopped(7), source.header,
                    condition);
}

} // namespace

Rows findTrade(const Session &session, Trade trade, const DocumentQuery &filter) {
    DocumentQuery approved = filter;
    approved.state = DocumentState::approved;
    QStringList selects;
    Values values;
    for (const Side &side : sidesOf(trade)) {
        const DocumentSource &source = *findDocumentSource(side.code);
        const Where where = documentConditions(session, source, approved);
        selects << select(side, source, where.text());
        values.insert(values.end(), where.values().begin(), where.values().end());
    }
    const QString partner = trade == Trade::purchase ? QStringLiteral("ghs") : QStringLiteral("kh");
    const Rows rows = session.db().rows(
        QStringLiteral("select d.*,p.%1_name as partner_name,c.ck_name,u.u_name from (%2) d left "
                       "join jxc_%1xx p on p.%1_sn=d.partner_sn left join jxc_ckxx c on "
                       "c.ck_sn=d.ck_sn left join jxc_user u on u.u_sn=d.u_sn order by d.rq desc,"
                       "d.number desc")
            .arg(partner, selects.join(QStringLiteral(" union all "))),
        values);
    if (rows.empty())
        return {};
    ComputedRows list(rows.front().columns().names(),
                      QStringLiteral("title yfje sfje yhje wfje").split(u' '));
    for (const Row &row : rows) {
        const DocumentSource &source = *findDocumentSource(row.text(u"code"));
        const Decimal due = row.decimal(u"due");
        const Decimal paid = row.decimal(u"paid");
        const Decimal off = row.decimal(u"off");
        const Decimal unpaid = due - paid - off - row.decimal(u"later");
        const auto net = [isReturn = source.code.endsWith(u'T')](Decimal amount) {
            return cellOf(isReturn ? -amount : amount);
        };
        list.add(row, {source.title, net(due), net(paid), net(off), net(unpaid)});
    }
    return list.take();
}

} // namespace jxc
