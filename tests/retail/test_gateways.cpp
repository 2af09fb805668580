// Money and messages over a network that fails in every way: nothing is sent twice, nothing that
// was paid is lost, whatever happens between a request and its answer.
#include "db/transaction.h"
#include "retail/gateway_server.h"
#include "retail/gateway_settings.h"
#include "retail/sms_book.h"
#include "retail/sms_send.h"
#include "retail/sms_settings.h"
#include "retail/wallet_gateway.h"
#include "support/shop.h"

#include <QFile>
#include <QSignalSpy>
#include <QTest>
#include <random>

using namespace jxc;
using namespace jxc::test;

namespace {

const QString key = QStringLiteral("k3y");
const QString number = QStringLiteral("PS26033110001");
const QString code = QStringLiteral("134567890123456789");

NameValue field(const char16_t *name, const QString &value) {
    return {QString::fromUtf16(name), value};
}

QList<NameValue> paid(const QString &transaction) {
    return {field(u"status", u"0"_qs), field(u"result_code", u"0"_qs),
            field(u"pay_result", u"0"_qs), field(u"trade_type", u"wallet"_qs),
            field(u"transaction_id", transaction)};
}

QList<NameValue> stateOf(const QString &state, const QString &transaction = {}) {
    return {field(u"status", u"0"_qs), field(u"result_code", u"0"_qs), field(u"trade_state", state),
            field(u"transaction_id", transaction)};
}

QString settle(const QString &text) {
    return QString(text).replace(u"\r\n"_qs, u"/"_qs);
}

/// A counter beside a gateway that does as it is told.
struct Till : Shop {
    GatewayServer server;
    QTemporaryDir home;
    std::unique_ptr<WalletGateway> wallet;
    std::vector<WalletResult> results;

    Till() {
        saveGatewaySettings(home.path(),
                            {server.host(), u"http://"_qs + server.host() + u"/pay"_qs});
        set(u"cs_wxzf"_qs, 1);
        set(u"cs_mchid"_qs, u"M1"_qs);
        set(u"cs_key"_qs, key);
        session.currentLocalIp = u"10.0.0.7"_qs;
        session.company.name = u"岚 & 舟"_qs;
        restart();
    }
    /// A program that is killed takes its unanswered requests with it.
    void restart() {
        wallet = std::make_unique<WalletGateway>(session, user, home.path());
        wallet->setLimits({150, 400, 64 * 1024});
        QObject::connect(wallet.get(), &WalletGateway::finished, wallet.get(),
                         [this](const WalletResult &result) { results.push_back(result); });
    }
    void says(const QByteArray &body) {
        server.answer = [body](const Arrived &) { return Answer{Answer::Way::whole, body}; };
    }
    WalletResult wait(size_t before) {
        if (!QTest::qWaitFor([&] { return results.size() > before; }, 5000))
            qFatal("no result");
        return results.back();
    }
    WalletResult pay(Decimal amount = 12.34_d) {
        const size_t before = results.size();
        if (!wallet->pay({number, amount, code}))
            qFatal("busy");
        return wait(before);
    }
    WalletResult query() {
        const size_t before = results.size();
        if (!wallet->query(number))
            qFatal("busy");
        return wait(before);
    }
    void later() { clock.set(session.now().addSecs(walletRequestLife + 1)); }
    /// Code and transaction of the payments, the oldest first.
    QStringList payments() {
        return texts(
            u"select err_code,coalesce(transaction_id,'') from jxc_wxfk where wx_flag='fk' order by id"_qs);
    }
};

} // namespace

class TestGateways : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { qputenv("no_proxy", "127.0.0.1"); }
    void signsInTheirOrder();
    void keepsAddressesToTheOwner();
    void readsAnswers_data();
    void readsAnswers();
    void sendsOnceWhateverHappens_data();
    void sendsOnceWhateverHappens();
    void paysOnce_data() { addEngineRows(); }
    void paysOnce();
    void refusesBeforeAnythingIsSent_data() { addEngineRows(); }
    void refusesBeforeAnythingIsSent();
    void resolvesAfterACrash_data() { addEngineRows(); }
    void resolvesAfterACrash();
    void noticesMoneyTakenTwice_data() { addEngineRows(); }
    void noticesMoneyTakenTwice();
    void anyOrderOfFaults_data();
    void anyOrderOfFaults();
    void sendsMessages_data() { addEngineRows(); }
    void sendsMessages();
    void keepsWaitingMessages_data() { addEngineRows(); }
    void keepsWaitingMessages();
};

