// The members' windows by keys: opening, recharging, paying out, and everything done to a card.
#include "app/form_registry.h"
#include "retail/forms/counter_printing.h"
#include "retail/forms/member_filter_bar.h"
#include "retail/forms/tf_hygl.h"
#include "retail/forms/tf_hygl_xfjl.h"
#include "retail/forms/tf_hyxf.h"
#include "retail/forms/tf_sms.h"
#include "retail/member_card.h"
#include "retail/member_shop.h"
#include "retail/recharge.h"
#include "support/windows.h"
#include "ui/grid.h"
#include "ui/list_page.h"
#include "ui/pick_field.h"
#include "ui/search_box.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>

using namespace jxc;
using namespace jxc::test;

namespace {

const QString wang = QStringLiteral("100003");

/// A shop with two members, 老李 (100002) and 老王 (100003), and the program at its desk.
class MemberDesk : public MemberShop {
public:
    MemberDesk() {
        session.loginOk = true;
        registerForms(registry);
        addMember(wang, u"老王"_qs);
        db.execute(u"update jxc_hyxx set hy_jm='LW' where hy_sn='100003'"_qs);
        db.execute(u"update jxc_posprint set pp_dyfs=1,pp_bzxx=0"_qs);
    }
    ~MemberDesk() {
        for (const QString &name : registry.knownForms())
            delete registry.kept(name);
    }

    void addOffer(const QString &key, int kind, Decimal factor) {
        db.insertRow(u"jxc_hyyh"_qs, {{u"hh_sn"_qs, key},
                                      {u"hh_name"_qs, QString(u"优惠"_qs + key)},
                                      {u"hh_zl"_qs, kind},
                                      {u"hh_yh1"_qs, factor},
                                      {u"hh_yh2"_qs, 0},
                                      {u"hh_yh3"_qs, 0}});
    }
    void give(const QString &key, const QString &column, const Value &value) {
        db.updateRows(u"jxc_hyxx"_qs, {{column, value}}, u"hy_sn=?"_qs, {key});
    }
    void recharge(Decimal amount) {
        RechargeReceipt receipt;
        demand(rechargeMember(session, user, {.member = member, .amount = amount, .cash = amount},
                              &receipt));
    }
    /// The list, on the row of the member.
    TF_Hygl &list(const QString &key) {
        auto *form = qobject_cast<TF_Hygl *>(registry.openForm(u"TF_Hygl"_qs, {}));
        bringUp(form);
        form->grid().goTo(u"hy_sn", key);
        return *form;
    }
    TF_Hygl &list() { return list(member); }
    /// The window of recharges as the list opens it.
    TF_Hyxf &recharges() {
        list();
        press(Qt::Key_F6);
        auto *form = qobject_cast<TF_Hyxf *>(registry.kept(u"TF_Hyxf"_qs));
        bringUp(form);
        form->printing().setSender(
            [this](const QString &, const QByteArray &bytes) { printed << bytes; });
        return *form;
    }
    [[nodiscard]] QString lastTold() const {
        return user.told.isEmpty() ? QString() : user.told.last();
    }
    [[nodiscard]] QString movements() {
        return texts(u"select xf_zt from jxc_hyxf order by id"_qs).join(u',');
    }

    QTemporaryDir home;
    FormRegistry registry{session, user, home.path()};
    QList<QByteArray> printed;
};

QString focusName() {
    // Without a window manager nobody activates the window below a dialog that closes.
    if (QApplication::activeWindow() == nullptr && QApplication::activeModalWidget() != nullptr)
        bringUp(QApplication::activeModalWidget());
    return QApplication::focusWidget() == nullptr ? QString()
                                                  : QApplication::focusWidget()->objectName();
}

/// Enter until a field has the focus.
void enterUpTo(const QString &field) {
    for (int i = 0; i < 40 && focusName() != field; ++i)
        enter();
    QCOMPARE(focusName(), field);
}

/// Presses keys in the next dialog, which goes when they did what they should.
void next(const std::function<void(QWidget *)> &act) {
    atNextDialog(act);
}

} // namespace

