#include "money/partner_accounts.h"

#include "core/operation_log.h"
#include "core/session.h"
#include "db/computed_rows.h"
#include "db/database.h"
#include "money/list_conditions.h"
#include "money/open_items.h"

#include <array>
#include <map>

namespace jxc {

namespace {

QString prefixOf(Partner::Kind kind) {
    return kind == Partner::Kind::customer ? QStringLiteral("kh") : QStringLiteral("ghs");
}

void narrow(Where &where, const AccountQuery &query, const QString &partnerColumn) {
    const QString prefix = prefixOf(query.kind);
    where.addEqual(partnerColumn, query.partner);
    addSearch(where,
              {partnerColumn, QStringLiteral("p.%1_name").arg(prefix),
               QStringLiteral("p.%1_jm").arg(prefix)},
              query.search);
}

/// Names of the partners that the query lets through.
std::map<QString, QString> namesOf(const Session &session, const AccountQuery &query) {
    const QString prefix = prefixOf(query.kind);
    Where where;
    narrow(where, query, QStringLiteral("p.%1_sn").arg(prefix));
    std::map<QString, QString> names;
    for (const Row &row :
         session.db().rows(QStringLiteral("select p.%1_sn,p.%1_name from jxc_%1xx p where %2")
                               .arg(prefix, where.text()),
                           where.values()))
        names[row.text(size_t{0})] = row.text(size_t{1});
    return names;
}

/// A debt's column by its age in days.
int ageColumn(int days) {
    int column = 0;
    for (const int limit : {30, 60, 90, 180, 365})
        column += days > limit ? 1 : 0;
    return column;
}

constexpr size_t ageColumns = 6;

} // namespace

Rows partnerSummary(const Session &session, const AccountQuery &query) {
    Database &db = session.db();
    const QString prefix = prefixOf(query.kind);
    const auto sumWhen = [&](const char16_t *condition, const QString &amount) {
        return db.dialect().exactSum(QStringLiteral("case when %1 then coalesce(%2,0) else 0 end")
                                         .arg(QString::fromUtf16(condition), amount));
    };
    // What a receipt or payment books as due is the discount that it grants, negative.
    const QString due = QStringLiteral("coalesce(k.k_qcje,0)+coalesce(k.k_yfje,0)");
    Values values(4, Value(query.from)); // of the four sums
    Where where;
    where.add(QStringLiteral("k.k_type=?"), {Partner{query.kind, {}}.type()});
    where.add(QStringLiteral("k.k_rq<=?"), {query.to});
    narrow(where, query, QStringLiteral("k.k_ghskh"));
    values.insert(values.end(), where.values().begin(), where.values().end());
    const Rows rows = db.rows(
        QStringLiteral("select k.k_ghskh as partner,p.%1_name as partner_name,%2 as opening,%3 as "
                       "due,%4 as settled,%5 as discount from jxc_ysyfk k left join jxc_%1xx p on "
                       "p.%1_sn=k.k_ghskh where %6 group by k.k_ghskh,p.%1_name order by k.k_ghskh")
            .arg(prefix, sumWhen(u"k.k_rq<?", due + QStringLiteral("-coalesce(k.k_sfje,0)")),
                 sumWhen(u"k.k_rq>=? and not coalesce(k.k_djlx,'') in ('SK','FK')", due),
                 sumWhen(u"k.k_rq>=?", QStringLiteral("k.k_sfje")),
                 sumWhen(u"k.k_rq>=? and coalesce(k.k_djlx,'') in ('SK','FK')",
                         QStringLiteral("-(%1)").arg(due)),
                 where.text()),
        values);
    if (rows.empty())
        return {};
    ComputedRows list(rows.front().columns().names(), {QStringLiteral("closing")});
    for (const Row &row : rows)
        list.add(row, {cellOf(row.decimal(u"opening") + row.decimal(u"due") -
                              row.decimal(u"settled") - row.decimal(u"discount"))});
    return list.take();
}

Rows partnerDetail(const Session &session, const AccountQuery &query) {
    const QString prefix = prefixOf(query.kind);
    Where where;
    where.add(QStringLiteral("k.k_type=?"), {Partner{query.kind, {}}.type()});
    addPeriod(where, QStringLiteral("k.k_rq"), query.from, query.to);
    narrow(where, query, QStringLiteral("k.k_ghskh"));
    const Rows rows = session.db().rows(
        QStringLiteral("select k.id,k.k_rq,k.gl_djh as number,k.k_ghskh as partner,p.%1_name as "
                       "partner_name,k.k_djtxt,k.k_qcje,k.k_yfje,k.k_sfje,k.k_ljje,k.k_fkfs,"
                       "u.u_name,k.k_note from jxc_ysyfk k left join jxc_%1xx p on "
                       "p.%1_sn=k.k_ghskh left join jxc_user u on u.u_sn=k.u_sn where %2 order by "
                       "k.k_ghskh,k.k_rq,k.id")
            .arg(prefix, where.text()),
        where.values());
    if (query.partner.isEmpty())
        return rows;
    static const std::vector<QString> fields = [] {
        const QStringList names = QStringLiteral("id k_rq number partner partner_name k_djtxt "
                                                 "k_qcje k_yfje k_sfje k_ljje k_fkfs u_name k_note")
                                      .split(u' ');
        return std::vector<QString>(names.begin(), names.end());
    }();
    ComputedRows list(fields, {});
    const auto before =
        session.db().row(QStringLiteral("select k_ljje from jxc_ysyfk where k_type=? and "
                                        "k_ghskh=? and k_rq<? order by k_rq desc,id desc limit 1"),
                         {Partner{query.kind, {}}.type(), query.partner, query.from});
    list.add({{u"k_rq", query.from},
              {u"k_djtxt", QStringLiteral("上期余额")},
              {u"k_ljje", before ? before->decimal(u"k_ljje") : Decimal()}});
    for (const Row &row : rows)
        list.add(row, {});
    return list.take();
}

Rows openDocumentRows(const Session &session, const AccountQuery &query) {
    const auto names = namesOf(session, query);
    ComputedRows list({}, QStringLiteral("partner partner_name number kind rq days total settled "
                                         "open note")
                              .split(u' '));
    for (const OpenItem &item : openItems(session, query.kind, query.partner)) {
        const auto name = names.find(item.partner);
        if (name == names.end())
            continue;
        list.add({{u"partner", item.partner},
                  {u"partner_name", name->second},
                  {u"number", item.number},
                  {u"kind", item.kind},
                  {u"rq", item.date},
                  {u"days", qint64(item.days)},
                  {u"total", item.total},
                  {u"settled", item.total - item.open},
                  {u"open", item.open},
                  {u"note", item.note}});
    }
    return list.take();
}

Rows partnerAgeing(const Session &session, const AccountQuery &query) {
    const auto names = namesOf(session, query);
    struct Ages {
        std::array<Decimal, ageColumns> debts;
        Decimal credit, total;
    };
    std::map<QString, Ages> byPartner;
    for (const OpenItem &item : openItems(session, query.kind, query.partner)) {
        if (!names.contains(item.partner))
            continue;
        Ages &ages = byPartner[item.partner];
        if (item.open.isNegative())
            ages.credit += item.open;
        else
            ages.debts[static_cast<size_t>(ageColumn(item.days))] += item.open;
        ages.total += item.open;
    }
    ComputedRows list({}, QStringLiteral("partner partner_name age30 age60 age90 age180 age365 "
                                         "older credit total")
                              .split(u' '));
    for (const auto &[partner, ages] : byPartner)
        list.add({{u"partner", partner},
                  {u"partner_name", names.at(partner)},
                  {u"age30", ages.debts[0]},
                  {u"age60", ages.debts[1]},
                  {u"age90", ages.debts[2]},
                  {u"age180", ages.debts[3]},
                  {u"age365", ages.debts[4]},
                  {u"older", ages.debts[5]},
                  {u"credit", ages.credit},
                  {u"total", ages.total}});
    return list.take();
}

Outcome recomputePartner(Session &session, Prompter &prompter, const Partner &partner) {
    return runAction(session.db(), prompter, [&](Answers &) {
        const auto name = partnerName(session.db(), partner);
        if (!name)
            throw Refusal(QStringLiteral("请先选择一条记录！"));
        RecomputePartnerBalance(session.db(), partner, QString());
        writeLog(session, QStringLiteral("重算余额：%1").arg(*name));
    });
}

} // namespace jxc
