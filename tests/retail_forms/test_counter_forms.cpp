// The counter by keys: ringing up, paying, holding, giving back, and its settings.
#include "retail/forms/counter_printing.h"
#include "retail/forms/key_field.h"
#include "retail/forms/tf_gnb.h"
#include "retail/forms/tf_posfk.h"
#include "retail/forms/tf_posprinset.h"
#include "retail/forms/tf_posth.h"
#include "retail/forms/tf_posxs.h"
#include "retail/forms/tf_posxs_lsz.h"
#include "retail/receipt_hold.h"
#include "support/windows.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTableWidget>

using namespace jxc;
using namespace jxc::test;

namespace {

class CounterDesk : public Desk {
public:
    CounterDesk() {
        addGoods(u"10000001"_qs, {{u"g_lsj"_qs, 9.9_d}, {u"g_jm"_qs, u"CGL"}});
        addGoods(u"10000002"_qs, {{u"g_lsj"_qs, 3.33_d}, {u"g_jm"_qs, u"CHS"}});
        for (const QString &goods : {u"10000001"_qs, u"10000002"_qs}) {
            DraftLine line{.goods = goods};
            line.quantity = 100;
            line.price = 2;
            post(u"CJ"_qs, day(1), {line});
        }
        db.execute(u"update jxc_posprint set pp_dyfs=1"_qs);
    }
};

/// The counter, ready to be typed into; its printer writes into a list.
class Counter {
public:
    explicit Counter(CounterDesk &desk)
        : form(desk.context) {
        form.printing().setSender(
            [this](const QString &, const QByteArray &bytes) { printed << bytes; });
        form.showModal();
        bringUp(&form);
    }
    [[nodiscard]] QString shown(const QString &label) const {
        return child<QLabel>(form, label)->text();
    }
    QList<QByteArray> printed;
    TF_Posxs form;
};

} // namespace

class TestCounterForms : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void receiptFromTheKeyboard_data() { addEngineRows(); }
    void receiptFromTheKeyboard();
    void linesAreChangedByKeys_data() { addEngineRows(); }
    void linesAreChangedByKeys();
    void heldRecalledAndKeptOverACrash_data() { addEngineRows(); }
    void heldRecalledAndKeptOverACrash();
    void tendersAndAccount_data() { addEngineRows(); }
    void tendersAndAccount();
    void secondOperatorAllows_data() { addEngineRows(); }
    void secondOperatorAllows();
    void goodsComeBack_data() { addEngineRows(); }
    void goodsComeBack();
    void goodsWithoutReceiptGoBackToTheirBatch_data() { addEngineRows(); }
    void goodsWithoutReceiptGoBackToTheirBatch();
    void restrictedGoodsAskForTheBuyer_data() { addEngineRows(); }
    void restrictedGoodsAskForTheBuyer();
    void printerThatIsOffStopsNothing_data() { addEngineRows(); }
    void printerThatIsOffStopsNothing();
    void keysAndDevicesAreGiven_data() { addEngineRows(); }
    void keysAndDevicesAreGiven();
    void settingsAreKeptOnce_data() { addEngineRows(); }
    void settingsAreKeptOnce();
    void journalShowsAndReprints_data() { addEngineRows(); }
    void journalShowsAndReprints();
};

