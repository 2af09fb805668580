#pragma once

#include "core/clock.h"

#include <QDate>
#include <functional>

namespace jxc {

class Session;

/// A stretch of lifelike trade.
struct DemoTrade {
    QDate firstDay;
    int days = 30;
    unsigned seed = 1;
};

/// What was played.
struct DemoCounts {
    int receipts = 0, purchaseReturns = 0, goodsIn = 0;
    int sales = 0, salesReturns = 0, cancelled = 0, backDated = 0, settlements = 0;
    int counterReceipts = 0, counterReturns = 0, recharges = 0, exchanges = 0, dayEnds = 0;
};

/// Plays day after day through the same functions as the forms: receipts by batch, sales for cash
/// and on account, returns, goods taken in later, back-dated receipts, cancelled sales, payments;
/// at the counter receipts of every tender, members who recharge, buy and take gifts, day ends.
/// The clock is set to each day. `progress` hears of every finished day and stops the play with
/// false. Throws std::runtime_error with the text of a document that could not be posted.
DemoCounts playDemoTrade(Session &session, FixedClock &clock, const DemoTrade &trade,
                         const std::function<bool(int day)> &progress = {});

} // namespace jxc
