// Document numbers, the numbers of master rows, and who is let in.
#include "core/login.h"
#include "core/numbering.h"
#include "db/database.h"
#include "support/shop.h"

#include <QTest>

using namespace jxc;
using namespace jxc::test;

namespace {

/// Stores a number, as some operator's.
void store(Shop &shop, const QString &table, const QString &number,
           const QString &operatorName = QStringLiteral("小王")) {
    shop.db.insertRow(table, {{u"gl_djh"_qs, number}, {u"a_name"_qs, operatorName}});
}

QString next(Shop &shop, const QString &table, const QString &prefix) {
    return newDocNumber(shop.session, table, u"gl_djh"_qs, prefix);
}

bool taken(Shop &shop, const QString &table, const QString &number) {
    return docNumberExists(shop.session, table, u"gl_djh"_qs, number);
}

} // namespace

class TestNumbering : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void serialsRestartEveryDay_data() { addEngineRows(); }
    void serialsRestartEveryDay();
    void oddSerials_data() { addEngineRows(); }
    void oddSerials();
    void tablesThatShareAPrefix_data();
    void tablesThatShareAPrefix();
    void takenNumbers_data() { addEngineRows(); }
    void takenNumbers();
    void numbersOfMasterRows_data() { addEngineRows(); }
    void numbersOfMasterRows();
    void logIn_data() { addEngineRows(); }
    void logIn();
};

void TestNumbering::serialsRestartEveryDay() {
    Shop shop;
    const QString sales = u"jxc_lsxsd"_qs;
    const auto of = [&](const QString &prefix, const QString &date) {
        return newDocNumberForDate(shop.session, sales, u"gl_djh"_qs, prefix, date);
    };
    QCOMPARE(next(shop, sales, u"XS"_qs), u"XS26033110001"_qs);
    store(shop, sales, u"XS26033010077"_qs);
    store(shop, sales, u"XS26040110088"_qs);
    QCOMPARE(next(shop, sales, u"XS"_qs), u"XS26033110001"_qs);
    QCOMPARE(of(u"XS"_qs, day(30)), u"XS26033010078"_qs);
    QCOMPARE(of(u"XS"_qs, u"2026-04-01"_qs), u"XS26040110089"_qs);
    QCOMPARE(of(u"XS"_qs, u"1999-12-31"_qs), u"XS99123110001"_qs);
    store(shop, sales, u"XS26033110001"_qs);
    store(shop, sales, u"XT26033110005"_qs); // another prefix in the same table
    QCOMPARE(next(shop, sales, u"XS"_qs), u"XS26033110002"_qs);
    QCOMPARE(next(shop, sales, u"XR"_qs), u"XR26033110001"_qs);
    shop.clock.set(QDateTime({2026, 4, 1}, {0, 0}));
    QCOMPARE(next(shop, sales, u"XS"_qs), u"XS26040110089"_qs);
}

/// Only five digits of the serial are read, and never less than 10000.
void TestNumbering::oddSerials() {
    Shop shop;
    const QString table = u"jxc_thd"_qs;
    const auto after = [&](const QString &number) {
        shop.db.execute(u"delete from jxc_thd"_qs);
        store(shop, table, number);
        return next(shop, table, u"CT"_qs);
    };
    QCOMPARE(after(u"CT26033112345"_qs), u"CT26033112346"_qs);
    QCOMPARE(after(u"CT2603319999"_qs), u"CT26033110001"_qs);  // too short to be one of ours
    QCOMPARE(after(u"CT26033100042"_qs), u"CT26033110001"_qs); // below the first
    QCOMPARE(after(u"CT260331ABCDE"_qs), u"CT26033110001"_qs);
    QCOMPARE(after(u"CT26033199999"_qs), u"CT260331100000"_qs);
    QCOMPARE(after(u"CT260331100000"_qs), u"CT26033110001"_qs); // "10000" is read: deliberate
    store(shop, table, u"CT26033199999"_qs);                    // greater as text
    QCOMPARE(next(shop, table, u"CT"_qs), u"CT260331100000"_qs);
}

void TestNumbering::tablesThatShareAPrefix_data() {
    QTest::addColumn<Engine>("engine");
    QTest::addColumn<QString>("prefix");
    QTest::addColumn<QString>("table");
    QTest::addColumn<QString>("other");
    QTest::addColumn<bool>("shared");
    struct Pair {
        const char *prefix, *table, *other;
        bool shared;
    };
    const std::vector<Pair> pairs = {
        {"XS", "jxc_lsxsd", "jxc_posxssp", true},  {"XS", "jxc_lsxsd", "jxc_lsxssptemp", true},
        {"XS", "jxc_lsxsd", "jxc_posthsp", false}, {"XT", "jxc_xsthd", "jxc_posthsp", true},
        {"XT", "jxc_xsthd", "jxc_posxssp", false}, {"YF", "jxc_ysyfk", "jxc_ysyfk_dj", true},
        {"FK", "jxc_ysyfk", "jxc_ysyfk_dj", true}, {"YS", "jxc_ysyfk", "jxc_ysyfk_dj", true},
        {"SK", "jxc_ysyfk", "jxc_ysyfk_dj", true}, {"CT", "jxc_thd", "jxc_ysyfk_dj", false}};
    for (const Engine engine : engines())
        for (const Pair &p : pairs)
            QTest::addRow("%s %s %s", qPrintable(engineName(engine)), p.prefix, p.other)
                << engine << QString::fromLatin1(p.prefix) << QString::fromLatin1(p.table)
                << QString::fromLatin1(p.other) << p.shared;
}

