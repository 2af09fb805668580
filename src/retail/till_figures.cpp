#include "retail/till_figures.h"

#include "core/session.h"
#include "db/database.h"
#include "db/where.h"

#include <array>
#include <map>

namespace jxc {

namespace {

using ByCashier = std::map<QString, TillFigures>;

QString sumOf(const Session &session, const QString &expression, const QString &name) {
    return QStringLiteral("%1 as %2").arg(session.db().dialect().exactSum(expression), name);
}

/// Adds a field to a figure.
using Fields = std::vector<std::pair<const char16_t *, Decimal TillFigures::*>>;

const Fields &receiptFields() {
    static const Fields fields = {
        {u"pos_yfje", &TillFigures::due},     {u"pos_sfje", &TillFigures::tendered},
        {u"pos_zlje", &TillFigures::change},  {u"pos_mlje", &TillFigures::rounding},
        {u"pos_xj", &TillFigures::cash},      {u"pos_czk", &TillFigures::storedValue},
        {u"pos_yhk", &TillFigures::bankCard}, {u"pos_djq", &TillFigures::voucher},
        {u"pos_wxje", &TillFigures::weChat},  {u"pos_zfbje", &TillFigures::aliPay}};
    return fields;
}

void addReceipts(const Session &session, const CounterFilter &filter, ByCashier &all) {
    const SqlPart receipts = counterReceipts(session, filter);
    QStringList sums;
    for (const auto &[name, figure] : receiptFields()) {
        const QString column = QString::fromUtf16(name);
        sums << sumOf(session, QStringLiteral("r.") + column, column);
    }
    sums << sumOf(session, QStringLiteral("case when r.is_back=1 then -r.pos_yfje else 0 end"),
                  QStringLiteral("returned"));
    for (const Row &row : session.db().rows(
             QStringLiteral("select r.a_name,count(*) as receipts,sum(r.is_back) as backs,%1 from "
                            "%2 r group by r.a_name")
                 .arg(sums.join(u','), receipts.text),
             receipts.values)) {
        TillFigures &f = all[row.text(u"a_name")];
        f.returns = row.integer(u"backs");
        f.sales = row.integer(u"receipts") - f.returns;
        f.returned = row.decimal(u"returned");
        for (const auto &[name, figure] : receiptFields())
            f.*figure = row.decimal(name);
    }
}

void addTillCash(const Session &session, const CounterFilter &filter, ByCashier &all) {
    Where where;
    where.add(QStringLiteral("crk_rq>=?"), {filter.from.left(10)});
    where.add(QStringLiteral("crk_rq<=?"), {endOf(filter.to.left(10))});
    where.addEqual(QStringLiteral("a_name"), filter.cashier);
    for (const Row &row : session.db().rows(
             QStringLiteral("select a_name,crk_flag,%1 from jxc_crk where %2 group "
                            "by a_name,crk_flag")
                 .arg(sumOf(session, QStringLiteral("crk_je"), QStringLiteral("amount")),
                      where.text()),
             where.values())) {
        TillFigures &f = all[row.text(u"a_name")];
        (row.text(u"crk_flag") == QLatin1String("r") ? f.in : f.out) += row.decimal(u"amount");
    }
}

void addRecharges(const Session &session, const CounterFilter &filter, ByCashier &all) {
    using Recharged = TillFigures::Recharged;
    static const std::array<std::pair<const char16_t *, Decimal Recharged::*>, 5> fields = {
        {{u"xf_xj", &Recharged::cash},
         {u"xf_xyk", &Recharged::bankCard},
         {u"xf_wxje", &Recharged::weChat},
         {u"xf_zfbje", &Recharged::aliPay},
         {u"xf_zlje", &Recharged::change}}};
    QStringList sums;
    for (const auto &[name, figure] : fields)
        sums << sumOf(session, QString::fromUtf16(name), QString::fromUtf16(name));
    Where where;
    where.add(QStringLiteral("xf_rq>=?"), {filter.from});
    where.add(QStringLiteral("xf_rq<=?"), {endOf(filter.to)});
    where.addEqual(QStringLiteral("a_name"), filter.cashier);
    for (const Row &row :
         session.db().rows(QStringLiteral("select a_name,%1 from jxc_hyxf where %2 group by a_name")
                               .arg(sums.join(u','), where.text()),
                           where.values()))
        for (const auto &[name, figure] : fields)
            all[row.text(u"a_name")].recharged.*figure = row.decimal(name);
}

} // namespace

std::vector<TillFigures> tillFigures(const Session &session, const CounterFilter &filter) {
    ByCashier all;
    addReceipts(session, filter, all);
    addTillCash(session, filter, all);
    addRecharges(session, filter, all);
    std::vector<TillFigures> list;
    for (auto &[cashier, figures] : all) {
        figures.cashier = cashier;
        list.push_back(std::move(figures));
    }
    return list;
}

} // namespace jxc
