// Short messages and wallet payments at the counter, by keys.
#include "app/gateway_watch.h"
#include "retail/forms/tf_hyxf.h"
#include "retail/forms/tf_sms.h"
#include "retail/forms/tf_sms_cs.h"
#include "retail/forms/tf_wxfk.h"
#include "retail/gateway_server.h"
#include "retail/gateway_settings.h"
#include "retail/sms_book.h"
#include "retail/sms_send.h"
#include "retail/sms_settings.h"
#include "retail/wallet_gateway.h"
#include "support/windows.h"
#include "ui/box_prompter.h"
#include "ui/theme.h"

#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>

using namespace jxc;
using namespace jxc::test;

namespace {

const QString number = QStringLiteral("PS26033110001");
const QString code = QStringLiteral("134567890123456789");

QByteArray answerOf(const QString &result, const QString &state, const QString &transaction) {
    return walletAnswer({{u"status"_qs, u"0"_qs},
                         {u"result_code"_qs, result},
                         {u"trade_state"_qs, state},
                         {u"err_msg"_qs, result == u"0" ? QString() : u"余额不足"_qs},
                         {u"transaction_id"_qs, transaction}});
}

struct Counter : Desk {
    GatewayServer server;
    Counter() {
        saveGatewaySettings(home.path(),
                            {server.host(), u"http://"_qs + server.host() + u"/pay"_qs});
        set(u"cs_wxzf"_qs, 1);
        set(u"cs_mchid"_qs, u"M1"_qs);
        set(u"cs_key"_qs, u"k3y"_qs);
        set(u"cs_sms"_qs, 1);
    }
    void says(const QByteArray &body, Answer::Way way = Answer::Way::whole) {
        server.answer = [=](const Arrived &) { return Answer{way, body}; };
    }
};

/// The window that is to take 12.34, in front.
struct Payment {
    explicit Payment(Counter &counter)
        : form(counter.context) {
        form.gateway().setLimits({150, 300, 10'000});
        form.setOrder(number, 12.34_d);
        form.showModal();
        bringUp(&form);
    }
    QString state() { return child<QLabel>(form, u"state"_qs)->text(); }
    TF_Wxfk form;
};

} // namespace

class TestGatewayForms : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void paysByScanner_data() { addEngineRows(); }
    void paysByScanner();
    void queriesWhatIsOpen_data() { addEngineRows(); }
    void queriesWhatIsOpen();
    void endsByHand_data() { addEngineRows(); }
    void endsByHand();
    void sendsToTickedMembers_data() { addEngineRows(); }
    void sendsToTickedMembers();
    void sendsTheNoticeOfARecharge_data() { addEngineRows(); }
    void sendsTheNoticeOfARecharge();
    void finishesAtTheStart_data() { addEngineRows(); }
    void finishesAtTheStart();
};

void TestGatewayForms::paysByScanner() {
    Counter counter;
    counter.says(answerOf(u"1"_qs, {}, {}));
    Payment payment(counter);
    enter(code);
    QTRY_COMPARE(payment.state(), u"支付失败\n\n余额不足"_qs);
    QVERIFY(payment.form.isVisible());
    counter.says(answerOf(u"0"_qs, {}, u"T1"_qs));
    enter(u"234567890123456789"_qs); // the field is ready for the next code
    press(Qt::Key_F5);               // and an impatient finger pays nothing
    QTRY_VERIFY(!payment.form.isVisible());
    QCOMPARE(payment.form.QDialog::result(), static_cast<int>(QDialog::Accepted));
    QCOMPARE(payment.form.result().transactionId, u"T1"_qs);
    QCOMPARE(counter.server.arrived.size(), 2U);
    QCOMPARE(counter.server.arrived.back().field(u"auth_code"_qs), u"234567890123456789"_qs);
}

void TestGatewayForms::queriesWhatIsOpen() {
    Counter counter;
    counter.says({}, Answer::Way::hang);
    Payment payment(counter);
    enter(code);
    counter.user.answers = {false};
    press(Qt::Key_Escape); // not while the customer's money is under way
    QVERIFY(payment.form.isVisible());
    QVERIFY(counter.user.takeAsked().first().startsWith(u"付款结果还没有返回！"_qs));
    QTRY_COMPARE(payment.state(), u"错误提示: 平台没有及时应答\n\n需要查询"_qs);
    enter();
    QTRY_COMPARE(payment.state(), u"该单据有一笔付款还不知道结果，请先查询！"_qs);
    counter.says(answerOf(u"0"_qs, u"NOTPAY"_qs, {}));
    press(Qt::Key_F6);
    QTRY_VERIFY(payment.state().startsWith(u"NOTPAY—未支付"_qs));
    counter.says(answerOf(u"0"_qs, u"SUCCESS"_qs, u"T7"_qs));
    press(Qt::Key_F6);
    QTRY_VERIFY(!payment.form.isVisible());
    QCOMPARE(payment.form.result().transactionId, u"T7"_qs);
    QCOMPARE(payment.form.result().amount, 12.34_d);

    // The same document with another amount is not paid by it.
    payment.form.setOrder(number, 20);
    payment.form.showModal();
    bringUp(&payment.form);
    press(Qt::Key_F6);
    QTRY_VERIFY(payment.state().contains(u"与本次付款金额不同"_qs));
    QVERIFY(payment.form.isVisible());
    payment.form.reject();
}

void TestGatewayForms::endsByHand() {
    Counter counter;
    WalletAttempt attempt;
    Shop::demand(beginPayment(counter.session, counter.user, {number, 12.34_d, code}, &attempt));
    TF_Wxfk form(counter.context);
    form.showModal(); // without a document: the records
    bringUp(&form);
    QCOMPARE(child<QTabWidget>(form, u"pages"_qs)->currentIndex(), 1);
    counter.user.answers = {false, true};
    press(Qt::Key_F8);
    QCOMPARE(openPayments(counter.session), QStringList{number});
    press(Qt::Key_F8);
    QCOMPARE(openPayments(counter.session), QStringList{});
    QCOMPARE(counter.lastLog(), u"移动支付记为未支付："_qs + number);
    counter.says(answerOf(u"1"_qs, {}, {}));
    press(Qt::Key_F6);
    QTRY_COMPARE(counter.user.told.size(), 1);
    QVERIFY(counter.user.told.first().startsWith(u"查询失败"_qs));
    form.reject();
}

void TestGatewayForms::sendsToTickedMembers() {
    Counter counter;
    for (int i = 1; i <= 3; ++i)
        counter.db.insertRow(u"jxc_hyxx"_qs, {{u"hy_sn"_qs, QString::number(i)},
                                              {u"hy_bh"_qs, u"80%1"_qs.arg(i)},
                                              {u"hy_name"_qs, u"会员%1"_qs.arg(i)},
                                              {u"hy_mobile"_qs, u"1390000000%1"_qs.arg(i)}});
    TF_Sms form(counter.context);
    form.showModal();
    bringUp(&form);
    press(Qt::Key_F5);
    QVERIFY(counter.user.told.takeLast().startsWith(u"您还没有定义短信参数"_qs));
    press(Qt::Key_PageDown, Qt::ControlModifier);
    atNextDialog([](QWidget *dialog) {
        auto *host = child<QLineEdit>(*dialog, u"sms_host"_qs);
        const QString good = host->text();
        host->setText(u"a b"_qs);
        press(Qt::Key_F5); // refused, and nothing is lost
        host->setText(good);
        host->setFocus();
        press(Qt::Key_Return);
        enter(u"shop"_qs);
        enter(u"secret"_qs);
        type(u"农资店"_qs);
        press(Qt::Key_F5);
    });
    press(Qt::Key_F4);
    QCOMPARE(counter.user.told, QStringList{u"短信平台地址格式不正确！"_qs});
    QCOMPARE(counter.texts(u"select sms_user,sms_pwd,sms_sign from jxc_smscs"_qs),
             QStringList{u"shop|secret|农资店"_qs});
    counter.user.told.clear();

    press(Qt::Key_PageUp, Qt::ControlModifier);
    press(Qt::Key_Space);
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    press(Qt::Key_Space);
    child<QPlainTextEdit>(form, u"sms_note"_qs)->setFocus();
    press(Qt::Key_End, Qt::ControlModifier);
    type(u"到货了"_qs);
    press(Qt::Key_F5);
    QTRY_COMPARE(counter.user.told, QStringList{u"短信发送成功，共2条"_qs});
    QCOMPARE(counter.server.arrived.size(), 2U);
    QCOMPARE(counter.server.arrived.back().field(u"msg"_qs),
             u"尊敬的会员3您好：到货了【农资店】"_qs);

    counter.user.told.clear();
    press(Qt::Key_PageDown, Qt::ControlModifier);
    press(Qt::Key_F6);
    QTRY_COMPARE(counter.user.told, QStringList{u"短信发送成功，共1条"_qs});
    QCOMPARE(counter.server.arrived.back().field(u"phone"_qs), u"13900000003"_qs);
    form.reject();
}

/// At once, while the cashier goes on; what the provider does not take waits.
void TestGatewayForms::sendsTheNoticeOfARecharge() {
    Counter counter;
    Shop::demand(
        saveSmsSettings(counter.session, counter.user,
                        {u"店"_qs, u"shop"_qs, u"pw"_qs, u"{hyname}充{czje}余{czkje}"_qs, {}}));
    counter.db.insertRow(u"jxc_hyxx"_qs, {{u"hy_sn"_qs, u"1"},
                                          {u"hy_bh"_qs, u"801"},
                                          {u"hy_name"_qs, u"会员1"},
                                          {u"hl_sn"_qs, u"100001"},
                                          {u"hy_mobile"_qs, u"13900000001"}});
    counter.db.execute(u"update jxc_posprint set pp_bzxx=0"_qs);
    TF_Hyxf form(counter.context);
    form.showModal();
    bringUp(&form);
    enter(u"801"_qs);
    type(u"50"_qs);
    atNextDialog([](QWidget *) { enter(); });
    press(Qt::Key_F5);
    QTRY_COMPARE(counter.server.arrived.size(), 1U);
    QCOMPARE(counter.server.arrived.back().field(u"msg"_qs), u"会员1充50余50【店】"_qs);
    QTRY_VERIFY(waitingMessages(counter.session).isEmpty());
    QCOMPARE(counter.user.told, QStringList());
    form.done(0);
}

/// What a killed program left behind: a payment without an answer, and a message not yet sent.
void TestGatewayForms::finishesAtTheStart() {
    Counter counter;
    WalletAttempt attempt;
    Shop::demand(beginPayment(counter.session, counter.user, {number, 12.34_d, code}, &attempt));
    Shop::demand(
        saveSmsSettings(counter.session, counter.user, {u"店"_qs, u"shop"_qs, u"pw"_qs, {}, {}}));
    counter.db.insertRow(u"jxc_hyxx"_qs, {{u"hy_sn"_qs, u"1"}, {u"hy_mobile"_qs, u"13900000001"}});
    SmsBatch batch;
    Shop::demand(recordSmsBatch(counter.session, counter.user, u"到货"_qs, {u"1"_qs}, &batch));
    counter.says(answerOf(u"0"_qs, u"SUCCESS"_qs, u"T1"_qs));
    GatewayWatch watch(counter.context);
    watch.start();
    QTRY_COMPARE(counter.user.told,
                 QStringList{u"结果未知的移动支付已经查明：\r\n\r\n"
                             "单据PS26033110001，金额12.34：SUCCESS—支付成功"_qs});
    QTRY_VERIFY(!watch.sms().isBusy());
    QCOMPARE(counter.server.arrived.size(), 2U);
    QVERIFY(waitingMessages(counter.session).isEmpty());
    watch.start(); // nothing is left to do
    QTest::qWait(50);
    QCOMPARE(counter.server.arrived.size(), 2U);
}

JXC_GUI_MAIN(TestGatewayForms, QApplication)
#include "test_gateway_forms.moc"