/// The sums were made with a tool of its own, not with this program.
void TestGateways::signsInTheirOrder() {
    const auto fields = payFields({u"M1"_qs, key}, {number, 12.3_d, code}, u"农资店"_qs,
                                  u"10.0.0.7"_qs, u"n0nce"_qs);
    QCOMPARE(joinQueryPairs(fields),
             u"auth_code=134567890123456789&mch_id=M1&nonce_str=n0nce&body=农资店&"
             "out_trade_no=PS26033110001&total_fee=1230&service=unified.trade.micropay&"
             "mch_create_ip=10.0.0.7"_qs);
    QCOMPARE(walletSign(fields, key), QStringLiteral("9DE649DA44DD760AE785CCB32FA763C5"));
    QCOMPARE(walletSign(queryFields({u"M1"_qs, key}, number, u"n0nce"_qs), key),
             QStringLiteral("2BE4F280B26302EAB4857632746747CC"));
    const QString xml = QString::fromUtf8(walletXml(fields, key));
    QVERIFY(xml.startsWith(u"<xml> <auth_code><![CDATA["_qs) &&
            xml.endsWith(u"9DE649DA44DD760AE785CCB32FA763C5]]></sign></xml>"_qs));
    QVERIFY(!xml.contains(key));
    QVERIFY_EXCEPTION_THROWN((void)totalFee(0.005_d), Refusal);
    QVERIFY_EXCEPTION_THROWN((void)totalFee(Decimal()), Refusal);
    QCOMPARE(totalFee(8000000.01_d), u"800000001"_qs);
}

void TestGateways::keepsAddressesToTheOwner() {
    QTemporaryDir home;
    QVERIFY_EXCEPTION_THROWN((void)paymentUrl(loadGatewaySettings(home.path())), Refusal);
    QVERIFY_EXCEPTION_THROWN((void)smsUrl(loadGatewaySettings(home.path())), Refusal);
    const GatewaySettings settings{u"sms.example.cn"_qs, u"https://pay.example.cn/gateway"_qs};
    saveGatewaySettings(home.path(), settings);
    QCOMPARE(loadGatewaySettings(home.path()), settings);
    QCOMPARE(smsUrl(settings).toString(), u"http://sms.example.cn:8500/shortMessage?"_qs);
    QCOMPARE(QFile::permissions(home.filePath(u"data/gateway.ini"_qs)) &
                 ~(QFile::ReadUser | QFile::WriteUser),
             QFile::ReadOwner | QFile::WriteOwner);
    for (const auto &bad :
         {GatewaySettings{u"http://x/y"_qs, {}}, GatewaySettings{{}, u"pay.example.cn"_qs},
          GatewaySettings{{}, u"file:///etc/passwd"_qs}, GatewaySettings{u"a b"_qs, {}}})
        QVERIFY_EXCEPTION_THROWN(saveGatewaySettings(home.path(), bad), Refusal);
    QCOMPARE(loadGatewaySettings(home.path()), settings);
}

