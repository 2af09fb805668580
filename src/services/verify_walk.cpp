#include "services/verify_walk.h"

#include "core/parameters.h"
#include "services/verify_documents.h"
#include "stock/document_kind.h"
#include "stock/journal_kinds.h"

#include <QSet>

namespace jxc::verify {

namespace {

const QString journalTable = QStringLiteral("jxc_goodslist");

/// Stock, average cost and stock value between two rows.
struct Running {
    Decimal stock, cost, value;
};

/// Null for a kind that the books do not know.
const JournalKind *kindOf(const QString &flag) {
    try {
        return &journalKind(flag);
    } catch (const std::logic_error &) {
        return nullptr;
    }
}

/// The average cost that a row leaves.
///
/// Incoming value joins the value in stock. Where the row goes against the sign of the stock, both
/// count by their size, as the books have always had it. A stock that comes to nothing keeps the
/// row's own price.
Decimal costAfter(const Running &before, Decimal stockAfter, Decimal quantity, Decimal price,
                  const Parameters &parameters) {
    const bool against = (quantity.isPositive() && before.stock.isNegative()) ||
                         (quantity.isNegative() && before.stock.isPositive());
    const Product rowValue = quantity * price;
    const Product oldValue(before.value);
    const Decimal weight = against ? before.stock.abs() + quantity.abs() : before.stock + quantity;
    const Product value = against ? oldValue.abs() + rowValue.abs() : oldValue + rowValue;
    if (weight.isZero())
        return before.cost;
    if (stockAfter.roundedUp9(parameters.quantityDecimals).isZero())
        return price;
    return (value / weight).abs().roundedUp9(parameters.priceDecimals);
}

Running afterRow(const Running &before, const JournalKind &kind, Decimal quantity, Decimal price,
                 const Parameters &parameters) {
    Running after;
    after.stock =
        kind.stockRule == StockRule::subtract ? before.stock - quantity : before.stock + quantity;
    after.cost = kind.setsCost(quantity)
                     ? costAfter(before, after.stock, quantity, price, parameters)
                     : before.cost;
    after.stock = after.stock.roundedUp9(parameters.quantityDecimals);
    after.cost = after.cost.roundedUp9(parameters.priceDecimals);
    after.value = (after.stock * after.cost).roundedUp9(parameters.amountDecimals);
    return after;
}

/// What the journal says of a goods' own figures.
struct GoodsHistory {
    qint64 purchases = 0, sales = 0;
    qint64 lastReceipt = 0; ///< id of the row
    Decimal lastPrice;
};

class FigureCheck {
public:
    FigureCheck(Database &db, const Parameters &parameters, bool all, DueStock &stock,
                Findings &findings)
        : m_db(db)
        , m_parameters(parameters)
        , m_all(all)
        , m_stock(stock)
        , m_findings(findings) {
        for (const PostingKind &kind : postingKinds())
            m_codes.insert(kind.code);
        for (const Row &row : db.rows(QStringLiteral("select gl_djh from jxc_dhd")))
            m_redemptions.insert(row.text(size_t{0}));
    }

    void run() {
        reportIncomplete();
        eachRow(m_db,
                {.select = QStringLiteral(
                     "g_sn,ck_sn,gl_kdrq,id,gl_flag,gl_djh,gl_sl,gl_dj,gl_sqsl,gl_sqje,gl_kc,"
                     "gl_pjjj,gl_kczje,gl_note,t_ph,t_yxq,t_scrq"),
                 .from = journalTable,
                 .keys = {QStringLiteral("g_sn"), QStringLiteral("ck_sn"),
                          QStringLiteral("gl_kdrq"), QStringLiteral("id")}},
                [this](const Row &row) { take(row); });
        leavePlace();
        if (m_all)
            compareHistory();
    }

private:
    /// Rows that cannot be put in order.
    void reportIncomplete() {
        for (const Row &row :
             m_db.rows(QStringLiteral("select id from jxc_goodslist where g_sn is null or "
                                      "ck_sn is null or gl_kdrq is null order by id")))
            m_findings.add(journalTable, QStringLiteral("流水 %1").arg(row.integer(u"id")),
                           QStringLiteral("流水 %1 缺少商品、仓库或日期").arg(row.integer(u"id")));
    }

    void take(const Row &row) {
        const StockPlace place{row.text(u"g_sn"), row.text(u"ck_sn")};
        if (place != m_place)
            enterPlace(place);
        checkOrigin(row);
        const bool beforeBooks = row.text(u"gl_note") == QStringView(u"[-前期数据-]");
        if (place.goods == discountGoods || beforeBooks)
            return;
        const JournalKind *kind = kindOf(row.text(u"gl_flag"));
        if (kind == nullptr) {
            report(row, QStringLiteral("业务类型“%1”不存在").arg(row.text(u"gl_flag")));
            m_broken = true;
            return;
        }
        const Decimal quantity = row.decimal(u"gl_sl");
        m_book += kind->stockChange(quantity);
        m_costIsKnown = m_costIsKnown || kind->writesStockCost();
        if (isGiven(row))
            m_stock.move(place, BatchText::of(row), kind->stockChange(quantity));
        checkFigures(row, *kind, quantity);
        if (m_all)
            remember(row);
    }