/// Scan, 3* code, Enter, Enter: sold and printed.
void TestCounterForms::receiptFromTheKeyboard() {
    CounterDesk desk;
    Counter counter(desk);
    scan(u"69010000001"_qs);
    enter(u"3*10000002"_qs);
    enter(u"69010000001"_qs);
    QCOMPARE(counter.form.receipt().lines.size(), size_t{2});
    QVERIFY(counter.shown(u"total"_qs).contains(u"29.79"_qs));
    enter(u"99999"_qs);
    QCOMPARE(counter.shown(u"message"_qs), u"没有找到商品“99999”！"_qs);
    atNextDialog([](QWidget *pay) {
        QVERIFY(child<QLabel>(*pay, u"due"_qs)->text().contains(u"29.79"_qs));
        type(u"50"_qs);
        QVERIFY(child<QLabel>(*pay, u"change"_qs)->text().contains(u"20.21"_qs));
        enter();
    });
    enter(); // on an empty line: pay
    QCOMPARE(desk.figures(u"select pos_yfje,pos_sfje,pos_zlje,pos_xj from jxc_posxsd"_qs),
             u"29.79 50 20.21 50"_qs);
    QCOMPARE(desk.stock(u"10000001"_qs), u"98 98 2 2"_qs);
    QVERIFY(counter.form.receipt().lines.empty());
    QVERIFY(counter.shown(u"last"_qs).contains(u"20.21"_qs));
    QCOMPARE(counter.printed.size(), 2); // the receipt, the drawer
    QVERIFY(counter.printed[0].contains("29.79"));
    QCOMPARE(desk.user.told, QStringList());
    press(Qt::Key_F5);
    QCOMPARE(counter.printed.size(), 3);
    press(Qt::Key_Escape);
    QVERIFY(!counter.form.isVisible());
}

void TestCounterForms::linesAreChangedByKeys() {
    CounterDesk desk;
    Counter counter(desk);
    enter(u"CGL"_qs);
    const auto answer = [](const QString &figure) {
        atNextDialog([figure](QWidget *) { enter(figure); });
    };
    answer(u"5"_qs);
    press(Qt::Key_F4);
    QCOMPARE(counter.form.receipt().lines[0].quantity, 5_d);
    answer(u"9"_qs);
    press(Qt::Key_F7);
    QCOMPARE(counter.form.receipt().lines[0].discount, 0.9_d);
    answer(u"10"_qs);
    press(Qt::Key_J, Qt::ControlModifier);
    QCOMPARE(counter.form.receipt().total(2), 45_d);
    enter(u"2*"_qs);
    QCOMPARE(counter.form.receipt().total(2), 18_d);
    enter(u"CHS"_qs);
    press(Qt::Key_F12);
    QVERIFY(counter.form.receipt().lines[1].isGift);
    press(Qt::Key_Up);
    press(Qt::Key_Delete);
    QCOMPARE(counter.form.receipt().lines.size(), size_t{1});
    QCOMPARE(counter.form.receipt().lines[0].goods, u"10000002"_qs);
    desk.user.answers = {false, true};
    press(Qt::Key_PageDown);
    QCOMPARE(counter.form.receipt().lines.size(), size_t{1});
    press(Qt::Key_PageDown);
    QVERIFY(counter.form.receipt().lines.empty());
    press(Qt::Key_Escape);
}

void TestCounterForms::heldRecalledAndKeptOverACrash() {
    CounterDesk desk;
    {
        Counter counter(desk);
        enter(u"2*CGL"_qs);
        press(Qt::Key_F8);
        QVERIFY(counter.form.receipt().lines.empty());
        enter(u"CHS"_qs);
        press(Qt::Key_F9);
        QCOMPARE(counter.shown(u"message"_qs), u"请先结账或挂单，再解挂！"_qs);
        QCoreApplication::processEvents();
    } // as a crash leaves it
    {
        Counter counter(desk);
        QCOMPARE(desk.user.takeAsked(), QStringList{u"上次有未结账的小票，共1行，是否继续？"_qs});
        QCOMPARE(counter.form.receipt().total(2), 3.33_d);
        atNextDialog([](QWidget *) { enter(); });
        enter();
        atNextDialog([](QWidget *) { enter(); });
        press(Qt::Key_F9);
        QCOMPARE(counter.form.receipt().total(2), 19.8_d);
        const QString number = counter.form.receipt().number;
        QVERIFY(!number.isEmpty());
        atNextDialog([](QWidget *) { enter(); });
        press(Qt::Key_Equal);
        QVERIFY(desk.texts(u"select gl_djh from jxc_posxsd"_qs).contains(number));
        QVERIFY(desk.texts(u"select id from jxc_lsxssptemp"_qs).isEmpty());
        press(Qt::Key_Escape);
    }
}

