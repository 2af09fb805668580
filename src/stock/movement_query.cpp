#include "stock/movement_query.h"

#include "core/session.h"
#include "core/visible_warehouses.h"
#include "db/computed_rows.h"
#include "db/database.h"
#include "db/where.h"
#include "stock/journal_kinds.h"

namespace jxc {

namespace {

/// Stock and stock value of a goods over the warehouses that are looked at.
class RunningStock {
public:
    void set(const QString &warehouse, Decimal stock, Decimal value) {
        Held &held = m_byWarehouse[warehouse];
        m_stock += stock - held.stock;
        m_value += value - held.value;
        held = {stock, value};
    }
    [[nodiscard]] Decimal stock() const { return m_stock; }
    [[nodiscard]] Decimal value() const { return m_value; }

private:
    struct Held {
        Decimal stock, value;
    };
    std::map<QString, Held> m_byWarehouse;
    Decimal m_stock, m_value;
};

Where warehouseOf(const Session &session, const MovementFilter &filter, const QString &table) {
    Where where;
    where.add(table + QStringLiteral(".g_sn=?"), {filter.goods});
    where.addEqual(table + QStringLiteral(".ck_sn"), filter.warehouse);
    addWarehouseRestriction(session, where, table + QStringLiteral(".ck_sn"));
    return where;
}

/// The last row before the period in each warehouse: one look into the index for each.
Rows openings(const Session &session, const MovementFilter &filter) {
    const Where where = warehouseOf(session, filter, QStringLiteral("k"));
    Values values{filter.from};
    values.insert(values.end(), where.values().begin(), where.values().end());
    return session.db().rows(
        QStringLiteral("select k.ck_sn,l.gl_kc,l.gl_pjjj,l.gl_kczje from jxc_kcsp k join "
                       "jxc_goodslist l on l.id=(select b.id from jxc_goodslist b where "
                       "b.g_sn=k.g_sn and b.ck_sn=k.ck_sn and b.gl_kdrq<? order by b.gl_kdrq desc,"
                       "b.id desc limit 1) where %1")
            .arg(where.text()),
        values);
}

Rows journalRows(const Session &session, const MovementFilter &filter) {
    Where where = warehouseOf(session, filter, QStringLiteral("l"));
    where.add(QStringLiteral("l.gl_kdrq>=? and l.gl_kdrq<=?"), {filter.from, filter.to});
    return session.db().rows(
        QStringLiteral("select l.id,l.gl_flag,l.gl_kdrq,l.gl_djh,l.ck_sn,l.ck_name,l.ghs_sn,"
                       "l.ghs_name,l.gl_dj,l.gl_zje,l.t_ph,l.t_scrq,l.t_yxq,l.u_name,l.a_name,"
                       "l.gl_bz,l.gl_sl,l.gl_pjjj,l.gl_kc as kc,l.gl_kczje as kczje from "
                       "jxc_goodslist l where %1 order by l.gl_kdrq,l.id")
            .arg(where.text()),
        where.values());
}

const std::vector<QString> &journalFields() {
    static const std::vector<QString> fields = [] {
        const QStringList names =
            QStringLiteral("id gl_flag gl_kdrq gl_djh ck_sn ck_name ghs_sn ghs_name gl_dj gl_zje "
                           "t_ph t_scrq t_yxq u_name a_name gl_bz gl_sl gl_pjjj kc kczje")
                .split(u' ');
        return std::vector<QString>(names.begin(), names.end());
    }();
    return fields;
}

} // namespace

Rows movements(const Session &session, const MovementFilter &filter) {
    ComputedRows list(journalFields(),
                      QStringLiteral("title gl_in gl_out gl_kc gl_kczje").split(u' '));
    RunningStock running;
    const Rows before = openings(session, filter);
    for (const Row &row : before)
        running.set(row.text(u"ck_sn"), row.decimal(u"gl_kc"), row.decimal(u"gl_kczje"));
    // One cost for several warehouses would be none that any row was charged.
    list.add({{u"title", QStringLiteral("期初")},
              {u"gl_kdrq", filter.from},
              {u"gl_pjjj", before.size() == 1 ? cellOf(before[0].decimal(u"gl_pjjj")) : Cell()},
              {u"gl_kc", cellOf(running.stock())},
              {u"gl_kczje", cellOf(running.value())}});
    for (const Row &row : journalRows(session, filter)) {
        const JournalKind &kind = journalKind(row.text(u"gl_flag"));
        const Decimal change = kind.stockChange(row.decimal(u"gl_sl"));
        running.set(row.text(u"ck_sn"), row.decimal(u"kc"), row.decimal(u"kczje"));
        list.add(row, {kind.title.toString(), change.isPositive() ? cellOf(change) : Cell(),
                       change.isNegative() ? cellOf(-change) : Cell(), cellOf(running.stock()),
                       cellOf(running.value())});
    }
    return list.take();
}

} // namespace jxc
