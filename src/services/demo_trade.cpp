#include "services/demo_trade.h"

#include "base/dates.h"
#include "core/session.h"
#include "db/database.h"
#include "money/partner_ledger.h"
#include "money/settlement.h"
#include "money/settlement_draft.h"
#include "services/demo_counter.h"
#include "stock/draft.h"
#include "stock/posting.h"
#include "stock/source_entry.h"

#include <random>

namespace jxc {

namespace {

using Goods = DemoGoods;

class Play {
public:
    Play(Session &session, FixedClock &clock, const DemoTrade &trade)
        : m_session(session)
        , m_clock(clock)
        , m_trade(trade)
        , m_random(trade.seed)
        , m_counter(session, m_prompter, m_random, m_goods, m_counts) {
        readShop();
    }

    DemoCounts run(const std::function<bool(int)> &progress) {
        for (int day = 0; day < m_trade.days; ++day) {
            m_day = m_trade.firstDay.addDays(day);
            m_clock.set(QDateTime(m_day, QTime(8, 0)));
            playDay(day);
            if (progress && !progress(day))
                break;
        }
        return m_counts;
    }

private:
    void readShop() {
        Database &db = m_session.db();
        for (const Row &row :
             db.rows(QStringLiteral("select g_sn,g_jj,g_sj,g_xzsl,g_bzq,g_iscf from "
                                    "jxc_goods where g_jy=0 order by id"))) {
            m_goods.push_back({row.text(u"g_sn"), row.decimal(u"g_jj"), row.decimal(u"g_sj"),
                               row.decimal(u"g_xzsl"), static_cast<int>(row.integer(u"g_bzq")),
                               row.flag(u"g_iscf")});
        }
        m_suppliers = codes(QStringLiteral("select ghs_sn from jxc_ghsxx order by id"));
        m_customers = codes(QStringLiteral("select kh_sn from jxc_khxx order by id"));
        m_clerks = codes(QStringLiteral("select u_sn from jxc_user order by id"));
    }

    QStringList codes(const QString &sql) {
        QStringList list;
        for (const Row &row : m_session.db().rows(sql))
            list << row.text(size_t{0});
        return list;
    }

    void playDay(int day) {
        const int receipts = day == 0 ? 6 : between(1, 2);
        for (int i = 0; i < receipts; ++i)
            buy(m_day, day == 0 ? 20 : between(3, 10));
        if (day > 5 && chance(15)) {
            buy(m_day.addDays(-between(1, 5)), between(2, 5));
            ++m_counts.backDated;
        }
        if (chance(30))
            buyAndTakeInLater();
        const int sales = between(8, 16);
        for (int i = 0; i < sales; ++i)
            sell();
        if (chance(40))
            customerReturns();
        if (chance(25))
            returnToSupplier();
        if (chance(60))
            settle(QStringLiteral("SK"), pick(m_customers));
        if (chance(40))
            settle(QStringLiteral("FK"), pick(m_suppliers));
        m_counter.playDay(m_clock);
    }

    Draft draftFor(const QString &code, const QDate &day, const QString &partner) {
        Draft d;
        d.code = code;
        d.date = toDateText(day);
        d.partner = partner;
        d.warehouse = administratorNo; // the main warehouse bears the same first number
        d.clerk = pick(m_clerks);
        return d;
    }

    DraftLine incoming(Goods &goods, const QDate &day) {
        DraftLine line{.goods = goods.number};
        const int quantity = between(2, 12) * 5;
        line.quantity = quantity;
        line.price =
            (goods.buying * Decimal::fromMicros(960'000 + between(0, 80) * 1'000)).rounded(2);
        const QDate produced = day.addDays(-between(20, 120));
        const QDate expiry = produced.addMonths(goods.shelfLife > 0 ? goods.shelfLife : 24);
        line.batch = {produced.toString(QStringLiteral("yyyyMMdd")) +
                          QString::number(between(1, 3)),
                      toDateText(expiry), toDateText(produced)};
        goods.batch = line.batch;
        goods.stock += quantity;
        return line;
    }

    void buy(const QDate &day, int lines) {
        Draft d = draftFor(QStringLiteral("CJ"), day, pick(m_suppliers));
        for (int i = 0; i < lines; ++i)
            d.lines.push_back(incoming(pick(m_goods), day));
        if (chance(50))
            d.paid = Decimal();
        if (chance(20)) {
            d.freight = between(2, 12) * 5;
            d.freightTerms = QStringLiteral("我方付运费");
        }
        post(d);
        ++m_counts.receipts;
    }

    void buyAndTakeInLater() {
        Draft d = draftFor(QStringLiteral("CJ"), m_day, pick(m_suppliers));
        for (int i = 0; i < 3; ++i)
            d.lines.push_back(incoming(pick(m_goods), m_day));
        d.laterInOut = true;
        d.paid = Decimal();
        const QString receipt = post(d);
        QString goodsIn;
        demand(fillFromSource(m_session, m_prompter, receipt, d.date, &goodsIn), receipt);
        demand(approveDocument(m_session, m_prompter, goodsIn), goodsIn);
        ++m_counts.receipts;
        ++m_counts.goodsIn;
    }

