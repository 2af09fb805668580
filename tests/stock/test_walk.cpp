#include "core/session.h"
#include "db/database.h"
#include "stock/draft.h"
#include "stock/journal_kinds.h"
#include "stock/posting.h"
#include "stock/walk.h"
#include "support/test_database.h"

#include <QTest>

using namespace jxc;
using namespace jxc::test;

namespace {

Decimal figure(const char *text) {
    return Decimal::fromText(QString::fromLatin1(text));
}

JournalState state(const char *stock, const char *cost, const char *value) {
    return {figure(stock), figure(cost), figure(value)};
}

QString text(const JournalState &s) {
    return QStringLiteral("%1 at %2 worth %3")
        .arg(s.stock.toText(), s.cost.toText(), s.value.toText());
}

class SaysYes : public Prompter {
public:
    void inform(const QString &, const QString &) override {}
    bool confirm(const QString &, const QString &) override { return true; }
};

/// A shop with one weedkiller; documents are typed, approved and taken back on any day of March.
class Shop {
public:
    explicit Shop(Engine engine)
        : m_place(engine)
        , m_clock(QDateTime(QDate(2026, 3, 31), QTime(9, 0)))
        , m_session(m_place.db(), m_clock) {
        m_session.currentOperatorName = QStringLiteral("admin");
        m_session.currentOperatorNo = administratorNo;
        m_session.currentRoleNo = administratorNo;
        loadGlobals(m_session);
        db().insertRow(QStringLiteral("jxc_goods"), {{QStringLiteral("g_sn"), goods},
                                                     {QStringLiteral("g_name"), u"草甘膦"},
                                                     {QStringLiteral("g_jm"), u"CGL"},
                                                     {QStringLiteral("dw_name"), u"瓶"}});
    }

    Database &db() { return m_place.db(); }

    QString buy(int day, int quantity, const char *price) {
        return post(QStringLiteral("CJ"), day, quantity, price);
    }
    QString sell(int day, int quantity, const char *price) {
        return post(QStringLiteral("XS"), day, quantity, price);
    }
    QString sendBack(int day, int quantity, const char *price) {
        return post(QStringLiteral("CT"), day, quantity, price);
    }
    void takeBack(const QString &number) {
        const Outcome outcome = cancelDocument(m_session, m_prompter, number);
        QVERIFY2(outcome.isDone(), qPrintable(outcome.text));
    }

    /// The goods' journal, a line for each row: day, kind, and what is in stock after it.
    QStringList journal() {
        QStringList lines;
        for (const Row &row : db().rows(
                 QStringLiteral("select * from jxc_goodslist where g_sn=? order by gl_kdrq,id"),
                 {goods}))
            lines << QStringLiteral("%1 %2: %3 at %4 worth %5")
                         .arg(row.text(u"gl_kdrq").mid(5), row.text(u"gl_flag"),
                              row.decimal(u"gl_kc").toText(0), row.decimal(u"gl_pjjj").toText(2),
                              row.decimal(u"gl_kczje").toText(2));
        return lines;
    }
    /// What stands on the stock row and on the goods.
    QString stock() {
        const auto s = db().row(QStringLiteral("select * from jxc_kcsp where g_sn=?"), {goods});
        const auto g = db().row(QStringLiteral("select * from jxc_goods where g_sn=?"), {goods});
        return QStringLiteral("%1 on the shelf, %2 in the books, cost %3, average %4")
            .arg(s->decimal(u"kc_sl").toText(0), s->decimal(u"kc_zsl").toText(0),
                 s->decimal(u"kc_cbj").toText(2), g->decimal(u"g_pjjj").toText(2));
    }
    QString costOfSale(const QString &number) {
        const auto row = db().row(
            QStringLiteral("select gl_zcb,gl_lr from jxc_goodslist where gl_djh=?"), {number});
        return QStringLiteral("cost %1, profit %2")
            .arg(row->decimal(u"gl_zcb").toText(2), row->decimal(u"gl_lr").toText(2));
    }

private:
    QString post(const QString &code, int day, int quantity, const char *price) {
        Draft draft{code, QStringLiteral("2026-03-%1").arg(day, 2, 10, QChar(u'0')),
                    QStringLiteral("100001"), QStringLiteral("100001"), QStringLiteral("100001")};
        DraftLine line{goods};
        line.quantity = quantity;
        line.price = figure(price);
        draft.lines.push_back(line);
        QString number;
        Outcome outcome = saveDraft(m_session, m_prompter, draft, &number);
        if (outcome.isDone())
            outcome = approveDocument(m_session, m_prompter, number);
        if (!outcome.isDone())
            QTest::qFail(qPrintable(outcome.text), __FILE__, __LINE__);
        return number;
    }