void TestGateways::readsAnswers_data() {
    QTest::addColumn<QByteArray>("xml");
    QTest::addColumn<int>("state"); // of WalletState; -1 unreadable
    const auto row = [](const char *name, const QByteArray &xml, int state) {
        QTest::newRow(name) << xml << state;
    };
    const auto open = static_cast<int>(WalletState::open);
    const auto isPaid = static_cast<int>(WalletState::paid);
    const auto unpaid = static_cast<int>(WalletState::unpaid);
    const auto with = [](QList<NameValue> fields, const NameValue &more) {
        return walletAnswer(fields << more, key);
    };
    row("paid", walletAnswer(paid(u"T1"_qs)), isPaid);
    row("paid and signed", walletAnswer(paid(u"T1"_qs), key), isPaid);
    row("signed by another", walletAnswer(paid(u"T1"_qs), u"other"_qs), open);
    row("of another document", with(paid(u"T1"_qs), field(u"out_trade_no", u"PS1"_qs)), open);
    row("of another shop", with(paid(u"T1"_qs), field(u"mch_id", u"M2"_qs)), open);
    row("another amount", with(paid(u"T1"_qs), field(u"total_fee", u"1"_qs)), open);
    row("its amount", with(paid(u"T1"_qs), field(u"total_fee", u"1234"_qs)), isPaid);
    row("asks to query", with(paid(u"T1"_qs), field(u"need_query", u"Y"_qs)), open);
    row("no transaction", walletAnswer(paid({})), open);
    row("failed", walletAnswer({field(u"status", u"0"_qs), field(u"result_code", u"1"_qs)}),
        unpaid);
    row("failed, but asks to query",
        walletAnswer({field(u"status", u"0"_qs), field(u"result_code", u"1"_qs),
                      field(u"need_query", u"Y"_qs)}),
        open);
    row("refused at the door", walletAnswer({field(u"status", u"400"_qs)}), unpaid);
    row("empty", {}, -1);
    row("no XML", "{\"status\":0}", -1);
    row("cut off", walletAnswer(paid(u"T1"_qs)).chopped(20), -1);
    row("twice the same field", with(paid(u"T1"_qs), field(u"result_code", u"1"_qs)), -1);
    row("something behind", walletAnswer(paid(u"T1"_qs)) + "<xml/>", -1);
    row("nested", "<xml><status>0<b/></status></xml>", -1);
    row("without a status", walletAnswer({field(u"result_code", u"0"_qs)}), -1);
    row("grows by itself",
        "<!DOCTYPE x [<!ENTITY a \"0000000000\"><!ENTITY b "
        "\"&a;&a;&a;&a;&a;&a;&a;&a;&a;&a;\"><!ENTITY c "
        "\"&b;&b;&b;&b;&b;&b;&b;&b;&b;&b;\"><!ENTITY d "
        "\"&c;&c;&c;&c;&c;&c;&c;&c;&c;&c;\">]><xml><status>&d;</status></xml>",
        -1);
}

void TestGateways::readsAnswers() {
    QFETCH(QByteArray, xml);
    QFETCH(int, state);
    const auto answer = WalletAnswer::parse(xml);
    QCOMPARE(answer.has_value(), state >= 0);
    if (answer)
        QCOMPARE(static_cast<int>(judgePayment(*answer, {u"M1"_qs, number, key, 12.34_d}).state),
                 state);
}

void TestGateways::sendsOnceWhateverHappens_data() {
    QTest::addColumn<int>("way");
    QTest::addColumn<QByteArray>("status");
    QTest::newRow("cut") << static_cast<int>(Answer::Way::cut) << QByteArray("200 OK");
    QTest::newRow("mute") << static_cast<int>(Answer::Way::closeMute) << QByteArray("200 OK");
    QTest::newRow("hangs") << static_cast<int>(Answer::Way::hang) << QByteArray("200 OK");
    QTest::newRow("drips") << static_cast<int>(Answer::Way::drip) << QByteArray("200 OK");
    QTest::newRow("floods") << static_cast<int>(Answer::Way::flood) << QByteArray("200 OK");
    for (const char *status :
         {"302 Found", "307 Temporary Redirect", "401 Unauthorized", "500 Oops", "503 Busy"})
        QTest::newRow(status) << static_cast<int>(Answer::Way::whole) << QByteArray(status);
}