    void enterPlace(const StockPlace &place) {
        leavePlace();
        m_place = place;
        m_book = Decimal();
        m_running = {};
        m_first = true;
        m_broken = m_costIsKnown = false;
    }

    void leavePlace() {
        if (!m_first)
            m_stock.setBook(m_place, m_book, m_running.cost, m_costIsKnown && !m_broken);
    }

    /// Rows that the documents' own check does not meet: opening stock, and gifts that an older
    /// release numbered otherwise.
    [[nodiscard]] bool isGiven(const Row &row) const {
        const QString flag = row.text(u"gl_flag");
        return flag == QLatin1String("qc") ||
               (flag == QLatin1String("dh") && !m_codes.contains(row.text(u"gl_djh").left(2)));
    }

    /// Numbers that the documents' own check does not meet.
    void checkOrigin(const Row &row) {
        const QString number = row.text(u"gl_djh");
        if (m_codes.contains(number.left(2)) || row.text(u"gl_flag") == QLatin1String("qc") ||
            row.text(u"gl_note") == QStringView(u"[-前期数据-]") || m_redemptions.contains(number))
            return;
        report(row, QStringLiteral("单据“%1”不存在，不应有流水").arg(number));
    }

    void checkFigures(const Row &row, const JournalKind &kind, Decimal quantity) {
        // The cost before the first row is a matter of what the goods had cost until then; a row
        // that sets no cost of its own shows it.
        if (std::exchange(m_first, false))
            m_running.cost = row.decimal(u"gl_pjjj");
        const Running before = m_running;
        m_running = afterRow(before, kind, quantity, row.decimal(u"gl_dj"), m_parameters);
        if (m_broken)
            return;
        QStringList wrong = {
            compared(QStringLiteral("期初数量"), row.decimal(u"gl_sqsl"), before.stock),
            compared(QStringLiteral("期初金额"), row.decimal(u"gl_sqje"), before.value),
            compared(QStringLiteral("结存数量"), row.decimal(u"gl_kc"), m_running.stock),
            compared(QStringLiteral("平均成本价"), row.decimal(u"gl_pjjj"), m_running.cost),
            compared(QStringLiteral("结存金额"), row.decimal(u"gl_kczje"), m_running.value)};
        wrong.removeAll(QString());
        if (wrong.isEmpty())
            return;
        m_broken = true; // what follows is wrong only because of this row
        report(row, QStringLiteral("单据“%1”的%2").arg(row.text(u"gl_djh"), wrong.first()));
    }

    void report(const Row &row, const QString &text) {
        const StockPlace place{row.text(u"g_sn"), row.text(u"ck_sn")};
        m_findings.add(journalTable, place.text(),
                       QStringLiteral("%1：流水 %2（%3），%4")
                           .arg(place.text())
                           .arg(row.integer(u"id"))
                           .arg(row.text(u"gl_kdrq"), text),
                       {row.text(u"gl_kdrq"), row.integer(u"id")});
    }

    void remember(const Row &row) {
        GoodsHistory &history = m_history[m_place.goods];
        const QString flag = row.text(u"gl_flag");
        if (flag == QLatin1String("ct"))
            --history.purchases;
        else if (flag == QLatin1String("xs") || flag == QLatin1String("xt"))
            ++history.sales;
        if (flag != QLatin1String("cj"))
            return;
        ++history.purchases;
        if (row.integer(u"id") < history.lastReceipt)
            return;
        history.lastReceipt = row.integer(u"id");
        history.lastPrice = row.decimal(u"gl_dj");
    }

    void compareHistory() {
        for (const Row &row : m_db.rows(
                 QStringLiteral(
                     "select g_sn,g_scjj,g_cgpl,g_xspl from jxc_goods where g_sn<>? order by id"),
                 {discountGoods})) {
            const QString goods = row.text(u"g_sn");
            const GoodsHistory history = m_history[goods];
            QStringList differs = {
                compared(QStringLiteral("采购次数 g_cgpl "), row.decimal(u"g_cgpl"),
                         Decimal::fromInteger(history.purchases)),
                compared(QStringLiteral("销售次数 g_xspl "), row.decimal(u"g_xspl"),
                         Decimal::fromInteger(history.sales))};
            if (history.lastReceipt != 0)
                differs << compared(QStringLiteral("上次进价 g_scjj "), row.decimal(u"g_scjj"),
                                    history.lastPrice);
            differs.removeAll(QString());
            if (!differs.isEmpty())
                m_findings.inform(
                    QStringLiteral("jxc_goods"), QStringLiteral("商品 %1").arg(goods),
                    QStringLiteral("商品 %1：%2").arg(goods, differs.join(QStringLiteral("；"))));
        }
    }

    Database &m_db;
    const Parameters &m_parameters;
    bool m_all;
    DueStock &m_stock;
    Findings &m_findings;
    QSet<QString> m_codes, m_redemptions;
    std::map<QString, GoodsHistory> m_history;

    // the goods and warehouse that is being followed
    StockPlace m_place;
    Decimal m_book;
    Running m_running;
    bool m_first = true;   ///< no row of the books so far
    bool m_broken = false; ///< a wrong row was met
    bool m_costIsKnown = false;
};

} // namespace

void checkJournalFigures(Database &db, const Parameters &parameters, bool all, DueStock &stock,
                         Findings &findings) {
    FigureCheck(db, parameters, all, stock, findings).run();
}

} // namespace jxc::verify