    const QString goods = QStringLiteral("N001");
    TestDatabase m_place;
    FixedClock m_clock;
    Session m_session;
    SaysYes m_prompter;
};

} // namespace

/// The moving average row by row, and what it makes of a month's trade.
class TestWalk : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void everyKindOfRow_data();
    void everyKindOfRow();
    void workedExamples_data();
    void workedExamples();
    void unknownKindIsAMistake();
    void aMonthOfTrade_data() { addEngineRows(); }
    void aMonthOfTrade();
};

void TestWalk::everyKindOfRow_data() {
    // 10 at 5.00 worth 50.00 are in stock; a row of 4 at 8.00 comes, and the same row with -4.
    QTest::addColumn<QString>("in");
    QTest::addColumn<QString>("out");
    const auto rows = [](const char *flags, const char *in, const char *out) {
        for (const QString &flag : QString::fromLatin1(flags).split(u' '))
            QTest::newRow(qPrintable(flag)) << QString::fromLatin1(in) << QString::fromLatin1(out);
    };
    // sets the cost: (50 + 32) / 14 = 5.857; going out as well, over absolute values
    rows("cj ct pd kb qc jg sc st ws", "14 at 5.86 worth 82.04", "6 at 5.86 worth 35.16");
    // sets the cost coming in only
    rows("db cf bh", "14 at 5.86 worth 82.04", "6 at 5 worth 30");
    // moves the stock at the cost in force
    rows("bs by hh pl bf wp wt", "14 at 5 worth 70", "6 at 5 worth 30");
    // kept positive while the stock goes down
    rows("xs xt jh dh lt ly", "6 at 5 worth 30", "14 at 5 worth 70");
}

void TestWalk::everyKindOfRow() {
    QFETCH(QString, in);
    QFETCH(QString, out);
    const QString flag = QString::fromLatin1(QTest::currentDataTag());
    const JournalState before = state("10", "5", "50");
    QCOMPARE(text(applyJournalRow(before, flag, 4, 8, {})), in);
    QCOMPARE(text(applyJournalRow(before, flag, -4, 8, {})), out);
}

void TestWalk::workedExamples_data() {
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("row");
    QTest::addColumn<QString>("decimals"); // price, quantity, amount
    QTest::addColumn<QString>("after");
    const auto example = [](const char *name, const char *before, const char *row,
                            const char *decimals, const char *after) {
        QTest::newRow(name) << QString::fromLatin1(before) << QString::fromLatin1(row)
                            << QString::fromLatin1(decimals) << QString::fromLatin1(after);
    };
    example("onto a negative stock", "-4 5 -20", "cj 10 5", "2 2 2", "6 at 5 worth 30");
    example("return out of a stock", "10 10 100", "ct -5 12", "2 2 2", "5 at 10.67 worth 53.35");
    example("return of everything", "10 5 50", "ct -10 7", "2 2 2", "0 at 7 worth 0");
    example("return out of nothing", "0 3 0", "ct -5 12", "2 2 2", "-5 at 12 worth -60");
    example("receipt fills a gap", "-5 12 -60", "cj 5 10", "2 2 2", "0 at 10 worth 0");
    example("receipt smaller than the gap", "-10 4 -40", "cj 4 9", "2 2 2",
            "-6 at 5.43 worth -32.58");
    example("sales return keeps the cost", "2 3 6", "xt -5 9", "2 2 2", "7 at 3 worth 21");
    example("sale below nothing", "1 3 3", "xs 5 9", "2 2 2", "-4 at 3 worth -12");
    example("stock that rounds to nothing", "0 2 0", "cj 0.004 3", "2 2 2", "0 at 3 worth 0");
    example("no row and no stock", "0 2.5 0", "cj 0 9", "2 2 2", "0 at 2.5 worth 0");
    example("count that finds what is there", "10 5 50.04", "pd 0 5", "2 2 2", "10 at 5 worth 50");
    example("a tie goes up", "10 1 10", "cj 10 1.01", "2 2 2", "20 at 1.01 worth 20.2");
    example("a negative tie goes up too", "0 0.125 0", "xs 1 9", "3 2 2",
            "-1 at 0.125 worth -0.12");
    example("amounts with their own places", "3 1.3333 4", "by 1 9", "4 0 1",
            "4 at 1.3333 worth 5.3");
    example("price without places", "3 1 4", "cj 1 6", "0 0 2", "4 at 3 worth 12");
    example("gram by gram", "0.000001 3 0", "cj 0.000002 6", "6 6 6",
            "0.000003 at 4 worth 0.000012");
}