void TestCounterForms::tendersAndAccount() {
    CounterDesk desk;
    desk.addCustomer(u"100007"_qs, u"张三"_qs, {});
    desk.db.execute(u"update jxc_khxx set kh_jm='ZS' where kh_sn='100007'"_qs);
    Counter counter(desk);
    enter(u"10*CGL"_qs);
    atNextDialog([&](QWidget *pay) {
        auto *card = child<QLineEdit>(*pay, u"pos_yhk"_qs);
        card->setFocus();
        type(u"60"_qs);
        QCOMPARE(child<QLineEdit>(*pay, u"pos_xj"_qs)->text(), u"39.00"_qs);
        type(u"0"_qs); // 600 by card cannot be
        press(Qt::Key_F5);
        QCOMPARE(desk.user.told, QStringList{u"找零金额不能大于现金金额！"_qs});
        card->clear();
        child<QLineEdit>(*pay, u"kh_sn"_qs)->setFocus();
        enter(u"ZS"_qs);
        press(Qt::Key_F5);
    });
    enter();
    QCOMPARE(desk.figures(u"select kh_lwje from jxc_khxx where kh_sn='100007'"_qs), u"99"_qs);
    // The next one is nobody's again.
    QCOMPARE(counter.form.receipt().customer, walkInCustomer);
    press(Qt::Key_Escape);
}

void TestCounterForms::secondOperatorAllows() {
    CounterDesk desk;
    desk.set(u"cs_zdzk"_qs, 0.8_d);
    Session clerk = desk.clerk(u"xsgl"_qs, {1});
    const FormContext context{clerk, desk.user, desk.stage, desk.finder, desk.home.path()};
    TF_Posxs form(context);
    form.printing().setSender([](const QString &, const QByteArray &) {});
    form.showModal();
    bringUp(&form);
    enter(u"CGL"_qs);
    atNextDialog([](QWidget *ask) {
        atNextDialog([](QWidget *second) {
            QCOMPARE(second->objectName(), u"secondOperator"_qs);
            press(Qt::Key_Escape);
        });
        Q_UNUSED(ask)
        enter(u"0.5"_qs);
    });
    press(Qt::Key_F7);
    QCOMPARE(form.receipt().lines[0].discount, 1_d);
    atNextDialog([](QWidget *) {
        atNextDialog([](QWidget *) { enter(); });
        enter(u"0.5"_qs);
    });
    press(Qt::Key_F7);
    QCOMPARE(form.receipt().lines[0].authorisedBy, u"admin"_qs);
    atNextDialog([](QWidget *) { enter(); });
    enter();
    QCOMPARE(desk.figures(u"select pos_yfje from jxc_posxsd"_qs), u"4.95"_qs);
    press(Qt::Key_Escape);
}

void TestCounterForms::goodsComeBack() {
    CounterDesk desk;
    Counter counter(desk);
    enter(u"3*CHS"_qs);
    atNextDialog([](QWidget *) { enter(); });
    enter();
    const QString number = desk.texts(u"select gl_djh from jxc_posxsd"_qs).front();
    atNextDialog([&](QWidget *form) {
        enter(number);
        auto *table = child<QTableWidget>(*form, u"lines"_qs);
        QCOMPARE(table->rowCount(), 1);
        table->item(0, 6)->setText(u"5"_qs);
        QCOMPARE(table->item(0, 6)->text(), u"3"_qs);
        QCOMPARE(desk.user.told, QStringList{u"退货数量大于可退数量！"_qs});
        table->item(0, 6)->setText(u"2"_qs);
        press(Qt::Key_F5);
    });
    press(Qt::Key_F3);
    QCOMPARE(desk.figures(u"select pos_yfje,pos_xj from jxc_posthd"_qs), u"6.66 6.66"_qs);
    QCOMPARE(desk.stock(u"10000002"_qs), u"99 99 1 2"_qs);
    press(Qt::Key_Escape);
}

