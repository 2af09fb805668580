#include "stock/snapshot.h"

#include "db/database.h"
#include "stock/document_kind.h"

#include <QHash>

namespace jxc {

namespace {

void addDiscountRows(Database &db) {
    std::vector<Values> rows;
    for (const Row &row :
         db.rows(QStringLiteral("select ck_sn from jxc_ckxx where ck_sn not in (select ck_sn "
                                "from jxc_kcsp where g_sn=?) order by ck_sn"),
                 {discountGoods}))
        rows.push_back({0, 0, 0, row.text(u"ck_sn"), discountGoods, 0});
    db.insertRows(QStringLiteral("jxc_kcsp"),
                  {QStringLiteral("kc_sl"), QStringLiteral("kc_cbj"), QStringLiteral("kc_xssl"),
                   QStringLiteral("ck_sn"), QStringLiteral("g_sn"), QStringLiteral("kc_zsl")},
                  rows);
}

void addMonthRows(Database &db, const QString &month) {
    std::vector<Values> rows;
    for (const Row &row :
         db.rows(QStringLiteral("select ck_sn from jxc_ckxx where ck_sn not in (select ck_sn "
                                "from jxc_kcjs where js_rq=?) order by ck_sn"),
                 {month}))
        rows.push_back({month, row.text(u"ck_sn"), 0, 0, 0, 0, 0, 0, 0, 0});
    db.insertRows(QStringLiteral("jxc_kcjs"),
                  {QStringLiteral("js_rq"), QStringLiteral("ck_sn"), QStringLiteral("js_sl"),
                   QStringLiteral("js_zje"), QStringLiteral("js_xssl"), QStringLiteral("js_xsje"),
                   QStringLiteral("js_cgsl"), QStringLiteral("js_cgje"), QStringLiteral("js_xslr"),
                   QStringLiteral("js_xscb")},
                  rows);
}

struct Totals {
    Decimal quantity, value;
};

/// Sums are exact on both engines: the dialect knows how.
QString selectTotals(const Database &db) {
    return QStringLiteral("select %1 as sl,%2 as zje,ck_sn from jxc_kcsp ")
        .arg(db.dialect().exactSum(QStringLiteral("kc_sl")),
             db.dialect().exactSumOfProducts(QStringLiteral("kc_sl"), QStringLiteral("kc_cbj")));
}

Totals totalsOf(const Row &row) {
    return {row.decimal(u"sl"), row.decimal(u"zje")};
}

/// Writes only what differs from what stands.
void store(Database &db, const Rows &monthRows, const QHash<QString, Totals> &totals) {
    std::vector<Values> changed;
    for (const Row &row : monthRows) {
        const auto now = totals.constFind(row.text(u"ck_sn"));
        if (now == totals.constEnd())
            continue;
        if (row.decimal(u"js_sl") != now->quantity || row.decimal(u"js_zje") != now->value)
            changed.push_back({row.integer(u"id"), now->quantity, now->value});
    }
    db.updateById(QStringLiteral("jxc_kcjs"), {QStringLiteral("js_sl"), QStringLiteral("js_zje")},
                  changed);
}

} // namespace

void updateKcjs(Database &db, const QString &month) {
    addDiscountRows(db);
    addMonthRows(db, month);
    QHash<QString, Totals> totals;
    for (const Row &row : db.rows(selectTotals(db) + QStringLiteral("group by ck_sn")))
        totals.insert(row.text(u"ck_sn"), totalsOf(row));
    store(db,
          db.rows(QStringLiteral("select id,ck_sn,js_sl,js_zje from jxc_kcjs where js_rq=?"),
                  {month}),
          totals);
}

void updateKcjsCk(Database &db, const QString &warehouse, const QString &month) {
    Totals total;
    if (const auto row =
            db.row(selectTotals(db) + QStringLiteral("where ck_sn=? group by ck_sn"), {warehouse}))
        total = totalsOf(*row);
    store(db,
          db.rows(QStringLiteral(
                      "select id,ck_sn,js_sl,js_zje from jxc_kcjs where js_rq=? and ck_sn=?"),
                  {month, warehouse}),
          {{warehouse, total}});
}

} // namespace jxc
