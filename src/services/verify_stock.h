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

/// What the stock must be by the documents and opening rows.
class DueStock {
public:
    /// The books and the cost after the journal's last row.
    void setBook(const StockPlace &place, Decimal quantity, Decimal cost, bool costIsKnown);
    /// Goods that came (positive) or went.
    void move(const StockPlace &place, const BatchText &batch, Decimal quantity);

    /// Holds jxc_kcsp, jxc_tkc and jxc_goods.g_kc against it.
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
    void checkStock(Database &db, Findings &findings) const;
    void checkBatches(Database &db, Findings &findings) const;
    void checkGoods(Database &db, Findings &findings) const;

    std::map<StockPlace, Stock> m_stock;
};

} // namespace jxc::verify
