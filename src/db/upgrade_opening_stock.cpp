#include "db/upgrade_opening_stock.h"

#include "db/layout.h"

#include <algorithm>

namespace jxc {

namespace {

/// The decimals to which the cost walk rounds.
struct Decimals {
    int price = 2;
    int quantity = 2;
    int amount = 2;
};

Decimals readDecimals(Database &db) {
    const auto row = db.row(
        QStringLiteral("select cs_xsws,cs_cs004,cs_zjews,cs_jews from jxc_xtcs order by id"));
    const auto places = [&](QStringView column) {
        return static_cast<int>(std::clamp<qint64>(row->integer(column), 0, 6));
    };
    if (!row)
        return {};
    return {places(u"cs_xsws"), places(u"cs_cs004"),
            places(row->flag(u"cs_zjews") ? u"cs_jews" : u"cs_xsws")};
}

/// The next second after a date with a time of day, the next day after one without.
QString justAfter(const QString &newest, QDate today) {
    const QString secondForm = QStringLiteral("yyyy-MM-dd hh:mm:ss");
    const QString dayForm = QStringLiteral("yyyy-MM-dd");
    const QDateTime moment = QDateTime::fromString(newest, secondForm);
    if (moment.isValid())
        return moment.addSecs(1).toString(secondForm);
    const QDate day = QDate::fromString(newest.left(10), dayForm);
    return day.isValid() ? day.addDays(1).toString(dayForm) : today.toString(dayForm);
}

/// The figures of an opening row, as the cost walk would write them over an empty stock.
Assignments openingFigures(Decimal quantity, Decimal cost, const Decimals &decimals) {
    const Decimal stock = quantity.roundedUp9(decimals.quantity);
    const Decimal average = cost.roundedUp9(decimals.price);
    const Decimal amount = (quantity * cost).roundedUp9(decimals.amount);
    return {{QStringLiteral("gl_sl"), quantity},
            {QStringLiteral("gl_dj"), cost},
            {QStringLiteral("gl_zje"), amount},
            {QStringLiteral("gl_je"), amount},
            {QStringLiteral("gl_dzl"), 1},
            {QStringLiteral("gl_kc"), stock},
            {QStringLiteral("gl_pjjj"), average},
            {QStringLiteral("gl_kczje"), (stock * average).roundedUp9(decimals.amount)}};
}

Assignments openingNames(const Row &source, const QString &date) {
    Assignments names{{QStringLiteral("gl_flag"), u"qc"},
                      {QStringLiteral("gl_kdrq"), date},
                      {QStringLiteral("gl_chkrq"), date.left(10)},
                      {QStringLiteral("ghs_name"), u"期初结转"},
                      {QStringLiteral("gl_note"), u"期初结转"}};
    for (const QString &column :
         {QStringLiteral("g_sn"), QStringLiteral("g_name"), QStringLiteral("g_jm"),
          QStringLiteral("dw_name"), QStringLiteral("gg_name"), QStringLiteral("color_name"),
          QStringLiteral("ck_sn"), QStringLiteral("ck_name")})
        names.push_back({column, source.text(column)});
    return names;
}

} // namespace

void startJournal(Database &db, Layout &layout, QDate today) {
    const QString newest = db.scalar(QStringLiteral("select max(gl_kdrq) from jxc_goodslist"));
    db.execute(QStringLiteral(
        "update jxc_goodslist set gl_sqsl=0,gl_sqje=0,gl_pjjj=gl_dj,gl_kc=0,gl_kczje=0,"
        "gl_checker=a_name,gl_chkrq=substr(gl_kdrq,1,10),gl_note='[-前期数据-]',gl_dzl=1"));

    const QString date = justAfter(newest, today);
    const Decimals decimals = readDecimals(db);
    std::vector<Assignments> rows;
    for (const Row &source : db.rows(QStringLiteral(
             "select g.g_sn,g.g_name,g.g_jm,g.dw_name,g.gg_name,g.color_name,g.g_pjjj,k.kc_sl,"
             "w.ck_sn,w.ck_name from jxc_goods g join jxc_kcsp k on k.g_sn=g.g_sn "
             "join jxc_ckxx w on w.ck_sn=k.ck_sn order by g.id,w.id,k.id"))) {
        Assignments opening =
            openingFigures(source.decimal(u"kc_sl"), source.decimal(u"g_pjjj"), decimals);
        for (Assignment &name : openingNames(source, date))
            opening.push_back(std::move(name));
        rows.push_back(std::move(opening));
    }
    layout.insertWhole(QStringLiteral("jxc_goodslist"), rows);
}

} // namespace jxc