/// Without a receipt the batch is the one that stands on the packing, also when it was sold out.
void TestCounterForms::goodsWithoutReceiptGoBackToTheirBatch() {
    CounterDesk desk;
    const QString goods = u"10000003"_qs;
    desk.addGoods(goods, {{u"g_lsj"_qs, 5_d}, {u"g_jm"_qs, u"NNN"}});
    for (const QString &batch : {u"B1"_qs, u"B2"_qs}) {
        DraftLine line{.goods = goods};
        line.quantity = batch == u"B1" ? 2 : 10;
        line.price = 2;
        line.batch = {batch, u"2030-01-01"_qs, {}};
        desk.post(u"CJ"_qs, day(1), {line});
    }
    Counter counter(desk);
    enter(u"2*NNN"_qs); // all of B1
    atNextDialog([](QWidget *) { enter(); });
    enter();
    atNextDialog([&](QWidget *form) {
        enter(u"NNN"_qs);
        atNextDialog([](QWidget *) {
            press(Qt::Key_Down); // the newest stands first
            enter();
        });
        press(Qt::Key_F4);
        QCOMPARE(child<QTableWidget>(*form, u"lines"_qs)->item(0, 3)->text(), u"B1"_qs);
        press(Qt::Key_F5);
    });
    press(Qt::Key_F3);
    QCOMPARE(desk.figures(u"select t_sl from jxc_tkc where t_ph='B1'"_qs), u"1"_qs);
    QCOMPARE(desk.figures(u"select t_sl from jxc_tkc where t_ph='B2'"_qs), u"10"_qs);
    press(Qt::Key_Escape);
}

void TestCounterForms::restrictedGoodsAskForTheBuyer() {
    CounterDesk desk;
    desk.db.execute(u"update jxc_goods set g_iscf=1 where g_sn='10000001'"_qs);
    Counter counter(desk);
    enter(u"CGL"_qs);
    atNextDialog([](QWidget *buyer) {
        typeText(child<QLineEdit>(*buyer, u"姓名"_qs), u"李四"_qs);
        child<QLineEdit>(*buyer, u"身份证号"_qs)->setText(u"11010519491231002X"_qs);
        atNextDialog([](QWidget *) { enter(); });
        press(Qt::Key_F5);
    });
    enter();
    QCOMPARE(desk.texts(u"select pos_xm,pos_cardno from jxc_posxssp"_qs),
             QStringList{u"李四|11010519491231002X"_qs});
    press(Qt::Key_Escape);
}

/// No printer at all: the sale stands, and the cashier is told.
void TestCounterForms::printerThatIsOffStopsNothing() {
    CounterDesk desk;
    TF_Posxs form(desk.context);
    form.showModal();
    bringUp(&form);
    enter(u"CGL"_qs);
    atNextDialog([](QWidget *) { enter(); });
    enter();
    QCOMPARE(desk.texts(u"select count(*) from jxc_posxsd"_qs), QStringList{u"1"_qs});
    QTRY_VERIFY(child<QLabel>(form, u"message"_qs)->text().contains(u"可以重打"_qs));
    // The same by template.
    desk.db.execute(u"update jxc_posprint set pp_dyfs=0"_qs);
    press(Qt::Key_F5);
    QVERIFY(child<QLabel>(form, u"message"_qs)->text().startsWith(u"没有找到打印机，小票XS"_qs));
    press(Qt::Key_Escape);
}

