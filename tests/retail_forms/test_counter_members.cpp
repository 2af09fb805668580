// Members and wallets at the counter by keys: what a card gets and gives, what a telephone pays.
#include "retail/forms/counter_printing.h"
#include "retail/forms/tf_posth.h"
#include "retail/forms/tf_posxs.h"
#include "retail/forms/tf_wxfk.h"
#include "retail/gateway_server.h"
#include "retail/gateway_settings.h"
#include "retail/receipt_posting.h"
#include "retail/receipt_wallet.h"
#include "retail/tender.h"
#include "services/verify.h"
#include "stock/posting.h"
#include "support/windows.h"
#include "ui/number_field.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>

using namespace jxc;
using namespace jxc::test;

namespace {

class CounterDesk : public Desk {
public:
    GatewayServer server;

    CounterDesk() {
        addGoods(u"10000001"_qs, {{u"g_lsj"_qs, 10_d}, {u"g_jm"_qs, u"CGL"}});
        DraftLine line{.goods = u"10000001"_qs};
        line.quantity = 100;
        line.price = 4;
        post(u"CJ"_qs, day(1), {line});
        db.execute(u"update jxc_posprint set pp_dyfs=1"_qs);
        db.execute(u"update jxc_hyfl set hl_zk=0.9 where hl_sn='100001'"_qs);
        db.execute(u"update jxc_jfsz set jf_mfje=10,jf_jfgz=1"_qs);
        db.insertRow(u"jxc_hyxx"_qs, {{u"hy_sn"_qs, u"100002"},
                                      {u"hy_bh"_qs, u"100002"},
                                      {u"hy_name"_qs, u"老李"},
                                      {u"hy_jm"_qs, u"LL"},
                                      {u"hy_mobile"_qs, u"13900000001"},
                                      {u"hl_sn"_qs, u"100001"},
                                      {u"hh_sn"_qs, u"100001"},
                                      {u"hy_mm"_qs, u"77"},
                                      {u"hy_zhje"_qs, 50_d},
                                      {u"hy_jf"_qs, 0},
                                      {u"hy_zjf"_qs, 0},
                                      {u"hy_zje"_qs, 0},
                                      {u"hy_cs"_qs, 0},
                                      {u"hy_ye"_qs, 0},
                                      {u"hy_status"_qs, 0},
                                      {u"hy_qx"_qs, 0}});
    }
    void chargeWallets() {
        saveGatewaySettings(home.path(),
                            {server.host(), u"http://"_qs + server.host() + u"/pay"_qs});
        set(u"cs_wxzf"_qs, 1);
        set(u"cs_mchid"_qs, u"M1"_qs);
        set(u"cs_key"_qs, u"k3y"_qs);
    }
    void says(const QString &result, const QString &transaction) {
        const QByteArray body =
            walletAnswer({{u"status"_qs, u"0"_qs},
                          {u"result_code"_qs, result},
                          {u"err_msg"_qs, result == u"0" ? u""_qs : u"余额不足"_qs},
                          {u"trade_type"_qs, u"pay.alipay.micropay"_qs},
                          {u"transaction_id"_qs, transaction}});
        server.answer = [=](const Arrived &) { return Answer{Answer::Way::whole, body}; };
    }
    /// Stored value, points, spending and visits of the member.
    QString member() {
        return figures(u"select hy_zhje,hy_jf,hy_zje,hy_cs from jxc_hyxx where hy_sn='100002'"_qs);
    }
    QString receipts() { return texts(u"select count(*) from jxc_posxsd"_qs).first(); }
};

struct Counter {
    explicit Counter(CounterDesk &desk)
        : form(desk.context) {
        form.printing().setSender([](const QString &, const QByteArray &) {});
        form.showModal();
        bringUp(&form);
    }
    [[nodiscard]] QString shown(const QString &label) const {
        return child<QLabel>(form, label)->text();
    }
    TF_Posxs form;
};

void fill(QWidget *window, const QString &field, const QString &text) {
    auto *edit = child<QLineEdit>(*window, field);
    edit->setFocus();
    edit->selectAll();
    type(text);
}

} // namespace

class TestCounterMembers : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void memberBuysFromTheCard_data() { addEngineRows(); }
    void memberBuysFromTheCard();
    void goodsComeBackOntoTheCard_data() { addEngineRows(); }
    void goodsComeBackOntoTheCard();
    void lostCardBuysNothing_data() { addEngineRows(); }
    void lostCardBuysNothing();
    void walletPaysOnce_data() { addEngineRows(); }
    void walletPaysOnce();
    void paidReceiptOutlivesACrash_data() { addEngineRows(); }
    void paidReceiptOutlivesACrash();
    void nothingIsChargedForWhatCannotBePosted_data() { addEngineRows(); }
    void nothingIsChargedForWhatCannotBePosted();
};