void TestGateways::sendsOnceWhateverHappens() {
    QFETCH(int, way);
    QFETCH(QByteArray, status);
    GatewayServer server;
    const QUrl url(u"http://%1/pay"_qs.arg(server.host()));
    server.answer = [&](const Arrived &) {
        return Answer{static_cast<Answer::Way>(way), "<xml/>", status,
                      "Location: " + url.toEncoded() + "2\r\n"};
    };
    GatewayHttp http;
    http.setLimits({200, 500, 64 * 1024});
    int answers = 0;
    GatewayReply got;
    http.post(url, "text/xml", "once", [&](const GatewayReply &reply) { ++answers, got = reply; });
    QTRY_COMPARE_WITH_TIMEOUT(answers, 1, 3000);
    QTest::qWait(100);
    QCOMPARE(answers, 1);
    QCOMPARE(server.arrived.size(), 1U);
    QCOMPARE(server.arrived.front().body, "once");
    QCOMPARE(got.fate, GatewayReply::Fate::unknown);
    QVERIFY(!got.error.isEmpty());
    server.close(); // and when nobody is there, nothing can have happened
    http.post(url, "text/xml", "once", [&](const GatewayReply &reply) { ++answers, got = reply; });
    QTRY_COMPARE_WITH_TIMEOUT(answers, 2, 3000);
    QCOMPARE(got.fate, GatewayReply::Fate::notSent);
}

void TestGateways::paysOnce() {
    Till till;
    till.says(walletAnswer(paid(u"T1"_qs), key));
    const WalletResult result = till.pay();
    QCOMPARE(result.state, WalletState::paid);
    QCOMPARE(result.transactionId, u"T1"_qs);
    QCOMPARE(result.tradeType, u"wallet"_qs);
    const Arrived &request = till.server.arrived.front();
    QVERIFY(request.head.toLower().contains("content-type: text/xml; charset=utf-8"));
    QCOMPARE(request.field(u"total_fee"_qs), u"1234"_qs);
    QCOMPARE(request.field(u"body"_qs), u"岚 & 舟"_qs);
    QCOMPARE(request.field(u"nonce_str"_qs).size(), 32);
    const QString copy = till.home.filePath(u"tmp/%1.xml"_qs.arg(number));
    QVERIFY(QFile::exists(copy));
    QVERIFY((QFile::permissions(copy) & (QFile::ReadGroup | QFile::ReadOther)) == 0);
    QCOMPARE(
        till.texts(
            u"select gl_djh,out_trade_no,mch_id,wx_flag,wx_time,a_name,transaction_id,err_code from jxc_wxfk"_qs),
        QStringList{u"PS26033110001|PS26033110001|M1|fk|2026-03-31 09:00:00|%1|T1|"_qs.arg(
            till.session.currentOperatorName)});
    QCOMPARE(till.figures(u"select total_fee from jxc_wxfk"_qs), u"12.34"_qs);
    QCOMPARE(till.lastLog(), u"移动支付收款：PS26033110001，12.34"_qs);

    const WalletResult again = till.pay();
    QCOMPARE(again.state, WalletState::refused);
    QCOMPARE(again.words, u"该单据已经支付成功，不能重复付款！"_qs);
    QCOMPARE(till.server.arrived.size(), 1U);
    till.says(walletAnswer(stateOf(u"SUCCESS"_qs, u"T1"_qs), key));
    const WalletResult asked = till.query();
    QCOMPARE(asked.words, u"SUCCESS—支付成功"_qs);
    QVERIFY(!asked.isTakenTwice && !asked.isChanged);
    QCOMPARE(joinQueryPairs({{u"s"_qs, till.server.arrived.back().field(u"service"_qs)}}),
             u"s=unified.trade.query"_qs);
}

