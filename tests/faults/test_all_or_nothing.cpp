#include "faults/fault_shop.h"

#include <QTest>

using namespace jxc;
using namespace jxc::test;
using namespace Qt::Literals::StringLiterals;

namespace {

const QString injected = u"故障"_s;
const QString lostText = u"与数据库服务器的连接已断开或不能连接，请检查网络后重试！"_s;

using Act = std::function<Outcome()>;

/// Does something instead of, or before, the n-th statement of a connection.
class AtStatement {
public:
    AtStatement(Database &db, int n, std::function<void(const QString &)> what)
        : m_db(db) {
        db.setStatementObserver([this, n, what = std::move(what)](const QString &sql, auto &&) {
            if (++m_seen == n)
                what(sql);
        });
    }
    ~AtStatement() { m_db.setStatementObserver({}); }
    AtStatement(const AtStatement &) = delete;
    AtStatement &operator=(const AtStatement &) = delete;

private:
    Database &m_db;
    int m_seen = 0;
};

/// Counts an action's statements by refusing its commit, which is the last of them.
int failAtCommit(Database &db, const Act &act) {
    int seen = 0;
    db.setStatementObserver([&seen](const QString &sql, const Values &) {
        ++seen;
        if (sql == u"commit")
            throw DatabaseError(injected, sql, {});
    });
    const Outcome outcome = act();
    db.setStatementObserver({});
    return outcome.kind == Outcome::Kind::failed && outcome.text == injected ? seen : 0;
}

/// Fails an action at its statements, one after another: nothing may ever remain of it.
void failAtEvery(FaultShop &shop, const Act &act, int step) {
    const Digest before = digestOf(shop.witness());
    const int statements = failAtCommit(shop.db(), act);
    QVERIFY2(statements > 15, qPrintable(QString::number(statements)));
    QCOMPARE(differing(before, digestOf(shop.witness())), QString());
    for (int n = 1; n < statements; n += step) {
        Outcome outcome;
        {
            const AtStatement failure(
                shop.db(), n, [](const QString &sql) { throw DatabaseError(injected, sql, {}); });
            outcome = act();
        }
        QCOMPARE(outcome.kind, Outcome::Kind::failed);
        QCOMPARE(outcome.text, injected);
        QVERIFY(!shop.db().inTransaction());
        QCOMPARE(differing(before, digestOf(shop.witness())), QString());
        if (n % 10 == 1) // also shows that the write lock was given back
            QCOMPARE(faultsOf(shop.witness()), QString());
    }
}

const QStringList &kinds() {
    static const QStringList all = {u"CJ"_s, u"CT"_s, u"XS"_s, u"XT"_s, u"RK"_s, u"CK"_s, u"SK"_s};
    return all;
}

QString prepare(FaultShop &shop, const QString &code) {
    return code == u"SK" ? shop.saveSettlement(code) : shop.prepare(code);
}

bool supportsServer() {
    const auto all = engines();
    return std::find(all.begin(), all.end(), Engine::Postgres) != all.end();
}

/// Cuts a workstation's connection off, and waits until the server is rid of it.
void cutOff(FaultShop &shop, const QString &process) {
    shop.witness().rows(u"select pg_terminate_backend(?::int,5000)"_s, {process});
}

QString serverProcess(Database &db) {
    return db.scalar(u"select pg_backend_pid()"_s);
}

} // namespace

class TestAllOrNothing : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void anyStatementFails_data() { addEngineRows(); }
    void anyStatementFails();
    void leavesNoTraceOfFailures();
    void connectionIsLost();
    void connectionIsLostAgainAndAgain();
    void serverStaysAway();
};

void TestAllOrNothing::anyStatementFails() {
    const int step = currentEngine() == Engine::Sqlite ? 1 : 5;
    FaultShop shop(currentEngine());
    for (const QString &code : kinds()) {
        const QString number = prepare(shop, code);
        const Act approve = [&] { return shop.approve(number); };
        const Act cancel = [&] { return shop.cancel(number); };
        failAtEvery(shop, approve, step);
        if (QTest::currentTestFailed())
            QFAIL(qPrintable(number + u" approval"_s));
        FaultShop::demand(approve());
        QVERIFY(shop.isApproved(number));
        QCOMPARE(faultsOf(shop.witness()), QString());
        failAtEvery(shop, cancel, step);
        if (QTest::currentTestFailed())
            QFAIL(qPrintable(number + u" cancelling"_s));
        FaultShop::demand(cancel());
        QVERIFY(!shop.isApproved(number));
        QCOMPARE(faultsOf(shop.witness()), QString());
    }
}