class TestMemberForms : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void opensWithFirstMoney_data() { addEngineRows(); }
    void opensWithFirstMoney();
    void rechargesBySeveralTenders_data() { addEngineRows(); }
    void rechargesBySeveralTenders();
    void giftsOnlyForExactAmounts_data() { addEngineRows(); }
    void giftsOnlyForExactAmounts();
    void paysOut_data() { addEngineRows(); }
    void paysOut();
    void correctsFigures_data() { addEngineRows(); }
    void correctsFigures();
    void changesCards_data() { addEngineRows(); }
    void changesCards();
    void movesBetweenCards_data() { addEngineRows(); }
    void movesBetweenCards();
    void lostCardIsRefused_data() { addEngineRows(); }
    void lostCardIsRefused();
    void conditionsAndMessages_data() { addEngineRows(); }
    void conditionsAndMessages();
    void noticesWait_data() { addEngineRows(); }
    void noticesWait();
    void hostileTexts_data() { addEngineRows(); }
    void hostileTexts();
    void changedMeanwhile_data() { addEngineRows(); }
    void changedMeanwhile();
    void historyReprints_data() { addEngineRows(); }
    void historyReprints();
};

void TestMemberForms::opensWithFirstMoney() {
    MemberDesk desk;
    desk.addOffer(u"100002"_qs, 0, 1.1_d);
    TF_Hygl &form = desk.list();
    press(Qt::Key_Insert);
    bringUp(form.editor());
    enterUpTo(u"xf_je"_qs);
    type(u"100"_qs);
    press(Qt::Key_F5); // no money is asked for while the name is missing
    QCOMPARE(desk.lastTold(), u"会员姓名必须填写！"_qs);
    type(u"王大妈"_qs);
    enter();
    enterUpTo(u"hh_sn"_qs);
    enter(u"优惠100002"_qs);
    const auto credit = [&form] { return child<QLabel>(*form.editor(), u"credit"_qs)->text(); };
    QVERIFY2(credit().contains(u"110"_qs), qPrintable(credit()));
    const QStringList before = desk.texts(u"select hy_bh from jxc_hyxx"_qs);
    next([](QWidget *) { press(Qt::Key_Escape); });
    press(Qt::Key_F5);
    QCOMPARE(desk.texts(u"select hy_bh from jxc_hyxx"_qs), before);
    QVERIFY(form.editor()->isVisible());
    next([](QWidget *pay) {
        type(u"150"_qs);
        QVERIFY(child<QLabel>(*pay, u"change"_qs)->text().contains(u"50.00"_qs));
        enter();
    });
    press(Qt::Key_F5);
    QCOMPARE(desk.texts(u"select hy_bh,hy_name,hy_jm from jxc_hyxx where hy_name='王大妈'"_qs),
             QStringList{u"100004|王大妈|WDM"_qs});
    QCOMPARE(desk.figures(u"select xf_je,xf_yhje,xf_xj,xf_zlje from jxc_hyxf"_qs),
             u"100 10 150 50"_qs);
    QCOMPARE(desk.movements(), u"会员开户时充值"_qs);
    QCOMPARE(desk.figures(u"select hy_zhje from jxc_hyxx where hy_name='王大妈'"_qs), u"110"_qs);
    QCOMPARE(desk.figures(u"select sum(xj_je) from jxc_xjyh where xj_kmmc='现金'"_qs), u"100"_qs);
    QCOMPARE(form.grid().currentText(u"hy_name"), u"王大妈"_qs);

    // A stored member has no first money, and figures stay what they are.
    press(Qt::Key_F4);
    bringUp(form.editor());
    QVERIFY(!child<QLineEdit>(*form.editor(), u"xf_je"_qs)->isVisible());
    enterUpTo(u"hy_mobile"_qs);
    type(u"13900000001"_qs);
    press(Qt::Key_F5);
    QCOMPARE(desk.texts(u"select hy_mobile from jxc_hyxx where hy_name='王大妈'"_qs),
             QStringList{u"13900000001"_qs});
}

