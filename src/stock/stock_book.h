#pragma once

#include "core/parameters.h"
#include "stock/document_kind.h"

#include <QHash>
#include <map>

namespace jxc {

class Database;

/// The stock rows jxc_kcsp and the goods' own figures of one document's goods, read at once,
/// changed in memory and written back at once.
class StockBook {
public:
    /// Reads the goods that appear in the rows, in all warehouses.
    StockBook(Database &db, const Document &document);

    /// Applies a journal row (`direction` 1) or takes it back (-1): book quantity, what is there
    /// physically, what was sold, and the goods' total. A stock row that is missing starts with the
    /// given cost.
    void move(const JournalRow &row, int direction, Decimal newRowCost);
    /// Physical stock alone, of goods-in and goods-out.
    void movePhysically(const QString &goods, const QString &warehouse, Decimal quantity);
    /// The cost that the walk left for a stock row.
    void setCost(const QString &goods, const QString &warehouse, Decimal cost);

    /// The goods' average cost as it stands; nothing for a goods that is not there any more.
    [[nodiscard]] std::optional<Decimal> averageCost(const QString &goods) const {
        const auto known = m_goods.constFind(goods);
        if (known == m_goods.constEnd() || known->id == 0)
            return std::nullopt;
        return known->averageCost;
    }

    /// Writes the stock rows.
    void writeStock();

    /// Counters, last price, and the average cost over the warehouses (refreshGoodsCost).
    void count(const JournalRow &row, const GoodsEffect &effect, const QString &supplier);
    void refreshGoodsCost(const JournalRow &row, const Parameters &parameters);
    /// Writes the goods' figures.
    void writeGoods();

private:
    struct Stock {
        qint64 id = 0; ///< 0 until it is written
        Decimal physical, book, sold, cost;
        bool changed = false;
    };
    struct Goods {
        qint64 id = 0;
        Decimal total, averageCost, lastPrice;
        qint64 purchases = 0, sales = 0;
        QString supplier;
        bool changed = false;
    };
    using StockKey = std::pair<QString, QString>; // goods, warehouse

    Stock &stockOf(const QString &goods, const QString &warehouse, Decimal newRowCost);

    Database &m_db;
    std::map<StockKey, Stock> m_stock;
    QHash<QString, Goods> m_goods;
};

/// Physical quantity of a goods in a warehouse; 0 when there is no stock row.
[[nodiscard]] Decimal getKcsl(Database &db, const QString &goods, const QString &warehouse);

} // namespace jxc