void TestWalk::workedExamples() {
    QFETCH(QString, before);
    QFETCH(QString, row);
    QFETCH(QString, decimals);
    QFETCH(QString, after);
    const QStringList b = before.split(u' ');
    const QStringList r = row.split(u' ');
    const QStringList d = decimals.split(u' ');
    Parameters parameters;
    parameters.priceDecimals = d[0].toInt();
    parameters.quantityDecimals = d[1].toInt();
    parameters.amountDecimals = d[2].toInt();
    const JournalState start{Decimal::fromText(b[0]), Decimal::fromText(b[1]),
                             Decimal::fromText(b[2])};
    QCOMPARE(text(applyJournalRow(start, r[0], Decimal::fromText(r[1]), Decimal::fromText(r[2]),
                                  parameters)),
             after);
}

void TestWalk::unknownKindIsAMistake() {
    QVERIFY_EXCEPTION_THROWN((void)applyJournalRow({}, u"zz", 1, 1, {}), std::logic_error);
}

void TestWalk::aMonthOfTrade() {
    Shop shop(currentEngine());

    const QString first = shop.buy(2, 10, "5");
    QCOMPARE(shop.stock(), u"10 on the shelf, 10 in the books, cost 5.00, average 5.00"_qs);

    // Four are sold at the cost in force.
    const QString sale = shop.sell(10, 4, "9");
    QCOMPARE(shop.costOfSale(sale), u"cost 20.00, profit 16.00"_qs);
    QCOMPARE(shop.stock(), u"6 on the shelf, 6 in the books, cost 5.00, average 5.00"_qs);

    // A dearer delivery is typed late: what came after it is worth more, but what was sold keeps
    // the cost that it was sold at.
    const QString late = shop.buy(5, 10, "8");
    QCOMPARE(shop.journal(), (QStringList{u"03-02 cj: 10 at 5.00 worth 50.00"_qs,
                                          u"03-05 cj: 20 at 6.50 worth 130.00"_qs,
                                          u"03-10 xs: 16 at 6.50 worth 104.00"_qs}));
    QCOMPARE(shop.costOfSale(sale), u"cost 20.00, profit 16.00"_qs);
    QCOMPARE(shop.stock(), u"16 on the shelf, 16 in the books, cost 6.50, average 6.50"_qs);

    // Five go back at 12.00; the average is taken over (104 + 60) / (16 + 5).
    const QString sentBack = shop.sendBack(12, 5, "12");
    QCOMPARE(shop.journal().last(), u"03-12 ct: 11 at 7.81 worth 85.91"_qs);

    // The late delivery was a mistake: all that follows is costed anew.
    shop.takeBack(late);
    QCOMPARE(shop.journal(), (QStringList{u"03-02 cj: 10 at 5.00 worth 50.00"_qs,
                                          u"03-10 xs: 6 at 5.00 worth 30.00"_qs,
                                          u"03-12 ct: 1 at 8.18 worth 8.18"_qs}));
    QCOMPARE(shop.stock(), u"1 on the shelf, 1 in the books, cost 8.18, average 8.18"_qs);

    // Nothing follows the return: the cost before it is in force again.
    shop.takeBack(sentBack);
    QCOMPARE(shop.stock(), u"6 on the shelf, 6 in the books, cost 5.00, average 5.00"_qs);

    shop.takeBack(sale);
    shop.takeBack(first);
    QCOMPARE(shop.journal(), QStringList());
    QCOMPARE(shop.stock(), u"0 on the shelf, 0 in the books, cost 5.00, average 5.00"_qs);
    QCOMPARE(shop.db().scalar(u"select count(*) from jxc_ysyfk"_qs), u"0"_qs);
}

QTEST_GUILESS_MAIN(TestWalk)
#include "test_walk.moc"