void TestMemberForms::rechargesBySeveralTenders() {
    MemberDesk desk;
    desk.addOffer(u"100002"_qs, 0, 1.2_d);
    desk.give(desk.member, u"hh_sn"_qs, u"100002");
    desk.settings(u"jf_mfje=10 jf_jfgz=0"_qs);
    TF_Hyxf &form = desk.recharges();
    QCOMPARE(focusName(), u"xf_je"_qs);
    enter(u"100"_qs);
    QVERIFY(child<QLabel>(form, u"credit"_qs)->text().contains(u"120.00"_qs));
    QCOMPARE(focusName(), u"xf_note"_qs); // no password for money that comes in
    type(u"现场"_qs);
    next([&desk](QWidget *pay) {
        auto *cash = child<QLineEdit>(*pay, u"xf_xj"_qs);
        type(u"20"_qs);
        enter();
        QCOMPARE(desk.lastTold(), u"付款金额不足！"_qs);
        press(Qt::Key_Tab);
        type(u"90"_qs);
        press(Qt::Key_F5); // 10 too much, and 20 of it cash: right
        QVERIFY(!cash->isVisible());
    });
    enter();
    QCOMPARE(desk.figures(u"select xf_je,xf_yhje,xf_xj,xf_xyk,xf_zlje from jxc_hyxf"_qs),
             u"100 20 20 90 10"_qs);
    QCOMPARE(desk.texts(u"select xf_zt,xf_note from jxc_hyxf"_qs),
             QStringList{u"储值卡续费|现场"_qs});
    QCOMPARE(desk.now(), u"10 10 0 0 120 0 100001"_qs);
    QVERIFY(child<QLabel>(form, u"told"_qs)->text().contains(u"找零 ￥10.00"_qs));
    QCOMPARE(form.grid().model().rowCount(), 1);
    QCOMPARE(focusName(), u"hy_sn"_qs); // the next one
    QCOMPARE(desk.printed.size(), 0);

    // The next one by his initials; more change than cash; other tenders leave cash the rest.
    child<QCheckBox>(form, u"print"_qs)->setChecked(true);
    enter(u"LW"_qs);
    QVERIFY(child<QLabel>(form, u"who"_qs)->text().contains(wang));
    type(u"50"_qs);
    desk.user.told.clear();
    next([&desk](QWidget *pay) {
        auto *cash = child<QLineEdit>(*pay, u"xf_xj"_qs);
        press(Qt::Key_Tab);
        type(u"30"_qs);
        QCOMPARE(cash->text(), u"20.00"_qs);
        press(Qt::Key_Tab);
        type(u"40"_qs);
        press(Qt::Key_F5);
        QCOMPARE(desk.lastTold(), u"找零金额不能大于现金！"_qs);
        QCOMPARE(focusName(), u"xf_xj"_qs);
        press(Qt::Key_Tab);
        press(Qt::Key_Tab);
        type(u"5"_qs);
        enter();
        press(Qt::Key_F5);
    });
    press(Qt::Key_F5);
    QCOMPARE(desk.figures(u"select xf_xj,xf_xyk,xf_wxje,xf_zlje from jxc_hyxf order by id desc"_qs),
             u"15 30 5 0"_qs);
    QCOMPARE(desk.printed.size(), 1);
    QVERIFY(desk.printed.front().contains("50.00"));
    press(Qt::Key_Escape);
    QVERIFY(!form.isVisible());
    QCOMPARE(desk.user.told.size(), 1);
}

void TestMemberForms::giftsOnlyForExactAmounts() {
    MemberDesk desk;
    desk.addOffer(u"100002"_qs, 2, 0);
    desk.give(desk.member, u"hh_sn"_qs, u"100002");
    desk.db.insertRow(u"jxc_hyczzs"_qs,
                      {{u"hs_sn"_qs, u"1"}, {u"hs_czje"_qs, 200}, {u"hs_zsje"_qs, 30}});
    TF_Hyxf &form = desk.recharges();
    const auto pay = [&](const QString &amount) {
        form.setMember(desk.member);
        type(amount);
        next([](QWidget *) { enter(); });
        press(Qt::Key_F5);
    };
    pay(u"199"_qs);
    QCOMPARE(desk.now(), u"0 0 0 0 199 0 100001"_qs);
    pay(u"200"_qs);
    QCOMPARE(desk.now(), u"0 0 0 0 429 0 100001"_qs);

    form.setMember(desk.member);
    type(u"200"_qs);
    next([](QWidget *) { press(Qt::Key_Escape); });
    press(Qt::Key_F5);
    QCOMPARE(desk.now(), u"0 0 0 0 429 0 100001"_qs); // nothing was written
    desk.user.answers = {false, true};
    press(Qt::Key_Escape);
    QVERIFY(form.isVisible());
    press(Qt::Key_Escape);
    QVERIFY(!form.isVisible());
}

