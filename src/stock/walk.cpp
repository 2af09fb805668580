#include "stock/walk.h"

#include "db/database.h"
#include "db/in_list.h"
#include "stock/journal_kinds.h"

#include <QHash>
#include <map>

namespace jxc {

namespace {

/// Rows read at a time: enough to keep the engine busy, few enough to keep memory small.
constexpr int chunk = 4'000;
/// So many rows a goods are read together with those of the others; longer journals one by one.
constexpr int fewRows = 20;

const QString selectRows =
    QStringLiteral("select id,gl_kdrq,gl_flag,gl_sl,gl_dj,gl_sqsl,gl_sqje,gl_kc,gl_pjjj,gl_kczje,"
                   "g_sn from jxc_goodslist where ck_sn=? and g_sn");

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
    value,
    goods
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

/// Rows whose figures changed, written together.
class ChangedRows {
public:
    explicit ChangedRows(Database &db)
        : m_db(db) {}

    void add(const Row &row, const JournalState &before, const JournalState &after) {
        m_rows.push_back(
            {row.integer(id), before.stock, before.value, after.stock, after.cost, after.value});
        if (m_rows.size() >= chunk)
            write();
    }
    void write() {
        m_db.updateById(QStringLiteral("jxc_goodslist"),
                        {QStringLiteral("gl_sqsl"), QStringLiteral("gl_sqje"),
                         QStringLiteral("gl_kc"), QStringLiteral("gl_pjjj"),
                         QStringLiteral("gl_kczje")},
                        m_rows);
        m_rows.clear();
    }

private:
    Database &m_db;
    std::vector<Values> m_rows;
};

class Walk {
public:
    Walk(Database &db, const Parameters &parameters, const WalkStart &start,
         const JournalState &opening, ChangedRows &changed)
        : m_db(db)
        , m_parameters(parameters)
        , m_start(start)
        , m_state(opening)
        , m_changed(changed) {}