/// A shop where everything failed once has in the end exactly what an undisturbed one has.
void TestAllOrNothing::leavesNoTraceOfFailures() {
    FaultShop undisturbed(Engine::Sqlite);
    FaultShop disturbed(Engine::Sqlite);
    for (const QString &code : kinds()) {
        const QString number = prepare(undisturbed, code);
        QCOMPARE(prepare(disturbed, code), number);
        const Act approve = [&] { return disturbed.approve(number); };
        const Act cancel = [&] { return disturbed.cancel(number); };
        for (const Act &act : {approve, cancel, approve}) {
            failAtEvery(disturbed, act, 17);
            FaultShop::demand(act());
        }
        FaultShop::demand(undisturbed.approve(number));
        FaultShop::demand(undisturbed.cancel(number));
        FaultShop::demand(undisturbed.approve(number));
        QCOMPARE(differing(digestOf(undisturbed.witness()), digestOf(disturbed.witness())),
                 QString());
    }
}

void TestAllOrNothing::connectionIsLost() {
    if (!supportsServer())
        QSKIP("no PostgreSQL server: JXC_TEST_POSTGRES is not set");
    FaultShop shop(Engine::Postgres);
    for (const QString &code : {u"CJ"_s, u"XS"_s, u"SK"_s}) {
        for (int n = 1;; n += 4) {
            const QString number = prepare(shop, code);
            const Digest before = digestOf(shop.witness());
            const QString process = serverProcess(shop.db());
            QString cutAt;
            Outcome outcome;
            {
                const AtStatement cut(shop.db(), n, [&](const QString &sql) {
                    cutAt = sql;
                    cutOff(shop, process);
                });
                outcome = shop.approve(number);
            }
            if (cutAt == u"commit") { // it may have been done, so it is not done again
                QCOMPARE(outcome.kind, Outcome::Kind::failed);
                QCOMPARE(outcome.text, lostText);
                QCOMPARE(differing(before, digestOf(shop.witness())), QString());
                FaultShop::demand(shop.approve(number));
            }
            QVERIFY2(cutAt == u"commit" || outcome.isDone(), qPrintable(outcome.text));
            QVERIFY(shop.isApproved(number));
            QCOMPARE(faultsOf(shop.db()), QString());
            if (cutAt.isEmpty())
                break;
        }
    }
}

void TestAllOrNothing::connectionIsLostAgainAndAgain() {
    if (!supportsServer())
        QSKIP("no PostgreSQL server: JXC_TEST_POSTGRES is not set");
    FaultShop shop(Engine::Postgres);
    const QString number = shop.prepare(u"XS"_s);
    const Digest before = digestOf(shop.witness());
    shop.db().setStatementObserver([&](const QString &sql, const Values &) {
        if (sql.startsWith(u"insert into jxc_goodslist"))
            shop.witness().rows(u"select pg_terminate_backend(pid,5000) from pg_stat_activity "
                                "where datname=current_database() and pid<>pg_backend_pid()"_s);
    });
    const Outcome outcome = shop.approve(number);
    shop.db().setStatementObserver({});
    QCOMPARE(outcome.kind, Outcome::Kind::failed);
    QCOMPARE(outcome.text, lostText);
    QCOMPARE(differing(before, digestOf(shop.witness())), QString());
    // A mere look works at once, and so does the action.
    QCOMPARE(shop.db().scalar(u"select count(*) from jxc_goods where g_sn='G1'"_s), u"1"_s);
    FaultShop::demand(shop.approve(number));
    QCOMPARE(faultsOf(shop.witness()), QString());
}

/// Nobody can connect for a while, as when the server is started anew.
void TestAllOrNothing::serverStaysAway() {
    if (!supportsServer())
        QSKIP("no PostgreSQL server: JXC_TEST_POSTGRES is not set");
    FaultShop shop(Engine::Postgres);
    const QString number = shop.prepare(u"CJ"_s);
    const Digest before = digestOf(shop.witness());
    const QString process = serverProcess(shop.db());
    TestDatabase elsewhere(Engine::Postgres); // who refuses others must not be there himself
    const auto accept = [&](const QString &whether) {
        elsewhere.db().execute(u"alter database %1 allow_connections %2"_s.arg(
            shop.place().location().databaseName, whether));
    };
    accept(u"false"_s);
    cutOff(shop, process);
    const QString look = u"select count(*) from jxc_goods where g_sn='G1'"_s;
    for (int i = 0; i < 2; ++i) {
        const Outcome outcome = shop.approve(number);
        QCOMPARE(outcome.kind, Outcome::Kind::failed);
        QCOMPARE(outcome.text, lostText);
        QVERIFY_EXCEPTION_THROWN(shop.db().scalar(look), ConnectionLost);
    }
    QCOMPARE(differing(before, digestOf(shop.witness())), QString());
    accept(u"true"_s);
    QCOMPARE(shop.db().scalar(look), u"1"_s);
    FaultShop::demand(shop.approve(number));
    QCOMPARE(faultsOf(shop.witness()), QString());
}

QTEST_GUILESS_MAIN(TestAllOrNothing)
#include "test_all_or_nothing.moc"