void TestMemberForms::paysOut() {
    MemberDesk desk;
    desk.recharge(100);
    Shop::demand(setMemberPassword(desk.session, desk.user, desk.member, u"a,1"_qs, u"a,1"_qs));
    TF_Hyxf &form = desk.recharges();
    QVERIFY(child<QLabel>(form, u"refundable"_qs)->text().contains(u"100.00"_qs));
    enter(u"-101"_qs);
    QCOMPARE(focusName(), u"hy_mm"_qs);
    enter(u"wrong"_qs);
    enter(); // over the note
    QCOMPARE(desk.lastTold(), u"会员密码不正确！"_qs);
    QCOMPARE(focusName(), u"hy_mm"_qs);
    type(u"a,1"_qs);
    press(Qt::Key_F5);
    QCOMPARE(desk.lastTold(), u"卡内金额不足！"_qs);
    QCOMPARE(focusName(), u"xf_je"_qs);
    type(u"-40"_qs);
    next([&desk](QWidget *pay) {
        QCOMPARE(pay->windowTitle(), u"退款"_qs);
        type(u"30"_qs);
        enter();
        QCOMPARE(desk.lastTold(), u"付款金额之和与退款金额不一致！"_qs);
        enter(u"40"_qs);
    });
    press(Qt::Key_F5);
    QCOMPARE(desk.now(), u"0 0 0 0 60 0 100001"_qs);
    QCOMPARE(desk.figures(u"select sum(xj_je) from jxc_xjyh where xj_kmmc='现金'"_qs), u"60"_qs);
}

void TestMemberForms::correctsFigures() {
    MemberDesk desk;
    desk.list();
    const auto add = [](Qt::Key key, const QString &figure) {
        next([figure](QWidget *) {
            type(figure);
            press(Qt::Key_F5);
        });
        press(key, Qt::ControlModifier);
    };
    add(Qt::Key_J, u"150"_qs);
    QCOMPARE(desk.now(), u"150 150 0 0 0 0 100002"_qs);
    add(Qt::Key_J, u"-100"_qs); // a level down again
    QCOMPARE(desk.now(), u"50 50 0 0 0 0 100001"_qs);
    add(Qt::Key_G, u"-12.5"_qs);
    QCOMPARE(desk.now(), u"50 50 -12.5 0 0 0 100001"_qs);
    desk.user.answers = {true};
    next([](QWidget *) {
        type(u"7"_qs);
        press(Qt::Key_Escape); // asks
    });
    press(Qt::Key_J, Qt::ControlModifier);
    QCOMPARE(desk.user.asked.last(), u"内容已修改，确认放弃吗？"_qs);
    QCOMPARE(desk.now(), u"50 50 -12.5 0 0 0 100001"_qs);
}

void TestMemberForms::changesCards() {
    MemberDesk desk;
    TF_Hygl &form = desk.list();
    next([&desk](QWidget *) {
        enter(u"88"_qs);
        type(u"89"_qs);
        press(Qt::Key_F5);
        QCOMPARE(desk.lastTold(), u"两次密码输入不一致！"_qs);
        QCOMPARE(focusName(), u"hy_mm2"_qs);
        type(u"88"_qs);
        press(Qt::Key_F5);
    });
    press(Qt::Key_P, Qt::ControlModifier);
    next([&desk](QWidget *) {
        press(Qt::Key_F5);
        QCOMPARE(desk.lastTold(), u"会员卡号必须填写！"_qs);
        enter(wang);
        enter(u"88"_qs);
        press(Qt::Key_F5);
        QCOMPARE(desk.lastTold(), u"会员卡号不能重复！"_qs);
        QCOMPARE(focusName(), u"hy_bh"_qs);
        scan(u"A7"_qs);
        type(u"90"_qs);
        press(Qt::Key_F5);
        QCOMPARE(desk.lastTold(), u"会员密码不正确！"_qs);
        QCOMPARE(focusName(), u"hy_mm"_qs);
        type(u"88"_qs);
        press(Qt::Key_F5);
    });
    press(Qt::Key_K, Qt::ControlModifier);
    QCOMPARE(desk.lastLog(), u"会员换卡：100002→A7"_qs);
    QCOMPARE(form.grid().currentText(u"hy_bh"), u"A7"_qs);
    next([](QWidget *) {
        type(u"13800000009"_qs);
        press(Qt::Key_F5);
    });
    press(Qt::Key_M, Qt::ControlModifier);
    QCOMPARE(loadMember(desk.db, desk.member).mobile, u"13800000009"_qs);
}

