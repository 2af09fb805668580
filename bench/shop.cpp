#include "shop.h"

#include "core/prompter.h"
#include "db/transaction.h"
#include "stock/draft.h"

namespace jxc::bench {

namespace {

QString goodsNumber(int index) {
    return QString::number(30'000'000 + index);
}

void insertGoods(Database &db, int first, int count) {
    std::vector<Values> goods;
    std::vector<Values> stock;
    for (int i = first; i < first + count; ++i) {
        goods.push_back({goodsNumber(i), u"试验商品", u"瓶", Decimal(8), Decimal(12), Decimal(8),
                         Decimal(10), 0, u"100001"});
        stock.push_back(
            {goodsNumber(i), u"100001", Decimal(10), Decimal(10), Decimal(0), Decimal(8)});
    }
    db.insertRows(
        QStringLiteral("jxc_goods"),
        QStringLiteral("g_sn,g_name,dw_name,g_jj,g_sj,g_pjjj,g_kc,g_jy,ghs_sn").split(u','), goods);
    db.insertRows(QStringLiteral("jxc_kcsp"),
                  QStringLiteral("g_sn,ck_sn,kc_sl,kc_zsl,kc_xssl,kc_cbj").split(u','), stock);
}

void insertJournal(Database &db, int count, const std::function<QString(int)> &goods,
                   const QString &date) {
    static const QStringList columns =
        QStringLiteral(
            "gl_flag,gl_djh,gl_kdrq,g_sn,g_name,dw_name,gl_dj,gl_sl,gl_zje,gl_je,gl_sqsl,gl_sqje,"
            "gl_pjjj,gl_kc,gl_kczje,ck_sn,ck_name,u_name,a_name,t_ph,t_scrq,t_yxq")
            .split(u',');
    std::vector<Values> rows;
    for (int i = 0; i < count; ++i) {
        const bool in = i % 2 == 0;
        rows.push_back({in ? u"cj" : u"xs",
                        QStringLiteral("CJ%1").arg(2'603'010'0001 + i),
                        date,
                        goods(i),
                        u"试验商品",
                        u"瓶",
                        Decimal(in ? 8 : 12),
                        Decimal(1),
                        Decimal(8),
                        Decimal(8),
                        Decimal(0),
                        Decimal(0),
                        Decimal(8),
                        Decimal(in ? 1 : 0),
                        Decimal(in ? 8 : 0),
                        u"100001",
                        u"主仓库",
                        u"默认员工",
                        u"admin",
                        u"",
                        u"",
                        u"0000-00"});
        if (rows.size() < 5'000 && i + 1 < count)
            continue;
        db.insertRows(QStringLiteral("jxc_goodslist"), columns, rows);
        rows.clear();
    }
}

} // namespace

Shop::Shop(Engine engine, const ShopSize &size)
    : m_place(engine)
    , m_clock(QDateTime(QDate(2026, 3, 20), QTime(9, 0)))
    , m_session(m_place.db(), m_clock) {
    m_session.currentOperatorName = QStringLiteral("admin");
    m_session.currentOperatorNo = administratorNo;
    m_session.currentRoleNo = administratorNo;
    fill(size);
    loadGlobals(m_session);
    if (engine == Engine::Postgres)
        db().execute(QStringLiteral("analyze"));
}

void Shop::fill(const ShopSize &size) {
    Transaction transaction(db());
    insertGoods(db(), 0, size.goods);
    if (size.stockedGoods > 0)
        insertGoods(db(), 100'000, size.stockedGoods);
    if (size.otherJournal > 0) {
        insertGoods(db(), 500'000, 1'000);
        insertJournal(
            db(), size.otherJournal, [](int i) { return goodsNumber(500'000 + i % 1'000); },
            QStringLiteral("2026-03-05"));
    }
    if (size.laterRows > 0)
        insertJournal(
            db(), size.laterRows, [](int) { return goodsNumber(0); }, QStringLiteral("2026-03-18"));
    transaction.commit();
}

QString Shop::draftReceipt(int lines, int firstGoods, const QString &date) {
    Draft d;
    d.code = QStringLiteral("CJ");
    d.date = date;
    d.partner = d.warehouse = d.clerk = administratorNo;
    for (int i = 0; i < lines; ++i) {
        DraftLine line{.goods = goodsNumber(firstGoods + i)};
        line.quantity = 5 + i % 7;
        line.price = Decimal::fromMicros(8'130'000 + i * 10'000);
        line.batch = {QStringLiteral("B%1").arg(i % 9), QStringLiteral("2028-01-01"),
                      QStringLiteral("2026-01-01")};
        d.lines.push_back(line);
    }
    AgreeingPrompter yes;
    QString number;
    const Outcome outcome = saveDraft(m_session, yes, d, &number);
    if (!outcome.isDone())
        qFatal("%s", qPrintable(outcome.text));
    return number;
}

} // namespace jxc::bench
