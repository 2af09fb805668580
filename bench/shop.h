#pragma once

#include "core/session.h"
#include "support/test_database.h"

namespace jxc::bench {

/// How large a shop is before anything is measured.
struct ShopSize {
    int goods = 200;      ///< that the measured documents are about, all with stock
    int stockedGoods = 0; ///< more goods in stock, that no document touches
    int otherJournal = 0; ///< journal rows of other goods
    int laterRows = 0;    ///< journal rows of the first goods after the documents' date
};

/// An account set with a shop of a size, and an operator who may do everything.
class Shop {
public:
    Shop(Engine engine, const ShopSize &size);

    [[nodiscard]] Session &session() { return m_session; }
    [[nodiscard]] Database &db() { return m_place.db(); }
    [[nodiscard]] const Location &location() const { return m_place.location(); }

    /// Saves a receipt of this many lines, unapproved; the same in every shop of one size.
    QString draftReceipt(int lines, int firstGoods, const QString &date);

private:
    void fill(const ShopSize &size);

    test::TestDatabase m_place;
    FixedClock m_clock;
    Session m_session;
};

} // namespace jxc::bench