void TestMemberForms::movesBetweenCards() {
    MemberDesk desk;
    desk.alter(u"hy_zhje=100 hy_jf=20 hy_zjf=20 hy_mm=7"_qs);
    desk.list();
    next([&desk](QWidget *) {
        press(Qt::Key_F5);
        QCOMPARE(desk.lastTold(), u"转入会员必须填写！"_qs);
        enter(desk.member);
        enter(u"101"_qs);
        enter(u"7"_qs);
        press(Qt::Key_F5);
        QCOMPARE(desk.lastTold(), u"转出会员与转入会员不能相同！"_qs);
        QCOMPARE(focusName(), u"hy_sn"_qs);
        enter(u"老王"_qs);
        press(Qt::Key_F5);
        QCOMPARE(desk.lastTold(), u"卡内金额不足！"_qs);
        QCOMPARE(focusName(), u"xf_je"_qs);
        type(u"0"_qs);
        press(Qt::Key_F5);
        QCOMPARE(desk.lastTold(), u"转账金额必须大于零！"_qs);
        type(u"30.5"_qs);
        press(Qt::Key_F5);
    });
    press(Qt::Key_T, Qt::ControlModifier);
    QCOMPARE(desk.figuresOf(wang), u"0 0 0 0 30.5 0 100001"_qs);
    next([&desk](QWidget *) {
        enter(u"LW"_qs);
        enter(u"21"_qs);
        type(u"7"_qs);
        press(Qt::Key_F5);
        QCOMPARE(desk.lastTold(), u"会员积分不足！"_qs);
        type(u"15"_qs);
        press(Qt::Key_F5);
    });
    press(Qt::Key_Y, Qt::ControlModifier);
    QCOMPARE(desk.figuresOf(wang), u"15 0 0 0 30.5 0 100001"_qs);
    QCOMPARE(desk.now(), u"5 20 0 0 69.5 0 100001"_qs);
}

void TestMemberForms::lostCardIsRefused() {
    MemberDesk desk;
    desk.recharge(100);
    TF_Hygl &form = desk.list();
    press(Qt::Key_L, Qt::ControlModifier);
    QCOMPARE(desk.user.asked.last(), u"您的操作将挂失会员卡：100002，老李，确认吗？"_qs);
    QVERIFY(loadMember(desk.db, desk.member).lost);
    QCOMPARE(child<QAction>(form, u"btnLost"_qs)->text(), u"解挂"_qs);
    const QString before = desk.now();
    const QString lost = u"该会员卡已挂失！"_qs;
    for (const Qt::Key key : {Qt::Key_T, Qt::Key_Y}) {
        next([&](QWidget *dialog) {
            enter(wang);
            type(u"1"_qs);
            press(Qt::Key_F5);
            QCOMPARE(desk.user.told.takeLast(), lost);
            static_cast<QDialog *>(dialog)->done(0);
        });
        press(key, Qt::ControlModifier);
    }
    form.grid().goTo(u"hy_sn", wang); // nor does anything go onto it
    desk.give(wang, u"hy_zhje"_qs, 5);
    next([&](QWidget *dialog) {
        enter(desk.member);
        type(u"1"_qs);
        press(Qt::Key_F5);
        QCOMPARE(desk.user.told.takeLast(), lost);
        static_cast<QDialog *>(dialog)->done(0);
    });
    press(Qt::Key_T, Qt::ControlModifier);
    TF_Hyxf &recharge = desk.recharges();
    QVERIFY(child<QLabel>(recharge, u"who"_qs)->text().contains(lost));
    for (const auto &amount : {u"10"_qs, u"-10"_qs}) {
        recharge.setMember(desk.member);
        type(amount);
        press(Qt::Key_F5);
        QCOMPARE(desk.user.told.takeLast(), lost);
    }
    recharge.done(0);
    QCOMPARE(desk.now(), before);
    desk.list();
    press(Qt::Key_L, Qt::ControlModifier);
    QVERIFY(!loadMember(desk.db, desk.member).lost);
}

