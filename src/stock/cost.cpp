#include "stock/cost.h"

#include "db/database.h"
#include "db/in_list.h"

#include <optional>

namespace jxc {

namespace {

std::optional<Decimal> firstFigure(Database &db, const QString &sql, const Values &values) {
    const auto row = db.row(sql, values);
    if (!row)
        return std::nullopt;
    return row->decimal(size_t{0});
}

std::optional<Decimal> journalCost(Database &db, const QString &warehouse, const QString &goods,
                                   const QString &condition, const Values &conditionValues) {
    Values values{warehouse, goods};
    values.insert(values.end(), conditionValues.begin(), conditionValues.end());
    return firstFigure(
        db,
        QStringLiteral("select gl_pjjj from jxc_goodslist where ck_sn=? and g_sn=? and %1 limit 1")
            .arg(condition),
        values);
}

std::optional<Decimal> stockCost(Database &db, const QString &warehouse, const QString &goods) {
    return firstFigure(db, QStringLiteral("select kc_cbj from jxc_kcsp where ck_sn=? and g_sn=?"),
                       {warehouse, goods});
}

std::optional<Decimal> averageCost(Database &db, const QString &goods) {
    return firstFigure(db, QStringLiteral("select g_pjjj from jxc_goods where g_sn=?"), {goods});
}

} // namespace

Decimal getCbjAt(Database &db, const QString &warehouse, const QString &goods,
                 const QString &date) {
    const QString before = QStringLiteral("gl_kdrq<=? order by gl_kdrq desc,id desc");
    const QString after = QStringLiteral("gl_kdrq>? order by gl_kdrq,id");
    if (const auto cost = journalCost(db, warehouse, goods, before, {date}))
        return *cost;
    if (const auto cost = journalCost(db, warehouse, goods, after, {date}))
        return *cost;
    if (const auto cost = stockCost(db, warehouse, goods))
        return *cost;
    return averageCost(db, goods).value_or(Decimal());
}

Decimal getCbjBefore(Database &db, const QString &warehouse, const QString &goods,
                     const QString &date, qint64 id) {
    const QString newestFirst = QStringLiteral(" order by gl_kdrq desc,id desc");
    struct Step {
        QString condition;
        Values values;
    };
    const std::vector<Step> steps = {
        {QStringLiteral("gl_flag<>'qc' and gl_kdrq<=? and id<?") + newestFirst, {date, id}},
        {QStringLiteral("gl_kdrq<? and id<?") + newestFirst, {date, id}},
        {QStringLiteral("gl_kdrq<?") + newestFirst, {date}},
        {QStringLiteral("gl_kdrq<=?") + newestFirst, {date}},
        {QStringLiteral("gl_kdrq>? order by gl_kdrq,id"), {date}},
    };
    // A cost of 0 is no cost: the next step is tried.
    for (const Step &step : steps) {
        const auto cost = journalCost(db, warehouse, goods, step.condition, step.values);
        if (cost && !cost->isZero())
            return *cost;
    }
    if (const auto cost = stockCost(db, warehouse, goods); cost && !cost->isZero())
        return *cost;
    return averageCost(db, goods).value_or(Decimal());
}

QHash<QString, Decimal> costsBefore(Database &db, const QString &warehouse,
                                    const QStringList &goods, const QString &date) {
    const InList list(goods);
    Values values{warehouse, date};
    values.insert(values.end(), list.values.begin(), list.values.end());
    QHash<QString, Decimal> costs;
    // The first of the five steps, for all of them.
    for (const Row &row :
         db.rows(QStringLiteral("select g.g_sn,(select j.gl_pjjj from jxc_goodslist j where "
                                "j.ck_sn=? and j.g_sn=g.g_sn and j.gl_flag<>'qc' and j.gl_kdrq<=? "
                                "order by j.gl_kdrq desc,j.id desc limit 1) as cost from jxc_goods "
                                "g where g.g_sn in %1")
                     .arg(list.marks),
                 values))
        if (const Decimal cost = row.decimal(u"cost"); !cost.isZero())
            costs.insert(row.text(u"g_sn"), cost);
    for (const QString &one : goods)
        if (!costs.contains(one))
            costs.insert(one, getCbjBefore(db, warehouse, one, date));
    return costs;
}

} // namespace jxc