void TestGateways::refusesBeforeAnythingIsSent() {
    Till till;
    const auto refusal = [&](const WalletOrder &order) {
        const size_t before = till.results.size();
        till.wallet->pay(order);
        const WalletResult result = till.wait(before);
        return result.state == WalletState::refused ? result.words : u"sent"_qs;
    };
    QCOMPARE(refusal({number, 1, {}}), u"付款码必须填写！"_qs);
    QCOMPARE(refusal({number, 1, u"12a4567890"_qs}), u"付款码格式不正确！"_qs);
    QCOMPARE(refusal({u"../../x"_qs, 1, code}), u"商户订单号格式不正确！"_qs);
    QCOMPARE(refusal({number, 0, code}), u"付款金额必须大于零！"_qs);
    QCOMPARE(refusal({number, 0.001_d, code}), u"付款金额只能精确到分！"_qs);
    till.set(u"cs_key"_qs, QString());
    QCOMPARE(refusal({number, 1, code}), u"您还没有定义移动支付参数！"_qs);
    till.set(u"cs_wxzf"_qs, 0);
    QCOMPARE(refusal({number, 1, code}), u"移动支付没有启用，请在系统设置中启用！"_qs);
    saveGatewaySettings(till.home.path(), {});
    QVERIFY(refusal({number, 1, code}).startsWith(u"您还没有定义移动支付平台地址"_qs));
    QCOMPARE(till.figures(u"select count(*) from jxc_wxfk"_qs), u"0"_qs);
    QVERIFY(till.server.arrived.empty());
}

/// The program dies while the gateway works; two workstations and a second click meet the payment.
void TestGateways::resolvesAfterACrash() {
    Till till;
    till.server.answer = [](const Arrived &) { return Answer{Answer::Way::hang, {}}; };
    QVERIFY(till.wallet->pay({number, 12.34_d, code}));
    QVERIFY(!till.wallet->pay({number, 12.34_d, code})); // a second click
    QTRY_COMPARE(till.server.arrived.size(), 1U);
    till.restart();
    QCOMPARE(till.payments(), QStringList{u"PENDING|"_qs});
    QCOMPARE(till.pay().words, u"该单据有一笔付款还不知道结果，请先查询！"_qs);
    {
        const size_t before = till.results.size();
        till.wallet->pay({u"PS26033110002"_qs, 1, code});
        QCOMPARE(till.wait(before).words, u"该付款码已经使用过，请顾客刷新付款码！"_qs);
    }
    const auto other = till.place.connect();
    Session second(*other, till.clock); // the counter next to it
    WalletAttempt attempt;
    QCOMPARE(
        beginPayment(second, till.user, {number, 12.34_d, u"234567890123456789"_qs}, &attempt).kind,
        Outcome::Kind::refused);
    QCOMPARE(till.server.arrived.size(), 1U);

    // So soon after it the gateway may just not have it yet.
    till.says(walletAnswer(stateOf(u"NOTPAY"_qs), key));
    QCOMPARE(till.query().state, WalletState::open);
    QCOMPARE(till.payments(), QStringList{u"PENDING|"_qs});
    till.says(walletAnswer(stateOf(u"USERPAYING"_qs), key));
    till.later();
    QCOMPARE(till.query().words, u"USERPAYING—顾客支付中"_qs);
    QCOMPARE(openPayments(till.session), QStringList{number});

    QSignalSpy resolved(till.wallet.get(), &WalletGateway::allResolved);
    till.says(walletAnswer(stateOf(u"SUCCESS"_qs, u"T9"_qs), key));
    till.wallet->resolveOpen();
    QTRY_COMPARE(resolved.count(), 1);
    const auto settled = resolved.first().first().value<QList<WalletResult>>();
    QCOMPARE(settled.size(), 1);
    QCOMPARE(settled.first().state, WalletState::paid);
    QCOMPARE(settled.first().amount, 12.34_d);
    QCOMPARE(till.payments(), QStringList{u"|T9"_qs});
    QVERIFY(openPayments(till.session).isEmpty());
    QCOMPARE(till.figures(u"select count(*) from jxc_wxfk where wx_flag='fkcx' and a_name=?"_qs,
                          {till.session.currentOperatorName}),
             u"3"_qs);
}