void TestMemberForms::conditionsAndMessages() {
    MemberDesk desk;
    for (const QString &key : {desk.member, wang})
        desk.give(key, u"hy_jrrq"_qs, u"2026-01-01");
    desk.addReceipt(u"XS26033010001"_qs, day(30), 20);
    desk.give(desk.member, u"hy_zhje"_qs, 250);
    desk.give(wang, u"hy_sr"_qs, u"1980-5-3"); // as old books have it
    TF_Hygl &form = desk.list();
    const auto shown = [&form] {
        QStringList keys;
        for (int line = 0; line < form.grid().model().rowCount(); ++line)
            keys << form.grid().model().at(line).text(u"hy_sn");
        return keys.join(u' ');
    };
    const auto choose = [](const std::function<void()> &fill) {
        next([fill](QWidget *) {
            fill();
            press(Qt::Key_F5);
        });
        press(Qt::Key_F10);
    };
    QCOMPARE(shown(), u"100001 100002 100003"_qs);
    choose([&desk] {
        enter(); // any level
        enter(); // any offer
        enter(u"300"_qs);
        type(u"200"_qs);
        press(Qt::Key_F5);
        QCOMPARE(desk.lastTold(), u"卡内金额的起始值不能大于终止值！"_qs);
        enter(u"200"_qs);
        type(u"300"_qs);
    });
    QCOMPARE(shown(), desk.member);
    QCOMPARE(form.conditions().words(), u"卡内金额 200 – 300"_qs);
    QVERIFY(form.conditions().isVisible());
    press(Qt::Key_F11);
    QCOMPARE(shown(), u"100001 100002 100003"_qs);
    QVERIFY(!form.conditions().isVisible());
    choose([] {
        child<QComboBox>(*QApplication::activeModalWidget(), u"hy_sr"_qs)->setCurrentIndex(5);
    });
    QCOMPARE(shown(), wang);
    press(Qt::Key_F11);
    choose([] {
        enterUpTo(u"idle"_qs);
        type(u"30"_qs); // 老李 bought yesterday
    });
    QCOMPARE(shown(), u"100001 100003"_qs);

    // Messages go to all that are shown, or to those that are ticked.
    const auto sms = [&desk] {
        press(Qt::Key_F9);
        auto *messages = qobject_cast<TF_Sms *>(desk.registry.kept(u"TF_Sms"_qs));
        bringUp(messages);
        QStringList keys;
        auto *view = child<QTableView>(*messages, u"TF_Sms"_qs);
        const RowsModel &rows = qobject_cast<Grid *>(view->parentWidget())->model();
        for (int line = 0; line < rows.rowCount(); ++line)
            keys << rows.at(line).text(u"hy_sn") + (rows.isTicked(line) ? u"+"_qs : u"-"_qs);
        messages->done(0);
        return keys.join(u' ');
    };
    QCOMPARE(sms(), u"100003+"_qs);
    bringUp(&form);
    press(Qt::Key_F11);
    form.grid().goTo(u"hy_sn", desk.member);
    form.grid().setFocus();
    press(Qt::Key_Space);
    press(Qt::Key_F5); // ticks outlast reading anew
    QCOMPARE(sms(), u"100002+"_qs);
}

void TestMemberForms::noticesWait() {
    MemberDesk desk;
    desk.set(u"cs_sms"_qs, 1);
    desk.db.execute(u"delete from jxc_smscs"_qs);
    desk.db.insertRow(u"jxc_smscs"_qs, {{u"sms_sign"_qs, u"丰收店"},
                                        {u"sms_user"_qs, u"shop"},
                                        {u"sms_pwd"_qs, u"pw"},
                                        {u"sms_cznote"_qs, u"{hyname}充{czje}，余{czkje}"}});
    desk.give(desk.member, u"hy_mobile"_qs, u"13800000000");
    desk.give(desk.member, u"hy_name"_qs, u"{czkje}"); // a name is no placeholder
    TF_Hyxf &form = desk.recharges();
    type(u"55"_qs);
    next([](QWidget *) { enter(); });
    press(Qt::Key_F5);
    QCoreApplication::processEvents();
    QCOMPARE(desk.texts(u"select hy_mobile,sms_rq,sms_note from jxc_smshy"_qs),
             QStringList{u"13800000000||{czkje}充55，余55【丰收店】"_qs});
    QCOMPARE(desk.user.told, QStringList()); // nobody is kept from work by it
    form.done(0);
}

