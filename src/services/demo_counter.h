#pragma once

#include "core/clock.h"
#include "master/goods_search.h"
#include "retail/counter_settings.h"
#include "stock/batches.h"

#include <QStringList>
#include <random>
#include <vector>

namespace jxc {

class Prompter;
class Session;
struct DemoCounts;

/// A goods as the play of the demo shop keeps it.
struct DemoGoods {
    QString number;
    Decimal buying, selling, limit;
    int shelfLife = 0; ///< months
    bool restricted = false;
    Batch batch{}; ///< of the last receipt
    int stock = 0; ///< whole base units, as the play keeps count
};

/// A day at the counter of the demo shop: change is put into the till, members recharge their
/// cards, receipts are rung up and paid in every way, something comes back; what the day before
/// took is settled in the morning.
class DemoCounter {
public:
    DemoCounter(Session &session, Prompter &prompter, std::mt19937 &random,
                std::vector<DemoGoods> &goods, DemoCounts &counts);

    void playDay(FixedClock &clock);

private:
    void settleYesterday();
    void ringUp();
    void giveBack();
    void recharge();
    void exchange();
    int between(int low, int high);
    bool chance(int percent) { return between(1, 100) <= percent; }
    [[nodiscard]] QString anyMember();

    Session &m_session;
    Prompter &m_prompter;
    std::mt19937 &m_random;
    std::vector<DemoGoods> &m_goods;
    DemoCounts &m_counts;
    GoodsFinder m_finder;
    CounterSettings m_settings;
    QStringList m_members, m_today;
};

} // namespace jxc
