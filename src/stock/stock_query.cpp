#include "stock/stock_query.h"

#include "core/session.h"
#include "core/visible_warehouses.h"
#include "db/computed_rows.h"
#include "db/database.h"
#include "db/where.h"
#include "stock/document_kind.h"
#include "stock/expiry.h"
#include "stock/goods_search.h"

namespace jxc {

namespace {

bool isShown(StockLevel level, Decimal physical) {
    switch (level) {
    case StockLevel::any:
        return true;
    case StockLevel::inStock:
        return physical.isPositive();
    case StockLevel::none:
        return physical.isZero();
    case StockLevel::negative:
        return physical.isNegative();
    }
    return true;
}

/// Goods with their stock rows, those of one goods one after another.
Rows goodsWithStock(const Session &session, const StockFilter &filter) {
    Where stock;
    stock.add(QStringLiteral("k.g_sn=a.g_sn"));
    stock.addEqual(QStringLiteral("k.ck_sn"), filter.warehouse);
    addWarehouseRestriction(session, stock, QStringLiteral("k.ck_sn"));
    Where goods;
    goods.add(QStringLiteral("a.g_sn<>?"), {discountGoods});
    addClassBranch(goods, filter.classCode);
    addGoodsSearch(goods, filter.search);
    Values values = stock.values();
    values.insert(values.end(), goods.values().begin(), goods.values().end());
    return session.db().rows(
        QStringLiteral("select %1,a.g_sptm,a.hj_name,a.gc_sn,a.g_zdkc,a.g_sj,a.g_lsj,a.ghs_sn,"
                       "s.ghs_name,a.g_jy,a.g_pjjj,k.ck_sn as place,c.ck_name as "
                       "place_name,k.kc_sl as sl,k.kc_zsl as "
                       "zsl,k.kc_cbj as cbj from jxc_goods a %2 join jxc_kcsp k on %3 left join "
                       "jxc_ckxx c on c.ck_sn=k.ck_sn left join jxc_ghsxx s on s.ghs_sn=a.ghs_sn "
                       "where %4 order by a.id,k.ck_sn")
            .arg(goodsColumns,
                 filter.perWarehouse ? QStringLiteral("inner") : QStringLiteral("left"),
                 stock.text(), goods.text()),
        values);
}

/// The stock of one goods in one warehouse, or in several together.
class StockSum {
public:
    void add(Decimal physical, Decimal book, Decimal cost) {
        m_physical += physical;
        m_book += book;
        m_physicalWorth += physical * cost;
        m_bookWorth += book * cost;
        m_cost = cost;
        ++m_rows;
    }

    [[nodiscard]] Decimal physical() const { return m_physical; }
    [[nodiscard]] Decimal book() const { return m_book; }
    [[nodiscard]] Decimal worth(const Parameters &parameters) const {
        return m_physicalWorth.rounded(parameters.amountDecimals);
    }
    [[nodiscard]] Decimal cost(Decimal goodsAverage, const Parameters &parameters) const {
        if (m_rows == 1)
            return m_cost;
        return m_book.isZero() ? goodsAverage
                               : (m_bookWorth / m_book).abs().rounded(parameters.priceDecimals);
    }
    [[nodiscard]] bool isOneWarehouse() const { return m_rows == 1; }

private:
    Decimal m_physical, m_book, m_cost;
    Product m_physicalWorth, m_bookWorth;
    int m_rows = 0;
};

void addStockRow(ComputedRows &list, const Row &row, const StockSum &sum, const StockFilter &filter,
                 const Parameters &parameters) {
    const bool isForgotten = row.flag(u"g_jy") && sum.physical().isZero() && sum.book().isZero();
    if (isForgotten || !isShown(filter.level, sum.physical()))
        return;
    const QString place = sum.isOneWarehouse() ? row.text(u"place") : QString();
    const QString placeName = sum.isOneWarehouse() ? row.text(u"place_name") : QString();
    list.add(row, {cellOf(sum.physical()), cellOf(sum.book()), cellOf(sum.book() - sum.physical()),
                   cellOf(sum.cost(row.decimal(u"g_pjjj"), parameters)),
                   cellOf(sum.worth(parameters)), place, placeName});
}

} // namespace

Rows stockList(const Session &session, const StockFilter &filter) {
    const Rows rows = goodsWithStock(session, filter);
    if (rows.empty())
        return {};
    ComputedRows list(rows.front().columns().names(),
                      QStringLiteral("kc_sl kc_zsl kc_ce kc_cbj kc_je ck_sn ck_name").split(u' '));
    const size_t goodsColumn = rows.front().columns().indexOf(u"g_sn");
    for (size_t i = 0; i < rows.size();) {
        StockSum sum;
        const size_t first = i;
        do {
            const Row &row = rows[i++];
            if (!row.isNull(u"place"))
                sum.add(row.decimal(u"sl"), row.decimal(u"zsl"), row.decimal(u"cbj"));
        } while (!filter.perWarehouse && i < rows.size() &&
                 rows[i].text(goodsColumn) == rows[first].text(goodsColumn));
        addStockRow(list, rows[first], sum, filter, session.parameters);
    }
    return list.take();
}

Rows batchesOf(const Session &session, const QString &goods, const QString &warehouse) {
    Where where;
    where.add(QStringLiteral("t.g_sn=? and t.t_sl<>0"), {goods});
    where.addEqual(QStringLiteral("t.ck_sn"), warehouse);
    addWarehouseRestriction(session, where, QStringLiteral("t.ck_sn"));
    // What never expires comes last.
    const Rows rows = session.db().rows(
        QStringLiteral("select t.id,t.ck_sn,c.ck_name,t.t_ph,t.t_scrq,t.t_yxq,t.t_sl from jxc_tkc "
                       "t left join jxc_ckxx c on c.ck_sn=t.ck_sn where %1 order by case when "
                       "coalesce(t.t_yxq,'') in ('','0000-00') then 1 else 0 end,t.t_yxq,t.t_scrq,"
                       "t.t_ph,t.id")
            .arg(where.text()),
        where.values());
    if (rows.empty())
        return {};
    ComputedRows list(rows.front().columns().names(), {QStringLiteral("days")});
    for (const Row &row : rows) {
        const auto days = daysLeft(row.text(u"t_yxq"), session.now().date());
        list.add(row, {days ? Cell(*days) : Cell()});
    }
    return list.take();
}

Rows latestPrices(const Session &session, Trade trade, const QString &goods, const QString &partner,
                  int most) {
    const QString flag = trade == Trade::purchase ? QStringLiteral("cj") : QStringLiteral("xs");
    const auto select = [most](int own, const QString &condition) {
        return QStringLiteral("select * from (select %1 as "
                              "own,id,gl_kdrq,gl_djh,ghs_sn,ghs_name,ck_name,gl_sl,"
                              "dw_name,gl_dj,gl_taxdj,gl_dzl,gl_zje,u_name from jxc_goodslist "
                              "where g_sn=? and "
                              "gl_flag=?%2 order by gl_kdrq desc,id desc limit %3) as p%1")
            .arg(own)
            .arg(condition)
            .arg(most);
    };
    QString sql = select(0, {});
    Values values = {goods, flag};
    if (!partner.isEmpty()) {
        sql = select(1, QStringLiteral(" and ghs_sn=?")) + QStringLiteral(" union all ") + sql;
        values.insert(values.begin(), {goods, flag, partner});
    }
    return session.db().rows(
        QStringLiteral("select * from (%1) as prices order by own desc,gl_kdrq desc,id desc")
            .arg(sql),
        values);
}

} // namespace jxc
