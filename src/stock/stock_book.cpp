#include "stock/stock_book.h"

#include "db/database.h"
#include "stock/document.h"
#include "stock/goods_of.h"
#include "stock/journal_kinds.h"

namespace jxc {

StockBook::StockBook(Database &db, const Document &document)
    : m_db(db) {
    const GoodsOf goods(document.kind, document.number);
    for (const Row &row :
         db.rows(QStringLiteral("select id,g_sn,ck_sn,kc_sl,kc_zsl,kc_xssl,kc_cbj from "
                                "jxc_kcsp where g_sn in %1 order by id")
                     .arg(goods.set),
                 goods.values))
        m_stock.try_emplace({row.text(u"g_sn"), row.text(u"ck_sn")},
                            Stock{row.integer(u"id"), row.decimal(u"kc_sl"), row.decimal(u"kc_zsl"),
                                  row.decimal(u"kc_xssl"), row.decimal(u"kc_cbj")});
    for (const Row &row :
         db.rows(QStringLiteral("select id,g_sn,g_kc,g_pjjj,g_scjj,g_cgpl,g_xspl,ghs_sn "
                                "from jxc_goods where g_sn in %1 order by id desc")
                     .arg(goods.set),
                 goods.values))
        m_goods.insert(row.text(u"g_sn"),
                       Goods{row.integer(u"id"), row.decimal(u"g_kc"), row.decimal(u"g_pjjj"),
                             row.decimal(u"g_scjj"), row.integer(u"g_cgpl"), row.integer(u"g_xspl"),
                             row.text(u"ghs_sn")});
}

StockBook::Stock &StockBook::stockOf(const QString &goods, const QString &warehouse,
                                     Decimal newRowCost) {
    Stock &stock =
        m_stock.try_emplace({goods, warehouse}, Stock{0, {}, {}, {}, newRowCost}).first->second;
    stock.changed = true;
    return stock;
}

void StockBook::move(const JournalRow &row, int direction, Decimal newRowCost) {
    const Decimal signedQuantity = direction < 0 ? -row.quantity : row.quantity;
    const JournalKind &kind = journalKind(row.flag);
    const Decimal change = kind.stockChange(signedQuantity);
    Stock &stock = stockOf(row.goods, row.warehouse, newRowCost);
    stock.book += change;
    if (row.flag == QLatin1String("xs") || row.flag == QLatin1String("xt"))
        stock.sold += signedQuantity;
    if (!row.physical)
        return;
    stock.physical += change;
    Goods &goods = m_goods[row.goods];
    goods.total += change;
    goods.changed = true;
}

void StockBook::movePhysically(const QString &goods, const QString &warehouse, Decimal quantity) {
    stockOf(goods, warehouse, m_goods[goods].averageCost).physical += quantity;
    m_goods[goods].total += quantity;
    m_goods[goods].changed = true;
}

void StockBook::setCost(const QString &goods, const QString &warehouse, Decimal cost) {
    const auto stock = m_stock.find({goods, warehouse});
    if (stock != m_stock.end())
        stock->second.cost = cost;
}

void StockBook::writeStock() {
    std::vector<Values> updates;
    std::vector<Values> inserts;
    for (const auto &[key, stock] : m_stock) {
        if (!stock.changed)
            continue;
        if (stock.id != 0)
            updates.push_back({stock.id, stock.physical, stock.book, stock.sold, stock.cost});
        else
            inserts.push_back(
                {stock.physical, stock.cost, stock.sold, key.first, key.second, stock.book});
    }
    const QString table = QStringLiteral("jxc_kcsp");
    m_db.updateById(table,
                    {QStringLiteral("kc_sl"), QStringLiteral("kc_zsl"), QStringLiteral("kc_xssl"),
                     QStringLiteral("kc_cbj")},
                    updates);
    m_db.insertRows(table,
                    {QStringLiteral("kc_sl"), QStringLiteral("kc_cbj"), QStringLiteral("kc_xssl"),
                     QStringLiteral("g_sn"), QStringLiteral("ck_sn"), QStringLiteral("kc_zsl")},
                    inserts);
}

void StockBook::count(const JournalRow &row, const GoodsEffect &effect, const QString &supplier) {
    Goods &goods = m_goods[row.goods];
    goods.purchases += effect.purchases;
    goods.sales += effect.sales;
    if (effect.takesPrice) {
        goods.lastPrice = row.price;
        goods.supplier = supplier;
    }
    goods.changed = true;
}

void StockBook::refreshGoodsCost(const JournalRow &row, const Parameters &parameters) {
    Product worth;
    Decimal quantity;
    for (auto it = m_stock.lower_bound({row.goods, QString()});
         it != m_stock.end() && it->first.first == row.goods; ++it) {
        worth += it->second.cost * it->second.book;
        quantity += it->second.book;
    }
    Goods &goods = m_goods[row.goods];
    // With nothing in the books there is no average: the row's price is kept.
    goods.averageCost = quantity.isZero()
                            ? row.price
                            : (worth / quantity).roundedUp9(parameters.priceDecimals).abs();
    if (goods.averageCost.isNegative())
        goods.averageCost = row.price;
    goods.changed = true;
}

void StockBook::writeGoods() {
    std::vector<Values> updates;
    for (const Goods &goods : std::as_const(m_goods))
        if (goods.changed)
            updates.push_back({goods.id, goods.total, goods.averageCost, goods.lastPrice,
                               goods.purchases, goods.sales, goods.supplier});
    m_db.updateById(QStringLiteral("jxc_goods"),
                    {QStringLiteral("g_kc"), QStringLiteral("g_pjjj"), QStringLiteral("g_scjj"),
                     QStringLiteral("g_cgpl"), QStringLiteral("g_xspl"), QStringLiteral("ghs_sn")},
                    updates);
}

Decimal getKcsl(Database &db, const QString &goods, const QString &warehouse) {
    const auto row = db.row(QStringLiteral("select kc_sl from jxc_kcsp where g_sn=? and ck_sn=?"),
                            {goods, warehouse});
    return row ? row->decimal(u"kc_sl") : Decimal();
}

} // namespace jxc
