#include "core/session.h"
#include "db/database.h"
#include "db/in_list.h"
#include "stock/expiry.h"
#include "stock/proposals.h"

#include <algorithm>

namespace jxc {

namespace {

/// What never expires is kept for the end.
QString sortedExpiry(const QString &expiry) {
    return expiry.isEmpty() || expiry == QLatin1String("0000-00") ? QStringLiteral("~") : expiry;
}

bool goesFirst(const BatchChoice &a, const BatchChoice &b) {
    const QString first = sortedExpiry(a.batch.expiry);
    const QString second = sortedExpiry(b.batch.expiry);
    return std::tie(first, a.batch.produced, a.batch.number) <
           std::tie(second, b.batch.produced, b.batch.number);
}

/// How many units a base quantity gives: exactly, or else whole ones, since a third of a case
/// cannot be written.
Decimal unitsIn(Decimal base, Decimal factor) {
    const Decimal units = (base / factor).rounded(6);
    if ((units * factor).rounded(6) == base)
        return units;
    const Decimal whole = units.rounded(0);
    return (whole * factor).rounded(6) > base ? whole - Decimal(1) : whole;
}

} // namespace

std::vector<BatchChoice> batchesOut(Session &session, const QString &goods,
                                    const QString &warehouse) {
    return batchesOut(session, QStringList{goods}, warehouse).value(goods);
}

QHash<QString, std::vector<BatchChoice>> batchesOut(Session &session, const QStringList &goods,
                                                    const QString &warehouse) {
    const QDate today = session.now().date();
    const InList list(goods);
    Values values = list.values;
    values.emplace_back(warehouse);
    QHash<QString, std::vector<BatchChoice>> batches;
    for (const Row &row : session.db().rows(
             QStringLiteral("select a.g_sn,a.t_ph,a.t_yxq,a.t_scrq,a.t_sl,g.g_bzq from jxc_tkc a "
                            "left join jxc_goods g on g.g_sn=a.g_sn where a.g_sn in %1 and "
                            "a.ck_sn=? and a.t_sl>0 order by a.id")
                 .arg(list.marks),
             values)) {
        BatchChoice choice{{row.text(u"t_ph"), row.text(u"t_yxq"), row.text(u"t_scrq")},
                           row.decimal(u"t_sl")};
        const QDate last = lastGoodDay(choice.batch.expiry, choice.batch.produced,
                                       static_cast<int>(row.integer(u"g_bzq")));
        if (last.isValid())
            choice.daysLeft = today.daysTo(last);
        batches[row.text(u"g_sn")].push_back(std::move(choice));
    }
    for (std::vector<BatchChoice> &choices : batches)
        std::stable_sort(choices.begin(), choices.end(), goesFirst);
    return batches;
}

std::vector<BatchPart> splitOverBatches(const std::vector<BatchChoice> &batches, Decimal quantity,
                                        Decimal factor, const std::vector<BatchChoice> &taken) {
    std::vector<BatchPart> parts;
    Decimal rest = quantity;
    for (const BatchChoice &choice : batches) {
        if (!rest.isPositive())
            break;
        Decimal free = choice.quantity;
        for (const BatchChoice &other : taken)
            if (other.batch == choice.batch)
                free -= other.quantity;
        const Decimal held = unitsIn(free, factor);
        if (!held.isPositive())
            continue;
        const Decimal part = std::min(rest, held);
        parts.push_back({choice.batch, part});
        rest -= part;
    }
    if (!rest.isPositive())
        return parts;
    if (parts.empty())
        parts.push_back({batches.empty() ? Batch{} : batches.front().batch, rest});
    else
        parts.back().quantity += rest;
    return parts;
}

} // namespace jxc
