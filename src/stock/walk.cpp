#include "stock/walk.h"

#include "db/database.h"
#include "stock/journal_kinds.h"

namespace jxc {

namespace {

/// Rows read at a time: enough to keep the engine busy, few enough to keep memory small.
constexpr int chunk = 4'000;

const QString selectRows =
    QStringLiteral("select id,gl_kdrq,gl_flag,gl_sl,gl_dj,gl_sqsl,gl_sqje,gl_kc,gl_pjjj,gl_kczje "
                   "from jxc_goodslist "
                   "where g_sn=? and ck_sn=? ");

// Positions in that select, read once per row of a journal that may be long.
enum Field : size_t {
    id,
    date,
    flag,
    quantity,
    price,
    openingStock,
    openingValue,
    stock,
    cost,
    value
};

JournalState openingState(Database &db, const WalkStart &start) {
    const auto row =
        db.row(QStringLiteral("select gl_kc,gl_pjjj,gl_kczje from jxc_goodslist where g_sn=? "
                              "and ck_sn=? and gl_kdrq<? order by gl_kdrq desc,id desc limit 1"),
               {start.key.goods, start.key.warehouse, start.date});
    if (row)
        return {row->decimal(u"gl_kc"), row->decimal(u"gl_pjjj"), row->decimal(u"gl_kczje")};
    if (start.averageCost)
        return {{}, *start.averageCost, {}};
    const auto goods =
        db.row(QStringLiteral("select g_pjjj from jxc_goods where g_sn=?"), {start.key.goods});
    return {{}, goods ? goods->decimal(u"g_pjjj") : Decimal(), {}};
}

class Walk {
public:
    Walk(Database &db, const Parameters &parameters, const WalkStart &start)
        : m_db(db)
        , m_parameters(parameters)
        , m_start(start)
        , m_state(openingState(db, start)) {}

    /// The cost at the end of the journal.
    Decimal run() {
        Rows rows = firstRows();
        while (!rows.empty()) {
            if (!take(rows))
                return lastCost();
            if (rows.size() < chunk)
                break;
            rows = rowsAfter(rows.back());
        }
        return m_state.cost;
    }

private:
    Rows firstRows() {
        return m_db.rows(
            selectRows + QStringLiteral("and gl_kdrq>=? order by gl_kdrq,id limit %1").arg(chunk),
            {m_start.key.goods, m_start.key.warehouse, m_start.date});
    }

    Rows rowsAfter(const Row &last) {
        return m_db.rows(
            selectRows +
                QStringLiteral("and (gl_kdrq,id)>(?,?) order by gl_kdrq,id limit %1").arg(chunk),
            {m_start.key.goods, m_start.key.warehouse, last.text(date), last.integer(id)});
    }

    /// False when the rest of the journal stands as it is.
    bool take(const Rows &rows) {
        std::vector<Values> changed;
        bool goOn = true;
        for (const Row &row : rows) {
            const JournalState before = m_state;
            m_state = applyJournalRow(before, row.text(flag), row.decimal(quantity),
                                      row.decimal(price), m_parameters);
            const JournalState stored{row.decimal(stock), row.decimal(cost), row.decimal(value)};
            const bool same = stored == m_state && row.decimal(openingStock) == before.stock &&
                              row.decimal(openingValue) == before.value;
            if (!same)
                changed.push_back({row.integer(id), before.stock, before.value, m_state.stock,
                                   m_state.cost, m_state.value});
            else if (isPastTheChange(row)) {
                goOn = false;
                break;
            }
        }
        m_db.updateById(QStringLiteral("jxc_goodslist"),
                        {QStringLiteral("gl_sqsl"), QStringLiteral("gl_sqje"),
                         QStringLiteral("gl_kc"), QStringLiteral("gl_pjjj"),
                         QStringLiteral("gl_kczje")},
                        changed);
        return goOn;
    }

    [[nodiscard]] bool isPastTheChange(const Row &row) const {
        return row.integer(id) > m_start.lastTouched || row.text(date) > m_start.date;
    }

    Decimal lastCost() {
        const auto row =
            m_db.row(QStringLiteral("select gl_pjjj from jxc_goodslist where g_sn=? and "
                                    "ck_sn=? order by gl_kdrq desc,id desc limit 1"),
                     {m_start.key.goods, m_start.key.warehouse});
        return row->decimal(u"gl_pjjj");
    }

    Database &m_db;
    const Parameters &m_parameters;
    const WalkStart &m_start;
    JournalState m_state;
};

} // namespace

JournalStep journalStep(const JournalState &before, QStringView flagText, Decimal rowQuantity,
                        Decimal rowPrice, const Parameters &parameters) {
    const JournalKind &kind = journalKind(flagText);
    JournalStep step{before, before.stock, Product(before.value), CostBranch::keptByKind, before};
    JournalState &after = step.after;

    // (1) the stock moves, and the quantities and values that the average is taken over
    const Product rowWorth = rowQuantity * rowPrice;
    after.stock += kind.stockChange(rowQuantity);
    bool opposite = false;
    if (kind.stockRule == StockRule::add) {
        opposite = (rowQuantity.isPositive() && before.stock.isNegative()) ||
                   (rowQuantity.isNegative() && before.stock.isPositive());
        step.averaged =
            opposite ? before.stock.abs() + rowQuantity.abs() : before.stock + rowQuantity;
        step.worth = opposite ? step.worth.abs() + rowWorth.abs() : step.worth + rowWorth;
    }

    // (2) the cost
    if (kind.setsCost(rowQuantity)) {
        if (step.averaged.isZero())
            step.branch = CostBranch::keptByNothing;
        else {
            if (!after.stock.isZero())
                after.stock = after.stock.roundedUp9(parameters.quantityDecimals);
            // A stock that rounds to nothing is nothing from there on.
            step.branch = after.stock.isZero() ? CostBranch::lastPrice
                          : opposite           ? CostBranch::averageOfAbsolutes
                                               : CostBranch::average;
            after.cost =
                after.stock.isZero()
                    ? rowPrice
                    : (step.worth / step.averaged).abs().roundedUp9(parameters.priceDecimals);
        }
    }

    // (3) what is stored
    after.cost = after.cost.roundedUp9(parameters.priceDecimals);
    after.stock = after.stock.roundedUp9(parameters.quantityDecimals);
    after.value = after.stock.isZero()
                      ? Decimal()
                      : (after.cost * after.stock).roundedUp9(parameters.amountDecimals);
    return step;
}

JournalState applyJournalRow(const JournalState &before, QStringView flagText, Decimal rowQuantity,
                             Decimal rowPrice, const Parameters &parameters) {
    return journalStep(before, flagText, rowQuantity, rowPrice, parameters).after;
}

Decimal reCalcGoodsList(Database &db, const Parameters &parameters, const WalkStart &start) {
    return Walk(db, parameters, start).run();
}

} // namespace jxc
