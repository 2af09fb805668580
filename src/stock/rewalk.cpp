#include "stock/rewalk.h"

#include "base/dates.h"
#include "core/action.h"
#include "core/session.h"
#include "stock/document_kind.h"
#include "stock/journal_kinds.h"
#include "stock/snapshot.h"
#include "stock/walk.h"

#include <algorithm>
#include <map>

namespace jxc {

namespace {

/// What one journal needs to be walked from its beginning.
struct Journal {
    QString firstDate;
    bool writesCost = false;
};
using Journals = std::map<JournalKey, Journal>;

/// Rows before the books of an upgraded set carry no figures and stay as they are.
const QString inTheBooks = QStringLiteral("coalesce(gl_note,'')<>'[-前期数据-]'");

Journals readJournals(Database &db) {
    Journals journals;
    for (const Row &row :
         db.rows(QStringLiteral("select g_sn,ck_sn,gl_flag,min(gl_kdrq) as since from "
                                "jxc_goodslist where g_sn<>? and %1 group by g_sn,ck_sn,gl_flag")
                     .arg(inTheBooks),
                 {discountGoods})) {
        Journal &journal = journals[{row.text(u"g_sn"), row.text(u"ck_sn")}];
        const QString since = row.text(u"since");
        if (journal.firstDate.isEmpty() || since < journal.firstDate)
            journal.firstDate = since;
        journal.writesCost =
            journal.writesCost || journalKind(row.text(u"gl_flag")).writesStockCost();
    }
    return journals;
}

/// The journal opens with what it opened with before: what the first row shows, unless it sets a
/// cost of its own.
Decimal openingCost(Database &db, const JournalKey &key) {
    const auto first = db.row(QStringLiteral("select gl_pjjj from jxc_goodslist where g_sn=? and "
                                             "ck_sn=? and %1 order by gl_kdrq,id limit 1")
                                  .arg(inTheBooks),
                              {key.goods, key.warehouse});
    return first->decimal(u"gl_pjjj");
}

/// Average costs of the goods over their warehouses, as an approval leaves them.
void refreshAverages(Database &db, const Parameters &parameters) {
    struct Sums {
        Product worth;
        Decimal quantity;
    };
    QHash<QString, Sums> sums;
    for (const Row &row : db.rows(QStringLiteral("select g_sn,kc_zsl,kc_cbj from jxc_kcsp"))) {
        Sums &sum = sums[row.text(u"g_sn")];
        sum.worth += row.decimal(u"kc_cbj") * row.decimal(u"kc_zsl");
        sum.quantity += row.decimal(u"kc_zsl");
    }
    std::vector<Values> changed;
    for (const Row &row : db.rows(QStringLiteral("select id,g_sn,g_pjjj from jxc_goods"))) {
        const auto sum = sums.constFind(row.text(u"g_sn"));
        if (sum == sums.constEnd() || sum->quantity.isZero())
            continue;
        const Decimal average =
            (sum->worth / sum->quantity).roundedUp9(parameters.priceDecimals).abs();
        if (average != row.decimal(u"g_pjjj"))
            changed.push_back({row.integer(u"id"), average});
    }
    db.updateById(QStringLiteral("jxc_goods"), {QStringLiteral("g_pjjj")}, changed);
}

void writeStockCosts(Database &db, const std::map<JournalKey, Decimal> &costs) {
    std::vector<Values> changed;
    for (const Row &row : db.rows(QStringLiteral("select id,g_sn,ck_sn,kc_cbj from jxc_kcsp"))) {
        const auto cost = costs.find({row.text(u"g_sn"), row.text(u"ck_sn")});
        if (cost != costs.end() && cost->second != row.decimal(u"kc_cbj"))
            changed.push_back({row.integer(u"id"), cost->second});
    }
    db.updateById(QStringLiteral("jxc_kcsp"), {QStringLiteral("kc_cbj")}, changed);
}

} // namespace

void rewalkEverything(const Session &session, const Parameters &parameters,
                      const RewalkProgress &progress) {
    Database &db = session.db();
    const Journals journals = readJournals(db);
    const int total = static_cast<int>(journals.size());
    int done = 0;
    std::map<JournalKey, Decimal> costs;
    for (const auto &[key, journal] : journals) {
        if (progress && !progress(done++, total))
            throw Refusal(QStringLiteral("操作已停止，没有修改任何数据！"));
        WalkStart start{key, journal.firstDate, 0, {}, openingCost(db, key)};
        start.toTheEnd = true;
        const Decimal cost = reCalcGoodsList(db, parameters, start);
        if (journal.writesCost && !parameters.costStaysOffStock)
            costs[key] = cost;
    }
    writeStockCosts(db, costs);
    refreshAverages(db, parameters);
    updateKcjs(db, monthOf(session.today()));
    if (progress)
        progress(total, total);
}

} // namespace jxc