void TestNumbering::tablesThatShareAPrefix() {
    QFETCH(QString, prefix);
    QFETCH(QString, table);
    QFETCH(QString, other);
    QFETCH(bool, shared);
    Shop shop;
    const auto number = [&](int serial) { return prefix + u"260331"_qs + QString::number(serial); };
    store(shop, table, number(10'003));
    store(shop, other, number(10'002)); // smaller: nothing changes
    QCOMPARE(next(shop, table, prefix), number(10'004));
    store(shop, other, number(10'007));
    QCOMPARE(next(shop, table, prefix), number(shared ? 10'008 : 10'004));
    // The same tables say whether a number is taken; settlements ask their own table alone.
    const bool asked = shared && prefix.startsWith(u'X');
    QCOMPARE(taken(shop, table, number(10'007)), asked);
}

/// The operator's own row is the document that he is saving again.
void TestNumbering::takenNumbers() {
    Shop shop;
    const QString sales = u"jxc_lsxsd"_qs;
    const QString number = u"XS26033110001"_qs;
    QVERIFY(!taken(shop, sales, number));
    store(shop, sales, number, u"admin"_qs);
    QVERIFY(!taken(shop, sales, number));
    store(shop, u"jxc_lsxssptemp"_qs, number, u"admin"_qs); // a held receipt is one whoever held it
    QVERIFY(taken(shop, sales, number));
    shop.db.execute(u"delete from jxc_lsxssptemp"_qs);
    shop.session.currentOperatorName = u"小李"_qs;
    QVERIFY(taken(shop, sales, number));
    QVERIFY(!taken(shop, sales, u"XS2603311000"_qs)); // a part of a number is none
}

void TestNumbering::numbersOfMasterRows() {
    Shop shop;
    const auto next = [&] { return nextSerialNumber(shop.db, u"jxc_zone"_qs, u"z_sn"_qs); };
    QCOMPARE(next(), u"100004"_qs); // three regions come with every account set
    shop.db.execute(u"update jxc_zone set z_sn='100123' where z_sn='100001'"_qs);
    QCOMPARE(next(), u"100124"_qs);
    shop.db.execute(u"delete from jxc_zone"_qs);
    QCOMPARE(next(), u"100001"_qs);
}

void TestNumbering::logIn() {
    Shop shop;
    shop.clerk(u"cggl"_qs, {}); // 小王, 100002
    Session attempt(shop.db, shop.clock);
    const auto logsIn = [&](const QString &name, const QString &password) {
        return authenticate(attempt, name, password);
    };
    const auto keep = [&](const QString &password) {
        shop.db.execute(u"update jxc_admin set a_pwd=? where a_sn='100002'"_qs, {password});
    };
    QVERIFY(hasEmptyPassword(shop.session, u"小王"_qs));
    QVERIFY(!hasEmptyPassword(shop.session, u"没有的人"_qs));
    QVERIFY(!logsIn(u"没有的人"_qs, {}));
    QVERIFY(!logsIn(u"小王"_qs, u"x"_qs));
    QVERIFY(!attempt.loginOk);
    QVERIFY(attempt.currentOperatorName.isEmpty());
    QVERIFY(logsIn(u"小王"_qs, u"  "_qs)); // blanks are no password
    QVERIFY(attempt.loginOk);
    QCOMPARE(attempt.currentOperatorName + attempt.currentOperatorNo + attempt.currentRoleNo,
             u"小王100002100002"_qs);
    shop.db.execute(u"update jxc_admin set a_pwd=null where a_sn='100002'"_qs);
    QVERIFY(hasEmptyPassword(shop.session, u"小王"_qs));
    QVERIFY(logsIn(u"小王"_qs, {}));

    keep(u"a．b"_qs); // stored full-width: both ways of typing meet it
    QVERIFY(!hasEmptyPassword(shop.session, u"小王"_qs));
    QVERIFY(logsIn(u"小王"_qs, u" a.b "_qs));
    QVERIFY(logsIn(u"小王"_qs, u"a．b"_qs));
    QVERIFY(!logsIn(u"小王"_qs, {}));
    QVERIFY(!logsIn(u"小王"_qs, u"A.B"_qs));
    keep(u"a.b"_qs); // stored as typed: nothing meets it, deliberately
    QVERIFY(!logsIn(u"小王"_qs, u"a.b"_qs));
    QVERIFY(!logsIn(u"小王"_qs, u"a．b"_qs));
    keep(u"' or '1'='1"_qs);
    QVERIFY(!logsIn(u"小王"_qs, u"' or '1'='1"_qs));
    QCOMPARE(shop.texts(u"select id from jxc_log"_qs), QStringList()); // nothing is written
}

QTEST_GUILESS_MAIN(TestNumbering)
#include "test_numbering.moc"