void TestCounterForms::keysAndDevicesAreGiven() {
    CounterDesk desk;
    {
        TF_Gnb form(desk.context);
        form.showModal();
        bringUp(&form);
        auto *hold = child<KeyField>(form, u"挂单"_qs);
        QCOMPARE(hold->virtualKey(), 119);
        hold->setFocus();
        press(Qt::Key_F3); // the counter's own
        QCOMPARE(hold->virtualKey(), 119);
        press(Qt::Key_F4); // which changes the quantity
        press(Qt::Key_F5);
        QCOMPARE(desk.user.takeTold(), QStringList{u"挂单的功能键不能重复！"_qs});
        hold->setFocus();
        press(Qt::Key_H);
        child<QComboBox>(form, u"pos_qxjk"_qs)->setCurrentIndex(1);
        press(Qt::Key_F5);
        QCOMPARE(desk.user.takeTold(), QStringList{u"串口必须填写！"_qs});
        child<QLineEdit>(form, u"pos_com"_qs)->setText(u"ttyS0"_qs);
        press(Qt::Key_F5);
        QVERIFY(!form.isVisible());
    }
    QCOMPARE(desk.texts(u"select gn_jz from jxc_gnb where gn_name='挂单'"_qs),
             QStringList{u"72"_qs});
    QCOMPARE(desk.texts(u"select count(*) from jxc_gnb"_qs), QStringList{u"12"_qs});
    QCOMPARE(desk.texts(u"select pos_qxjk,pos_jzqz from jxc_poscs"_qs), QStringList{u"1|24"_qs});
    const CounterSettings settings = CounterSettings::load(desk.session);
    QVERIFY(settings.drawerOnPort);
    QCOMPARE(settings.port, u"ttyS0"_qs);
    Counter counter(desk);
    enter(u"CGL"_qs);
    press(Qt::Key_H); // on an empty line
    QVERIFY(counter.form.receipt().lines.empty());
    QVERIFY(counter.shown(u"message"_qs).startsWith(u"已挂单"_qs));
    press(Qt::Key_Escape);
}

void TestCounterForms::settingsAreKeptOnce() {
    CounterDesk desk;
    for (const QString &title : {u"一店"_qs, u"二店"_qs}) {
        TF_PosPrinSet form(desk.context);
        form.showModal();
        bringUp(&form);
        child<QLineEdit>(form, u"pp_bt1"_qs)->clear();
        typeText(child<QLineEdit>(form, u"pp_bt1"_qs), title);
        press(Qt::Key_F5);
    }
    QCOMPARE(desk.texts(u"select pp_bt1,pp_dyfs,pp_kd,pp_khs,pp_bzxx from jxc_posprint"_qs),
             QStringList{u"二店|1|0|2|1"_qs});
    TF_PosPrinSet form(desk.context);
    form.showModal();
    bringUp(&form);
    child<QLineEdit>(form, u"pp_bt1"_qs)->setText(u"x"_qs);
    desk.user.answers = {false, true};
    press(Qt::Key_Escape);
    QVERIFY(form.isVisible());
    press(Qt::Key_Escape);
    QVERIFY(!form.isVisible());
}

void TestCounterForms::journalShowsAndReprints() {
    CounterDesk desk;
    {
        Counter counter(desk);
        enter(u"CGL"_qs);
        atNextDialog([](QWidget *) { enter(); });
        enter();
        press(Qt::Key_Escape);
    }
    TF_Posxs_Lsz form(desk.context);
    form.showModal();
    bringUp(&form);
    QCOMPARE(form.grid().model().rowCount(), 1);
    QCOMPARE(form.grid().current()->decimal(u"pos_yfje"), 9.9_d);
    press(Qt::Key_F5);
    QVERIFY(desk.user.told.join(QString()).contains(u"可以重打"_qs));
    press(Qt::Key_F2);
    QCOMPARE(desk.stage.opened, QStringList{u"TF_Posxs"_qs});
}

JXC_GUI_MAIN(TestCounterForms, QApplication)
#include "test_counter_forms.moc"