    /// From the first rows of the start's day, a chunk of them, to the end of the journal; the cost
    /// there.
    Decimal run(Rows rows) {
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
    Rows rowsAfter(const Row &last) {
        return m_db.rows(
            selectRows +
                QStringLiteral("=? and (gl_kdrq,id)>(?,?) order by gl_kdrq,id limit %1").arg(chunk),
            {m_start.key.warehouse, m_start.key.goods, last.text(date), last.integer(id)});
    }

    /// False when the rest of the journal stands as it is.
    bool take(const Rows &rows) {
        for (const Row &row : rows) {
            const JournalState before = m_state;
            m_state = applyJournalRow(before, row.text(flag), row.decimal(quantity),
                                      row.decimal(price), m_parameters);
            const JournalState stored{row.decimal(stock), row.decimal(cost), row.decimal(value)};
            const bool same = stored == m_state && row.decimal(openingStock) == before.stock &&
                              row.decimal(openingValue) == before.value;
            if (!same)
                m_changed.add(row, before, m_state);
            else if (isPastTheChange(row))
                return false;
        }
        return true;
    }

    [[nodiscard]] bool isPastTheChange(const Row &row) const {
        return !m_start.toTheEnd &&
               (row.integer(id) > m_start.lastTouched || row.text(date) > m_start.date);
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
    ChangedRows &m_changed;
};

Rows firstRows(Database &db, const WalkStart &start) {
    return db.rows(selectRows +
                       QStringLiteral("=? and gl_kdrq>=? order by gl_kdrq,id limit %1").arg(chunk),
                   {start.key.warehouse, start.key.goods, start.date});
}

Decimal walkAlone(Database &db, const Parameters &parameters, const WalkStart &start,
                  ChangedRows &changed) {
    return Walk(db, parameters, start, openingState(db, start), changed).run(firstRows(db, start));
}

/// The journals of one warehouse from one day on.
class JournalsOfDay {
public:
    JournalsOfDay(Database &db, const QString &warehouse, const QString &day,
                  const QStringList &goods)
        : m_db(db) {
        readRows(warehouse, day, goods);
        if (m_areWhole)
            readOpenings(warehouse, day, goods);
    }

    /// Whether they are short enough to be read together.
    [[nodiscard]] bool areWhole() const { return m_areWhole; }
    [[nodiscard]] JournalState openingOf(const WalkStart &start) const {
        const auto known = m_openings.constFind(start.key.goods);
        if (known != m_openings.constEnd())
            return *known;
        // Who knows the average cost has read the goods, so that it was looked for.
        return start.averageCost ? JournalState{{}, *start.averageCost, {}}
                                 : openingState(m_db, start);
    }
    [[nodiscard]] Rows takeRows(const QString &ofGoods) { return std::move(m_rows[ofGoods]); }

private:
    void readRows(const QString &warehouse, const QString &day, const QStringList &goodsList) {
        const InList list(goodsList);
        const size_t most = std::min<size_t>(chunk, fewRows * list.values.size());
        Values values{warehouse};
        values.insert(values.end(), list.values.begin(), list.values.end());
        values.emplace_back(day);
        Rows rows = m_db.rows(selectRows + QStringLiteral(" in %1 and gl_kdrq>=? order by g_sn,"
                                                          "gl_kdrq,id limit %2")
                                               .arg(list.marks)
                                               .arg(most),
                              values);
        m_areWhole = rows.size() < most;
        for (Row &row : rows)
            m_rows[row.text(goods)].push_back(std::move(row));
    }

    /// What stood before that day; a goods without an earlier row is left out.
    void readOpenings(const QString &warehouse, const QString &day, const QStringList &goodsList) {
        const InList list(goodsList);
        Values values{warehouse, day};
        values.insert(values.end(), list.values.begin(), list.values.end());
        for (const Row &row : m_db.rows(
                 QStringLiteral("select j.g_sn,j.gl_kc,j.gl_pjjj,j.gl_kczje from jxc_goodslist j "
                                "where j.id in (select (select b.id from jxc_goodslist b where "
                                "b.g_sn=g.g_sn and b.ck_sn=? and b.gl_kdrq<? order by b.gl_kdrq "
                                "desc,b.id desc limit 1) from jxc_goods g where g.g_sn in %1)")
                     .arg(list.marks),
                 values))
            m_openings.insert(row.text(u"g_sn"), {row.decimal(u"gl_kc"), row.decimal(u"gl_pjjj"),
                                                  row.decimal(u"gl_kczje")});
    }

    Database &m_db;
    bool m_areWhole = false;
    QHash<QString, Rows> m_rows;
    QHash<QString, JournalState> m_openings;
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
    ChangedRows changed(db);
    const Decimal cost = walkAlone(db, parameters, start, changed);
    changed.write();
    return cost;
}

std::vector<Decimal> reCalcGoodsLists(Database &db, const Parameters &parameters,
                                      const std::vector<WalkStart> &starts) {
    std::map<QString, QStringList> goodsOfWarehouse;
    for (const WalkStart &start : starts)
        goodsOfWarehouse[start.key.warehouse] << start.key.goods;
    std::map<QString, JournalsOfDay> journals;
    for (const auto &[warehouse, goodsList] : goodsOfWarehouse)
        journals.try_emplace(warehouse, db, warehouse, starts.front().date, goodsList);
    ChangedRows changed(db);
    std::vector<Decimal> costs;
    for (const WalkStart &start : starts) {
        JournalsOfDay &together = journals.at(start.key.warehouse);
        costs.push_back(together.areWhole()
                            ? Walk(db, parameters, start, together.openingOf(start), changed)
                                  .run(together.takeRows(start.key.goods))
                            : walkAlone(db, parameters, start, changed));
    }
    changed.write();
    return costs;
}

} // namespace jxc