/// The gateway denies a payment, another one is made, and the first turns out to be paid after all.
void TestGateways::noticesMoneyTakenTwice() {
    Till till;
    WalletAttempt first;
    Shop::demand(beginPayment(till.session, till.user, {number, 12.34_d, code}, &first));
    till.later();
    till.says(walletAnswer({field(u"status", u"0"_qs), field(u"result_code", u"1"_qs),
                            field(u"err_code", u"ORDER_NOT_EXIST"_qs)}));
    QCOMPARE(till.query().state, WalletState::unpaid);
    till.says(walletAnswer(paid(u"T2"_qs)));
    QCOMPARE(till.pay().state, WalletState::paid);

    const auto late = [&](const QString &transaction) {
        const auto answer = WalletAnswer::parse(walletAnswer(paid(transaction)));
        WalletResult result;
        Shop::demand(recordPayment(till.session, till.user, first,
                                   judgePayment(*answer, {u"M1"_qs, number, key, 12.34_d}),
                                   &*answer, &result));
        return result;
    };
    QVERIFY(!late(u"T2"_qs).isTakenTwice); // the same money, told twice
    const WalletResult twice = late(u"T1"_qs);
    QVERIFY(twice.isTakenTwice);
    QCOMPARE(twice.words, u"单据PS26033110001收款两次，请退还顾客一次！"_qs);
    QCOMPARE(till.payments(), (QStringList{u"|T1"_qs, u"|T2"_qs}));
    QCOMPARE(till.lastLog(), u"移动支付重复收款：PS26033110001，T1"_qs);

    // What is paid stays so, and is nothing to end by hand.
    const qint64 id =
        till.db.scalar(u"select max(id) from jxc_wxfk where wx_flag='fk'"_qs).toLongLong();
    QCOMPARE(closePaymentByHand(till.session, till.user, id).kind, Outcome::Kind::refused);
    till.says(walletAnswer(stateOf(u"NOTPAY"_qs)));
    till.later();
    (void)till.query();
    QCOMPARE(till.payments(), (QStringList{u"|T1"_qs, u"|T2"_qs}));
}

void TestGateways::anyOrderOfFaults_data() {
    QTest::addColumn<Engine>("engine");
    QTest::addColumn<int>("seed");
    for (const Engine engine : engines())
        for (int seed = 1; seed <= 4; ++seed)
            QTest::newRow(qPrintable(u"%1 %2"_qs.arg(engineName(engine)).arg(seed)))
                << engine << seed;
}

/// A gateway that charges for every request it is sent, crashes and time-outs in any order: no
/// document is charged twice, and in the end the books know what the gateway knows.
void TestGateways::anyOrderOfFaults() {
    QFETCH(int, seed);
    std::mt19937 random(static_cast<unsigned>(seed));
    const auto oneOf = [&](int count) {
        return static_cast<int>(random() % static_cast<unsigned>(count));
    };
    Till till;
    QHash<QString, QStringList> charged; // by document
    till.server.answer = [&](const Arrived &request) -> Answer {
        const QString order = request.field(u"out_trade_no"_qs);
        if (request.field(u"service"_qs) == u"unified.trade.query") {
            const QString transaction = charged.value(order).value(0);
            const QByteArray truth = walletAnswer(
                stateOf(transaction.isEmpty() ? u"NOTPAY"_qs : u"SUCCESS"_qs, transaction), key);
            const Answer::Way way = oneOf(4) == 0 ? Answer::Way::closeMute : Answer::Way::whole;
            return {way, oneOf(5) == 0 ? truth.chopped(9) : truth};
        }
        if (oneOf(4) == 0) // lost on the way, or turned down
            return oneOf(2) == 0
                       ? Answer{Answer::Way::closeMute, {}}
                       : Answer{Answer::Way::whole, walletAnswer({field(u"status", u"0"_qs),
                                                                  field(u"result_code", u"1"_qs)})};
        charged[order] << u"T%1-%2"_qs.arg(order).arg(charged.value(order).size());
        static constexpr std::array ways{Answer::Way::whole, Answer::Way::whole, Answer::Way::cut,
                                         Answer::Way::hang, Answer::Way::closeMute};
        return {ways[static_cast<size_t>(oneOf(static_cast<int>(ways.size())))],
                walletAnswer(paid(charged.value(order).last()), key)};
    };
    const auto orderNumber = [](int i) { return u"PS2603311000%1"_qs.arg(i); };
    for (int step = 0; step < 40; ++step) {
        const size_t before = till.results.size();
        const int order = oneOf(5);
        const int deed = oneOf(6);
        const bool isSent =
            deed < 4
                ? till.wallet->pay({orderNumber(order), 1 + order, u"9000000000%1"_qs.arg(step)})
                : till.wallet->query(orderNumber(order));
        QVERIFY(isSent);
        QVERIFY(!till.wallet->pay({orderNumber(order), 1 + order, code})); // an impatient finger
        if (deed == 0) {
            QTest::qWait(oneOf(30));
            till.restart(); // killed
        } else {
            till.wait(before);
        }
        if (oneOf(3) == 0)
            till.later();
        for (const QStringList &charges : charged)
            QVERIFY2(charges.size() <= 1, qPrintable(charges.join(u' ')));
    }
    for (int i = 0; i < 60 && !openPayments(till.session).isEmpty(); ++i) {
        till.later();
        QSignalSpy resolved(till.wallet.get(), &WalletGateway::allResolved);
        till.wallet->resolveOpen();
        QTRY_COMPARE(resolved.count(), 1);
    }
    QVERIFY(openPayments(till.session).isEmpty());
    QStringList known =
        till.texts(u"select transaction_id from jxc_wxfk where wx_flag='fk' and err_code=''"_qs);
    QStringList truth;
    for (const QStringList &charges : charged)
        truth << charges;
    known.sort();
    truth.sort();
    QCOMPARE(known, truth);
}

