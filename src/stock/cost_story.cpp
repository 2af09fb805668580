#include "stock/cost_story.h"

#include "base/dates.h"
#include "core/session.h"
#include "db/database.h"
#include "stock/cost.h"
#include "stock/journal_kinds.h"

namespace jxc {

namespace {

const QString fields = QStringLiteral("id,gl_djh,gl_kdrq,gl_flag,gl_sl,gl_dj,gl_sqsl,gl_sqje,gl_kc,"
                                      "gl_pjjj,gl_kczje,dw_name");

/// "3月5日", with the year where another one than the reader's is meant.
QString dayText(const QString &date, const QString &today) {
    const QDate day = parseDate(date.left(10));
    if (!day.isValid())
        return date;
    const QString shortText = QStringLiteral("%1月%2日").arg(day.month()).arg(day.day());
    return date.left(4) == today.left(4) ? shortText
                                         : QStringLiteral("%1年%2").arg(day.year()).arg(shortText);
}

class Teller {
public:
    Teller(const Session &session, const JournalKey &key, const CostStoryEnd &end)
        : m_session(session)
        , m_parameters(session.parameters)
        , m_key(key)
        , m_end(end)
        , m_unit(session.db().scalar(QStringLiteral("select dw_name from jxc_goods where g_sn=?"),
                                     {key.goods})) {}

    CostStory tell(int mostRows) {
        const Rows rows = readRows(mostRows);
        CostStory story;
        if (rows.empty()) {
            story.cost = getCbjAt(m_session.db(), m_key.warehouse, m_key.goods, m_end.date);
            story.opening = QStringLiteral("此前没有出入库记录。");
            story.conclusion = QStringLiteral("成本按商品档案为 %1。").arg(price(story.cost));
            return story;
        }
        // The newest one was read first.
        JournalState state = stateBefore(rows.back());
        story.opening = openingText(rows.back(), state);
        for (size_t i = rows.size(); i-- > 0;) {
            story.rows.push_back(rowOf(rows[i], state));
            state = storedAfter(rows[i]);
        }
        story.cost = state.cost;
        story.conclusion = conclusion(story);
        return story;
    }

private:
    /// Newest first, down to the one that left no stock.
    Rows readRows(int mostRows) {
        Rows rows = m_session.db().rows(
            QStringLiteral("select %1 from jxc_goodslist where g_sn=? and ck_sn=? and "
                           "(gl_kdrq,id)<=(?,?) order by gl_kdrq desc,id desc limit %2")
                .arg(fields)
                .arg(mostRows),
            {m_key.goods, m_key.warehouse, m_end.date, m_end.row});
        for (size_t i = 1; i < rows.size(); ++i)
            if (rows[i].decimal(u"gl_kc").isZero()) {
                rows.erase(rows.begin() + static_cast<qsizetype>(i) + 1, rows.end());
                m_beginsEmpty = true;
                break;
            }
        return rows;
    }

    /// The cost of the row before, which no row keeps of itself.
    JournalState stateBefore(const Row &first) {
        const auto earlier = m_session.db().row(
            QStringLiteral("select gl_pjjj from jxc_goodslist where g_sn=? and ck_sn=? and "
                           "(gl_kdrq,id)<(?,?) order by gl_kdrq desc,id desc limit 1"),
            {m_key.goods, m_key.warehouse, first.text(u"gl_kdrq"), first.integer(u"id")});
        m_isFirstOfAll = !earlier;
        return {first.decimal(u"gl_sqsl"), earlier ? earlier->decimal(u"gl_pjjj") : Decimal(),
                first.decimal(u"gl_sqje")};
    }

    static JournalState storedAfter(const Row &row) {
        return {row.decimal(u"gl_kc"), row.decimal(u"gl_pjjj"), row.decimal(u"gl_kczje")};
    }

    QString openingText(const Row &first, const JournalState &before) const {
        if (m_isFirstOfAll)
            return QStringLiteral("此前没有出入库记录。");
        const QString day = dayText(first.text(u"gl_kdrq"), m_session.today());
        if (m_beginsEmpty)
            return QStringLiteral("%1这一笔之后库存为零，从这里讲起。").arg(day);
        return QStringLiteral("%1之前%2，成本 %3。")
            .arg(day, stockText(before.stock), price(before.cost));
    }