void TestCounterMembers::memberBuysFromTheCard() {
    CounterDesk desk;
    Counter counter(desk);
    enter(u"3*CGL"_qs);
    QCOMPARE(counter.form.receipt().total(2), 30_d);
    type(u"13900000001"_qs);
    press(Qt::Key_F2);
    QCOMPARE(counter.form.receipt().total(2), 27_d); // the level's discount
    QVERIFY(counter.shown(u"member"_qs).contains(u"余额 ￥50.00"_qs));
    atNextDialog([&](QWidget *pay) {
        fill(pay, u"pos_czk"_qs, u"60"_qs);
        press(Qt::Key_F5);
        QCOMPARE(desk.user.takeTold(), QStringList{u"储值卡余额不足！"_qs});
        fill(pay, u"pos_czk"_qs, u"20"_qs);
        fill(pay, u"hy_mm"_qs, u"78"_qs);
        press(Qt::Key_F5);
        QCOMPARE(desk.user.takeTold(), QStringList{u"会员密码不正确！"_qs});
        QCOMPARE(desk.receipts(), u"0"_qs);
        fill(pay, u"hy_mm"_qs, u"77"_qs);
        press(Qt::Key_F5);
        QVERIFY(!pay->isVisible());
    });
    enter();
    QCOMPARE(desk.figures(u"select pos_yfje,pos_xj,pos_czk,pos_bcjf from jxc_posxsd"_qs),
             u"27 7 20 2"_qs);
    QCOMPARE(desk.member(), u"30 2 27 1"_qs);
    QVERIFY(!counter.form.receipt().member.startsWith(u'1')); // the next customer is somebody else
    press(Qt::Key_Escape);
    // The card's money came in by recharging, which this shop never did.
    QVERIFY(verifyBooks(desk.db).empty());
}

void TestCounterMembers::goodsComeBackOntoTheCard() {
    CounterDesk desk;
    Counter counter(desk);
    enter(u"5*CGL"_qs);
    type(u"LL"_qs);
    press(Qt::Key_F2);
    atNextDialog([](QWidget *) { press(Qt::Key_F5); });
    enter();
    const QString number = desk.db.scalar(u"select gl_djh from jxc_posxsd"_qs);
    QCOMPARE(desk.member(), u"50 4 45 1"_qs);
    atNextDialog([&](QWidget *back) {
        enter(number);
        press(Qt::Key_F8);
        auto *way = child<QComboBox>(*back, u"way"_qs);
        way->setCurrentIndex(way->findText(u"退回储值卡"_qs));
        press(Qt::Key_F5);
    });
    press(Qt::Key_F3);
    QCOMPARE(desk.figures(u"select pos_yfje,pos_czk from jxc_posthd"_qs), u"45 45"_qs);
    QCOMPARE(desk.texts(u"select pos_rjid from jxc_posxsd order by id"_qs),
             (QStringList{u""_qs, u"-"_qs}));
    // Points of a return are rounded, those of a sale cut: 4 come, 5 go.
    QCOMPARE(desk.member(), u"95 -1 0 0"_qs);
    press(Qt::Key_Escape);
    const QString back = desk.db.scalar(u"select gl_djh from jxc_posthd"_qs);
    QVERIFY(cancelDocument(desk.session, desk.user, back).isDone());
    QCOMPARE(desk.member(), u"50 4 45 1"_qs);
    QVERIFY(verifyBooks(desk.db).empty());
}

void TestCounterMembers::lostCardBuysNothing() {
    CounterDesk desk;
    Counter counter(desk);
    enter(u"CGL"_qs);
    atNextDialog([](QWidget *) { enter(u"100002"_qs); });
    press(Qt::Key_F2); // asks when nothing was typed
    QCOMPARE(counter.form.receipt().member, u"100002"_qs);
    desk.db.execute(u"update jxc_hyxx set hy_status=1"_qs); // reported lost at another desk
    atNextDialog([&](QWidget *) {
        press(Qt::Key_F5);
        QCOMPARE(desk.user.takeTold(), QStringList{u"该会员卡已挂失！"_qs});
        press(Qt::Key_Escape);
    });
    enter();
    QCOMPARE(desk.receipts(), u"0"_qs);
    atNextDialog([](QWidget *) { enter(u"0"_qs); });
    press(Qt::Key_F2);
    QCOMPARE(counter.form.receipt().member, QString());
    QCOMPARE(counter.form.receipt().total(2), 10_d);
    type(u"100002"_qs);
    press(Qt::Key_F2);
    QCOMPARE(desk.user.takeTold(), QStringList{u"该会员卡已挂失！"_qs});
    desk.user.answers = {true};
    press(Qt::Key_Escape);
}