void TestGateways::sendsMessages() {
    Till till;
    const auto member = [&](const char16_t *sn, const QString &name, const QString &mobile) {
        till.db.insertRow(u"jxc_hyxx"_qs, {{u"hy_sn"_qs, sn},
                                           {u"hy_bh"_qs, u"88"_qs},
                                           {u"hy_name"_qs, name},
                                           {u"hy_mobile"_qs, mobile},
                                           {u"hy_sr"_qs, u"1970-05-06"_qs},
                                           {u"hy_zhje"_qs, 12.5_d},
                                           {u"hy_jf"_qs, 30}});
    };
    member(u"1", u"王{zjf}"_qs, u"13900000001"_qs);
    member(u"2", u"李"_qs, {});
    member(u"3", u"赵"_qs, u"13900000003"_qs);
    const QStringList everyone{u"1"_qs, u"2"_qs, u"3"_qs};
    SmsBatch batch;
    const auto refusal = [&](const QString &text) {
        return settle(recordSmsBatch(till.session, till.user, text, everyone, &batch).text);
    };
    QCOMPARE(refusal(u"x"_qs), u"您还没有定义短信参数，//请在“已发短信”界面定义短信参数！"_qs);
    Shop::demand(
        saveSmsSettings(till.session, till.user, {u"农资店"_qs, u"shop"_qs, u"p&w=1"_qs, {}, {}}));
    QVERIFY(!till.texts(u"select log_note from jxc_log"_qs).join(u' ').contains(u"p&w"_qs));
    QCOMPARE(refusal(u"x"_qs), u"短信通知没有启用，请在系统设置中启用！"_qs);
    till.set(u"cs_sms"_qs, 1);
    QVERIFY(refusal(QString(250, u'x')).contains(u"最多250个字"_qs));
    QCOMPARE(till.figures(u"select count(*) from jxc_smshy"_qs), u"0"_qs);

    const QString text = u"{hyname} {hybh} {hysr} 1+1 {czkje} {zjf}"_qs;
    Shop::demand(recordSmsBatch(till.session, till.user, text, everyone, &batch));
    QCOMPARE(batch.withoutMobile, 1);
    QCOMPARE(till.lastLog(), u"增加短信单%1，共2个会员"_qs.arg(batch.number));
    QCOMPARE(till.texts(u"select gl_djh,sms_rq,sms_note from jxc_sms"_qs),
             QStringList{u"SM26033110001|2026-03-31|"_qs + text});
    TF_Sms_Send sender(till.session, till.user, till.home.path());
    QSignalSpy finished(&sender, &TF_Sms_Send::finished);
    sender.sendWaiting(batch.ids);
    QTRY_COMPARE(finished.count(), 1);
    QCOMPARE(finished.first().first().value<SmsReport>().sent, 2);
    QCOMPARE(till.server.arrived.size(), 2U);
    const Arrived first = till.server.arrived.front();
    QVERIFY(first.head.startsWith("POST /shortMessage? "));
    QCOMPARE(first.body,
             "username=shop&passwd=p%26w%3D1&phone=13900000001&msg=" +
                 QUrl::toPercentEncoding(u"王{zjf} 88 1970-05-06 1+1 12.50 30【农资店】"_qs) +
                 "&needstatus=true&port=&sendtime=");
    QCOMPARE(till.figures(u"select count(*) from jxc_smshy where sms_rq='2026-03-31 09:00:00'"_qs),
             u"2"_qs);

    // Once more, under a number of its own; by another workstation too, but only one sends it.
    qint64 copy = 0;
    Shop::demand(recordResend(till.session, till.user, batch.ids.first(), &copy));
    QCOMPARE(till.user.takeAsked(),
             QStringList{u"您的操作将重新发送会员：‘王{zjf}’短信信息，确认吗？"_qs});
    const auto other = till.place.connect();
    Session second(*other, till.clock);
    TF_Sms_Send rival(second, till.user, till.home.path());
    QSignalSpy rivalFinished(&rival, &TF_Sms_Send::finished);
    rival.sendWaiting({copy});
    sender.sendWaiting({copy});
    QTRY_COMPARE(finished.count() + rivalFinished.count(), 3);
    QCOMPARE(till.server.arrived.size(), 3U);
    QCOMPARE(till.server.arrived.back().body, first.body);
    QCOMPARE(till.texts(u"select gl_djh from jxc_smshy order by id"_qs).last(),
             u"SM26033110002"_qs);
}

