#include "money/partner_ledger.h"

#include "db/database.h"
#include "db/fitted.h"

namespace jxc {

namespace {

struct Master {
    QString table, number, name, balance;
};

const Master &masterOf(Partner::Kind kind) {
    static const Master customers{QStringLiteral("jxc_khxx"), QStringLiteral("kh_sn"),
                                  QStringLiteral("kh_name"), QStringLiteral("kh_lwje")};
    static const Master suppliers{QStringLiteral("jxc_ghsxx"), QStringLiteral("ghs_sn"),
                                  QStringLiteral("ghs_name"), QStringLiteral("ghs_lwje")};
    return kind == Partner::Kind::customer ? customers : suppliers;
}

Decimal balanceOf(const std::optional<Row> &row) {
    return row ? row->decimal(u"k_ljje") : Decimal();
}

} // namespace

Partner partnerOf(const QString &type, const QString &number) {
    return {type == QLatin1String("kh") ? Partner::Kind::customer : Partner::Kind::supplier,
            number};
}

std::optional<QString> partnerName(Database &db, const Partner &partner) {
    const Master &master = masterOf(partner.kind);
    const auto row = db.row(QStringLiteral("select %1 from %2 where %3=? order by id")
                                .arg(master.name, master.table, master.number),
                            {partner.number});
    if (!row)
        return std::nullopt;
    return row->text(size_t{0});
}

void addPartnerEntry(Database &db, const PartnerEntry &entry) {
    const QString table = QStringLiteral("jxc_ysyfk");
    db.insertRow(table, {{QStringLiteral("gl_djh"), entry.number},
                         {QStringLiteral("gl_djh2"), entry.linkedNumber},
                         {QStringLiteral("k_type"), entry.partner.type()},
                         {QStringLiteral("k_ghskh"), entry.partner.number},
                         {QStringLiteral("k_rq"), entry.date},
                         {QStringLiteral("k_fkfs"), fitted(table, u"k_fkfs", entry.account)},
                         {QStringLiteral("k_qcje"), entry.opening},
                         {QStringLiteral("k_yfje"), entry.due},
                         {QStringLiteral("k_sfje"), entry.settled},
                         {QStringLiteral("k_yhje"), entry.discount},
                         {QStringLiteral("k_ljje"), Decimal()},
                         {QStringLiteral("k_djlx"), entry.kindCode},
                         {QStringLiteral("k_djtxt"), entry.kindText},
                         {QStringLiteral("k_note"), fitted(table, u"k_note", entry.note)},
                         {QStringLiteral("k_flag"), entry.flag},
                         {QStringLiteral("a_name"), entry.operatorName},
                         {QStringLiteral("u_sn"), entry.clerkNo}});
    RecomputePartnerBalance(db, entry.partner, entry.date);
}

Decimal BalanceBefore(Database &db, const Partner &partner, const QString &date,
                      std::optional<qint64> beforeId) {
    QString sql =
        QStringLiteral("select k_ljje from jxc_ysyfk where k_type=? and k_ghskh=? and k_rq<=? ");
    Values values{partner.type(), partner.number, date};
    if (beforeId) {
        sql += QStringLiteral("and id<? ");
        values.emplace_back(*beforeId);
    }
    return balanceOf(db.row(sql + QStringLiteral("order by k_rq desc,id desc limit 1"), values));
}

Decimal CurrentBalance(Database &db, const Partner &partner) {
    return balanceOf(
               db.row(QStringLiteral("select k_ljje from jxc_ysyfk where k_type=? and k_ghskh=? "
                                     "order by k_rq desc,id desc limit 1"),
                      {partner.type(), partner.number}))
        .rounded(2);
}

void RecomputePartnerBalance(Database &db, const Partner &partner, const QString &fromDate) {
    const QString type = partner.type();
    Decimal balance = balanceOf(
        db.row(QStringLiteral("select k_ljje from jxc_ysyfk where k_type=? and k_ghskh=? and "
                              "k_rq<? order by k_rq desc,id desc limit 1"),
               {type, partner.number, fromDate}));
    std::vector<Values> changed;
    for (const Row &row : db.rows(
             QStringLiteral("select id,k_qcje,k_yfje,k_sfje,k_ljje from jxc_ysyfk where k_type=? "
                            "and k_ghskh=? and k_rq>=? order by k_rq,id"),
             {type, partner.number, fromDate})) {
        balance += row.decimal(u"k_qcje") + row.decimal(u"k_yfje") - row.decimal(u"k_sfje");
        if (row.isNull(u"k_ljje") || row.decimal(u"k_ljje") != balance)
            changed.push_back({row.integer(u"id"), balance});
    }
    db.updateById(QStringLiteral("jxc_ysyfk"), {QStringLiteral("k_ljje")}, changed);
    const Master &master = masterOf(partner.kind);
    db.execute(QStringLiteral("update %1 set %2=? where %3=?")
                   .arg(master.table, master.balance, master.number),
               {balance, partner.number});
}

void removePartnerEntries(Database &db, const QString &number) {
    const QString where = QStringLiteral(" from jxc_ysyfk where gl_djh=? or gl_djh2=?");
    const Rows lost =
        db.rows(QStringLiteral("select k_type,k_ghskh,min(k_rq) as k_rq") + where +
                    QStringLiteral(" group by k_type,k_ghskh order by k_type,k_ghskh"),
                {number, number});
    if (lost.empty())
        return;
    db.execute(QStringLiteral("delete") + where, {number, number});
    for (const Row &row : lost)
        RecomputePartnerBalance(db, partnerOf(row.text(u"k_type"), row.text(u"k_ghskh")),
                                row.text(u"k_rq"));
}

} // namespace jxc