    CostStoryRow rowOf(const Row &row, const JournalState &before) const {
        CostStoryRow told;
        told.id = row.integer(u"id");
        told.number = row.text(u"gl_djh");
        told.date = row.text(u"gl_kdrq");
        told.flag = row.text(u"gl_flag");
        told.title = journalKind(told.flag).title.toString();
        told.change = journalKind(told.flag).stockChange(row.decimal(u"gl_sl"));
        told.price = row.decimal(u"gl_dj");
        told.step = journalStep(before, told.flag, row.decimal(u"gl_sl"), row.decimal(u"gl_dj"),
                                m_parameters);
        told.setsCost = told.step.branch != CostBranch::keptByKind &&
                        told.step.branch != CostBranch::keptByNothing;
        // A row that keeps the cost of an empty journal had the goods' own at the time.
        const bool costIsUnknown = m_isFirstOfAll && !told.setsCost && before.stock.isZero();
        if (costIsUnknown)
            told.step.after = storedAfter(row);
        told.differs = told.step.after != storedAfter(row);
        told.sentence = movedText(row, told) + QStringLiteral("：") + reasonText(row, told.step) +
                        QStringLiteral("，") + stockText(told.step.after.stock) +
                        QStringLiteral("、成本 ") + price(told.step.after.cost);
        if (told.differs)
            told.sentence +=
                QStringLiteral("（账面为 %1，请做库存核对）").arg(price(row.decimal(u"gl_pjjj")));
        return told;
    }

    /// "3月5日 采购进货单CJ26030510001 进 10 瓶，单价 3.30"
    QString movedText(const Row &row, const CostStoryRow &told) const {
        QString text = dayText(told.date, m_session.today()) + u' ' + told.title;
        if (!told.number.isEmpty())
            text += QStringLiteral("单") + told.number;
        text += (told.change.isNegative() ? QStringLiteral(" 出 ") : QStringLiteral(" 进 ")) +
                quantity(told.change.abs());
        if (journalKind(told.flag).setsCost(row.decimal(u"gl_sl")))
            text += QStringLiteral("，单价 ") + price(told.price);
        return text;
    }

    QString reasonText(const Row &row, const JournalStep &step) const {
        const QString worth = step.worth.abs()
                                  .rounded(m_parameters.amountDecimals)
                                  .toText(m_parameters.amountDecimals);
        const QString divided = QStringLiteral("%1 ÷ %2").arg(worth, quantity(step.averaged.abs()));
        switch (step.branch) {
        case CostBranch::keptByKind:
            return QStringLiteral("不改变成本");
        case CostBranch::keptByNothing:
            return QStringLiteral("没有数量可以平均，成本不变");
        case CostBranch::lastPrice:
            return QStringLiteral("库存归零，成本取本次单价");
        case CostBranch::average:
            if (step.before.stock.isZero())
                return QStringLiteral("此前无库存，成本取本次单价");
            return QStringLiteral("此前 %1按 %2，%3")
                .arg(quantity(step.before.stock), price(step.before.cost), divided);
        case CostBranch::averageOfAbsolutes:
            return QStringLiteral("此前 %1按 %2，与本次 %3方向相反，按绝对值平均，%4")
                .arg(quantity(step.before.stock), price(step.before.cost),
                     quantity(row.decimal(u"gl_sl")), divided);
        }
        return {};
    }

    [[nodiscard]] QString conclusion(const CostStory &story) const {
        const auto last = std::find_if(story.rows.rbegin(), story.rows.rend(),
                                       [](const CostStoryRow &row) { return row.setsCost; });
        if (last != story.rows.rend())
            return QStringLiteral("%1起成本为 %2。")
                .arg(dayText(last->date, m_session.today()), price(story.cost));
        return QStringLiteral("成本沿用此前的 %1。").arg(price(story.cost));
    }

    [[nodiscard]] QString price(Decimal value) const {
        return value.toText(m_parameters.priceDecimals);
    }
    [[nodiscard]] QString quantity(Decimal value) const {
        return m_unit.isEmpty() ? value.toText() + u' ' : value.toText() + u' ' + m_unit;
    }
    [[nodiscard]] QString stockText(Decimal stock) const {
        return stock.isZero() ? QStringLiteral("库存为零")
                              : QStringLiteral("库存 ") + quantity(stock);
    }

    const Session &m_session;
    const Parameters &m_parameters;
    const JournalKey &m_key;
    const CostStoryEnd &m_end;
    QString m_unit;
    bool m_beginsEmpty = false;
    bool m_isFirstOfAll = false;
};

} // namespace

CostStory costStory(const Session &session, const JournalKey &key, const CostStoryEnd &end,
                    int mostRows) {
    return Teller(session, key, end).tell(mostRows);
}

} // namespace jxc
