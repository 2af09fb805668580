#pragma once

#include "base/decimal.h"
#include "services/verify_findings.h"

#include <map>
#include <tuple>

namespace jxc {
class Database;
class Row;
} // namespace jxc

namespace jxc::verify {

/// A goods in a warehouse.
struct StockPlace {
    QString goods, warehouse;
    [[nodiscard]] QString text() const;
    friend bool operator<(const StockPlace &a, const StockPlace &b) {
        return std::tie(a.goods, a.warehouse) < std::tie(b.goods, b.warehouse);
    }
    friend bool operator==(const StockPlace &, const StockPlace &) = default;
};

/// What tells the batches of a goods apart, as exact text.
struct BatchText {
    QString number, expiry, produced;
    [[nodiscard]] static BatchText of(const Row &row);
    /// As the batch stock keeps it: without a number there is one bucket, whose expiry is
    /// "0000-00".
    [[nodiscard]] BatchText kept() const;
    [[nodiscard]] QString text() const;
    friend bool operator<(const BatchText &a, const BatchText &b) {
        return std::tie(a.number, a.expiry, a.produced) < std::tie(b.number, b.expiry, b.produced);
    }
    friend bool operator==(const BatchText &, const BatchText &) = default;
};

/// One stored figure of the stock that is not what the documents make it.
struct StockDifference {
    enum class Figure { book, physical, batch, goods };
    Figure figure = Figure::book;
    StockPlace place; ///< of `goods`: without a warehouse
    BatchText batch{};
    Decimal found{}, due{};
};

/// What the stock must be by the documents and opening rows.
class DueStock {
public:
    /// The books and the cost after the journal's last row.
    void setBook(const StockPlace &place, Decimal quantity, Decimal cost, bool costIsKnown);
    /// Goods that came (positive) or went.
    void move(const StockPlace &place, const BatchText &batch, Decimal quantity);

    /// Where jxc_kcsp, jxc_tkc and jxc_goods.g_kc differ from it.
    [[nodiscard]] std::vector<StockDifference> differences(Database &db) const;
    /// The same in words.
    void check(Database &db, Findings &findings) const;
    /// Informs of costs in force that differ from the journal's.
    void compareCosts(Database &db, int priceDecimals, Findings &findings) const;

private:
    struct Stock {
        Decimal book, physical, cost;
        bool costIsKnown = false;
        std::map<BatchText, Decimal> batches;
    };
    struct Kept {
        Decimal book, physical, cost;
    };
    using KeptStock = std::map<StockPlace, Kept>;

    [[nodiscard]] static KeptStock keptStock(Database &db);
    void compareStock(Database &db, std::vector<StockDifference> &all) const;
    void compareBatches(Database &db, std::vector<StockDifference> &all) const;
    void compareGoods(Database &db, std::vector<StockDifference> &all) const;

    std::map<StockPlace, Stock> m_stock;
};

} // namespace jxc::verify