void TestCounterMembers::walletPaysOnce() {
    CounterDesk desk;
    desk.chargeWallets();
    Counter counter(desk);
    enter(u"2*CGL"_qs);
    desk.says(u"1"_qs, {});
    atNextDialog([&](QWidget *pay) {
        fill(pay, u"pos_wxje"_qs, u"15"_qs);
        atNextDialog([&](QWidget *wallet) {
            auto *state = child<QLabel>(*wallet, u"state"_qs);
            enter(u"134567890123456789"_qs);
            QTRY_VERIFY(state->text().startsWith(u"支付失败"_qs));
            press(Qt::Key_Escape);
        });
        press(Qt::Key_F5);
        QCOMPARE(desk.receipts(), u"0"_qs);
        QVERIFY(pay->isVisible());
        desk.says(u"0"_qs, u"T9"_qs);
        atNextDialog([&](QWidget *wallet) {
            enter(u"234567890123456789"_qs);
            QTRY_VERIFY(!wallet->isVisible());
        });
        press(Qt::Key_F5);
    });
    enter();
    const QString number = desk.db.scalar(u"select gl_djh from jxc_posxsd"_qs);
    // The gateway knows better which wallet it was.
    QCOMPARE(desk.texts(u"select pos_zftype,pos_transactionid from jxc_posxsd"_qs),
             QStringList{u"pay.alipay.micropay|T9"_qs});
    QCOMPARE(desk.figures(u"select pos_yfje,pos_xj,pos_wxje,pos_zfbje from jxc_posxsd"_qs),
             u"20 5 0 15"_qs);
    QCOMPARE(desk.texts(u"select gl_djh,out_trade_no from jxc_wxfk order by id"_qs),
             (QStringList{number + u'|' + number + u"-1"_qs, number + u'|' + number + u"-2"_qs}));
    QCOMPARE(desk.texts(u"select count(*) from jxc_lsxssptemp"_qs), QStringList{u"0"_qs});
    press(Qt::Key_Escape);
    desk.user.answers = {true};
    QVERIFY(cancelDocument(desk.session, desk.user, number).isDone());
    QVERIFY(desk.user.takeAsked().first().endsWith(
        u"\r\n\r\n微信或支付宝已收的15.00元不会自动退还，请另行退给顾客！"_qs));
}

/// The telephone has paid, and then the power goes.
void TestCounterMembers::paidReceiptOutlivesACrash() {
    CounterDesk desk;
    desk.chargeWallets();
    {
        Counter counter(desk);
        enter(u"2*CGL"_qs);
        Receipt receipt = counter.form.receipt();
        QString order;
        Tender tender;
        tender.other.weChat = 20;
        QVERIFY(prepareWalletPayment(desk.session, desk.user, receipt, tender, &order).isDone());
        desk.db.insertRow(u"jxc_wxfk"_qs, {{u"gl_djh"_qs, receipt.number},
                                           {u"out_trade_no"_qs, order},
                                           {u"total_fee"_qs, 20_d},
                                           {u"wx_flag"_qs, u"fk"},
                                           {u"err_code"_qs, u""},
                                           {u"transaction_id"_qs, u"T5"}});
        QCOMPARE(desk.receipts(), u"0"_qs);
        counter.form.hide(); // without a word
    }
    desk.user.answers = {};
    Counter counter(desk);
    QCOMPARE(desk.user.takeTold(), QStringList{u"该小票已用移动支付收款￥20.00，请付款结账！"_qs});
    QCOMPARE(counter.form.receipt().lines.size(), size_t{1});
    press(Qt::Key_PageDown); // and it cannot be thrown away
    QVERIFY(desk.user.takeTold().first().startsWith(u"该小票已用移动支付收款"_qs));
    atNextDialog([&](QWidget *pay) {
        auto *weChat = child<NumberField>(*pay, u"pos_wxje"_qs);
        QCOMPARE(weChat->value(), 20_d);
        QVERIFY(weChat->isReadOnly());
        press(Qt::Key_F5);
    });
    enter();
    QCOMPARE(desk.texts(u"select pos_transactionid from jxc_posxsd"_qs), QStringList{u"T5"_qs});
    QVERIFY(desk.server.arrived.empty());
    press(Qt::Key_Escape);
}

void TestCounterMembers::nothingIsChargedForWhatCannotBePosted() {
    CounterDesk desk;
    desk.chargeWallets();
    desk.set(u"cs_kc"_qs, 0);
    Counter counter(desk);
    enter(u"200*CGL"_qs); // more than there is
    atNextDialog([&](QWidget *pay) {
        fill(pay, u"pos_wxje"_qs, u"2000"_qs);
        press(Qt::Key_F5);
        QVERIFY(pay->isVisible());
        QCOMPARE(desk.user.takeTold().size(), 1);
        press(Qt::Key_Escape);
    });
    enter();
    QVERIFY(desk.server.arrived.empty());
    QCOMPARE(desk.receipts(), u"0"_qs);
    QCOMPARE(desk.texts(u"select count(*) from jxc_wxfk"_qs), QStringList{u"0"_qs});
    desk.user.answers = {true};
    press(Qt::Key_Escape);
}

JXC_GUI_MAIN(TestCounterMembers, QApplication)
#include "test_counter_members.moc"