void TestMemberForms::hostileTexts() {
    MemberDesk desk;
    TF_Hygl &form = desk.list();
    const QString nasty = u"O'; drop--%_"_qs;
    press(Qt::Key_Insert);
    bringUp(form.editor());
    type(nasty);
    press(Qt::Key_F5);
    QCOMPARE(desk.user.told, QStringList());
    const QString stored = form.grid().currentText(u"hy_name");
    QVERIFY(!stored.isEmpty());
    press(Qt::Key_F3);
    for (const auto &[typed, count] : {std::pair(nasty, 1), std::pair(u"%"_qs, 1),
                                       std::pair(u"_"_qs, 1), std::pair(u"老"_qs, 2)}) {
        form.findChild<SearchBox *>()->selectAll();
        type(typed);
        QTRY_COMPARE(form.grid().model().rowCount(), count);
    }
    press(Qt::Key_Return);
    form.grid().goTo(u"hy_sn", desk.member);
    press(Qt::Key_F6);
    auto *recharge = qobject_cast<TF_Hyxf *>(desk.registry.kept(u"TF_Hyxf"_qs));
    bringUp(recharge);
    enter(u"1"_qs);
    type(QString(250, u'字'));
    next([](QWidget *) { enter(); });
    press(Qt::Key_F5);
    QCOMPARE(desk.texts(u"select xf_note from jxc_hyxf"_qs), QStringList{QString(200, u'字')});
    bringUp(recharge);
    enter(u"%"_qs); // finds the one whose name has it, by nothing else
    QVERIFY(child<PickField>(*recharge, u"hy_sn"_qs)->name() == stored);
    enter(u"99999999999999999"_qs);
    QVERIFY(desk.user.told.isEmpty());
    recharge->done(0);
}

void TestMemberForms::changedMeanwhile() {
    MemberDesk desk;
    TF_Hygl &form = desk.list();
    press(Qt::Key_F4);
    bringUp(form.editor());
    type(u"老李头"_qs);
    desk.give(desk.member, u"hy_name"_qs, u"李四");
    press(Qt::Key_F5);
    QCOMPARE(desk.lastTold(), u"该记录已被其他操作员修改，请刷新后重试！"_qs);
    form.editor()->done(0);

    // The figures of a card are read when they change, not when they were shown.
    TF_Hyxf &recharge = desk.recharges();
    type(u"10"_qs);
    next([&desk](QWidget *) {
        desk.recharge(100); // at the other workstation
        enter();
    });
    press(Qt::Key_F5);
    QCOMPARE(desk.figures(u"select hy_zhje from jxc_hyxx where hy_sn='100002'"_qs), u"110"_qs);
    recharge.setMember(desk.member);
    type(u"10"_qs);
    next([&desk](QWidget *) {
        desk.give(desk.member, u"hy_status"_qs, 1);
        enter();
    });
    press(Qt::Key_F5);
    QCOMPARE(desk.lastTold(), u"该会员卡已挂失！"_qs);
    QCOMPARE(desk.figures(u"select hy_zhje from jxc_hyxx where hy_sn='100002'"_qs), u"110"_qs);
    recharge.done(0);

    form.grid().goTo(u"hy_sn", wang);
    bringUp(&form);
    desk.db.execute(u"delete from jxc_hyxx where hy_sn='100003'"_qs);
    press(Qt::Key_J, Qt::ControlModifier);
    QCOMPARE(desk.lastTold(), u"该记录已被其他操作员修改，请刷新后重试！"_qs);
    QCOMPARE(form.grid().model().rowCount(), 2);
}

void TestMemberForms::historyReprints() {
    MemberDesk desk;
    desk.addReceipt(u"XS26033010001"_qs, day(30), 33.5_d);
    desk.recharge(100);
    TF_Hygl &form = desk.list();
    next([&desk](QWidget *window) {
        auto &history = *qobject_cast<TF_Hygl_Xfjl *>(window);
        history.printing().setSender(
            [&desk](const QString &, const QByteArray &bytes) { desk.printed << bytes; });
        QCOMPARE(history.page(0).grid().currentText(u"gl_djh"), u"XS26033010001"_qs);
        press(Qt::Key_F7);
        press(Qt::Key_PageDown, Qt::ControlModifier);
        QCOMPARE(history.page(1).grid().currentText(u"g_sn"), u"G1"_qs);
        press(Qt::Key_PageDown, Qt::ControlModifier);
        press(Qt::Key_F7);
        press(Qt::Key_PageDown, Qt::ControlModifier);
        QCOMPARE(history.page(3).grid().model().rowCount(), 0);
        press(Qt::Key_Escape);
    });
    press(Qt::Key_F7);
    QCOMPARE(desk.printed.size(), 2);
    QVERIFY(desk.printed[0].contains("33.50") && desk.printed[1].contains("100.00"));
    QVERIFY(form.isVisible());
}

JXC_GUI_MAIN(TestMemberForms, QApplication)
#include "test_member_forms.moc"