/// What surely did not leave waits, for two days; what got no answer is not sent again by itself.
void TestGateways::keepsWaitingMessages() {
    Till till;
    Shop::demand(saveSmsSettings(till.session, till.user, {{}, u"shop"_qs, u"pw"_qs, {}, {}}));
    till.set(u"cs_sms"_qs, 1);
    QStringList members;
    for (int i = 1; i <= 5; ++i) {
        members << QString::number(i);
        till.db.insertRow(u"jxc_hyxx"_qs, {{u"hy_sn"_qs, members.last()},
                                           {u"hy_mobile"_qs, u"1390000000%1"_qs.arg(i)}});
    }
    SmsBatch batch;
    Shop::demand(recordSmsBatch(till.session, till.user, u"x"_qs, members, &batch));
    TF_Sms_Send sender(till.session, till.user, till.home.path());
    sender.setLimits({150, 300, 1000});
    QSignalSpy finished(&sender, &TF_Sms_Send::finished);
    const auto send = [&] {
        finished.clear();
        sender.sendWaiting(waitingMessages(till.session));
        if (!finished.wait(5000))
            qFatal("not finished");
        return finished.first().first().value<SmsReport>();
    };
    till.server.answer = [&](const Arrived &) {
        return Answer{till.server.arrived.size() == 1 ? Answer::Way::whole : Answer::Way::hang, {}};
    };
    SmsReport report = send();
    QCOMPARE(report.sent, 1);
    QCOMPARE(report.unsure, 3); // enough to see that nobody answers
    QCOMPARE(report.waiting, 1);
    QVERIFY(!report.error.isEmpty());
    QCOMPARE(waitingMessages(till.session), QList<qint64>{batch.ids.last()});
    till.server.close();
    report = send();
    QCOMPARE(report.waiting, 1);
    QCOMPARE(waitingMessages(till.session).size(), 1);
    saveGatewaySettings(till.home.path(), {});
    report = send();
    QVERIFY(report.error.startsWith(u"您还没有定义短信平台地址"_qs));
    QCOMPARE(waitingMessages(till.session).size(), 1);
    till.clock.set(till.session.now().addDays(2));
    QVERIFY(waitingMessages(till.session).isEmpty());
    QCOMPARE(till.texts(u"select sms_rq from jxc_smshy order by id"_qs).last(), QString());
}

QTEST_GUILESS_MAIN(TestGateways)
#include "test_gateways.moc"