    void sell() {
        const bool onAccount = chance(45);
        Draft d =
            draftFor(QStringLiteral("XS"), m_day, onAccount ? pick(m_customers) : administratorNo);
        const int lines = between(1, 5);
        for (int i = 0; i < lines; ++i)
            addOutgoing(d);
        if (d.lines.empty())
            return;
        if (onAccount && d.partner != administratorNo)
            d.paid = Decimal();
        const QString number = post(d);
        ++m_counts.sales;
        if (!chance(3))
            return;
        demand(cancelDocument(m_session, m_prompter, number), number);
        if (chance(50))
            demand(approveDocument(m_session, m_prompter, number), number);
        ++m_counts.cancelled;
    }

    void addOutgoing(Draft &d) {
        Goods &goods = pick(m_goods);
        if (goods.stock < 3)
            return;
        for (const DraftLine &line : d.lines)
            if (line.goods == goods.number)
                return;
        const int quantity = std::min(between(1, 6), goods.stock);
        if (goods.limit.isPositive() && Decimal(quantity) > goods.limit)
            return;
        DraftLine line{.goods = goods.number};
        line.quantity = quantity;
        line.price = goods.selling;
        line.batch = goods.batch;
        if (chance(10))
            line.discount = Decimal::fromMicros(950'000);
        if (goods.restricted) {
            line.buyer = QStringLiteral("登记购买人");
            line.identityNo = QStringLiteral("999999200001010011");
            line.mobile = QStringLiteral("12000000000");
            line.use = QStringLiteral("大田防治");
        }
        goods.stock -= quantity;
        d.lines.push_back(line);
    }

    void customerReturns() {
        Goods &goods = pick(m_goods);
        if (goods.batch.number.isEmpty())
            return;
        Draft d = draftFor(QStringLiteral("XT"), m_day, pick(m_customers));
        DraftLine line{.goods = goods.number};
        line.quantity = 1;
        line.price = goods.selling;
        line.batch = goods.batch;
        goods.stock += 1;
        d.lines.push_back(line);
        post(d);
        ++m_counts.salesReturns;
    }

    void returnToSupplier() {
        Goods &goods = pick(m_goods);
        if (goods.stock < 10)
            return;
        Draft d = draftFor(QStringLiteral("CT"), m_day, pick(m_suppliers));
        DraftLine line{.goods = goods.number};
        line.quantity = 2;
        line.price = goods.buying;
        line.batch = goods.batch;
        goods.stock -= 2;
        d.lines.push_back(line);
        post(d);
        ++m_counts.purchaseReturns;
    }

    void settle(const QString &code, const QString &partner) {
        const Partner::Kind kind =
            code == QLatin1String("SK") ? Partner::Kind::customer : Partner::Kind::supplier;
        const Decimal owed = CurrentBalance(m_session.db(), {kind, partner});
        if (!owed.isPositive())
            return;
        SettlementDraft d{code, toDateText(m_day), partner, administratorNo, owed};
        if (chance(40))
            d.amount = (owed * Decimal::fromMicros(500'000)).rounded(2);
        d.parts = spreadOldestFirst(openItems(m_session, kind, partner), d.amount);
        QString number;
        demand(saveSettlement(m_session, m_prompter, d, &number), code);
        demand(approveSettlement(m_session, m_prompter, number), number);
        ++m_counts.settlements;
    }

    QString post(const Draft &d) {
        QString number;
        demand(saveDraft(m_session, m_prompter, d, &number), d.code);
        demand(approveDocument(m_session, m_prompter, number), number);
        return number;
    }

    static void demand(const Outcome &outcome, const QString &what) {
        if (!outcome.isDone())
            throw std::runtime_error((what + u'：' + outcome.text).toStdString());
    }

    int between(int low, int high) {
        return low + static_cast<int>(m_random() % static_cast<unsigned>(high - low + 1));
    }
    bool chance(int percent) { return between(1, 100) <= percent; }
    template<class List>
    typename List::reference pick(List &list) {
        const auto index = m_random() % static_cast<std::mt19937::result_type>(list.size());
        return list[static_cast<typename List::size_type>(index)];
    }

    Session &m_session;
    FixedClock &m_clock;
    DemoTrade m_trade;
    std::mt19937 m_random; // its numbers are the same everywhere: a seed replays the shop
    AgreeingPrompter m_prompter;
    QDate m_day;
    DemoCounts m_counts;
    std::vector<Goods> m_goods;
    QStringList m_suppliers, m_customers, m_clerks;
    DemoCounter m_counter;
};

} // namespace

DemoCounts playDemoTrade(Session &session, FixedClock &clock, const DemoTrade &trade,
                         const std::function<bool(int)> &progress) {
    return Play(session, clock, trade).run(progress);
}

} // namespace jxc
