// Members' levels, offers, points settings and exchanges, by keys.
#include "app/form_registry.h"
#include "retail/forms/tf_dhzp.h"
#include "retail/forms/tf_dhzp_add.h"
#include "retail/forms/tf_hyksz.h"
#include "retail/forms/tf_hyyh_add.h"
#include "retail/member.h"
#include "support/windows.h"
#include "ui/date_field.h"
#include "ui/grid.h"
#include "ui/master_form.h"
#include "ui/number_field.h"
#include "ui/pick_field.h"
#include "ui/record_table.h"
#include "ui/small_list_form.h"

#include <QComboBox>
#include <QLabel>

using namespace jxc;
using namespace jxc::test;

namespace {

/// A shop with a member and the program's own forms.
class MemberDesk : public Shop {
public:
    MemberDesk() {
        registerForms(registry);
        addCard(u"100002"_qs, u"888001"_qs,
                {{u"hy_name"_qs, u"老李"},
                 {u"hy_jm"_qs, u"LL"},
                 {u"hy_mobile"_qs, u"13900001111"},
                 {u"hy_mm"_qs, u"66"},
                 {u"hy_jf"_qs, 100},
                 {u"hy_zjf"_qs, 100}});
    }
    ~MemberDesk() {
        for (const QString &name : registry.knownForms())
            delete registry.kept(name);
    }
    /// Two gifts of 30 and 15 points, four of the first in stock.
    void addGifts() {
        addGoods(u"Z1"_qs, {{u"g_iszp"_qs, 1}, {u"g_zpjf"_qs, 30}});
        addGoods(u"Z2"_qs, {{u"g_iszp"_qs, 1}, {u"g_zpjf"_qs, 15}});
        addGoods(u"G1"_qs);
        DraftLine line{.goods = u"Z1"_qs};
        line.quantity = 4;
        line.price = 5;
        post(u"CJ"_qs, day(1), {line});
    }
    template<class FormClass>
    FormClass &open(const QString &name) {
        auto *form = qobject_cast<FormClass *>(registry.openForm(name, {}));
        bringUp(form);
        return *form;
    }
    [[nodiscard]] QString told() { return std::exchange(user.told, {}).join(u'|'); }

    FormRegistry registry{session, user, place.folder()};
};

template<class Field>
Field &field(const QObject &form, const char *name) {
    return *child<Field>(form, QString::fromLatin1(name));
}

/// Into a field, over what stands there.
void retype(const QObject &form, const char *name, const QString &text) {
    auto &line = field<QLineEdit>(form, name);
    line.setFocus();
    line.selectAll();
    type(text);
}

} // namespace

class TestMemberSettings : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void levelsDoNotOverlap_data() { addEngineRows(); }
    void levelsDoNotOverlap();
    void offersShowWhatTheirKindNeeds_data() { addEngineRows(); }
    void offersShowWhatTheirKindNeeds();
    void giftsOfARecharge_data() { addEngineRows(); }
    void giftsOfARecharge();
    void settingsEnableWhatApplies_data() { addEngineRows(); }
    void settingsEnableWhatApplies();
    void pointsBuyGifts_data() { addEngineRows(); }
    void pointsBuyGifts();
};

void TestMemberSettings::levelsDoNotOverlap() {
    MemberDesk desk;
    auto &list = desk.open<MasterForm>(u"TF_Hyfl"_qs);
    press(Qt::Key_Insert);
    RecordEditor &editor = *list.editor();
    enter(u"金卡"_qs);
    enter(u"1.2"_qs);
    enter(u"5000"_qs);
    enter(u"100"_qs);
    press(Qt::Key_F5);
    QCOMPARE(desk.told(), u"级别折扣不能大于 1！"_qs);
    QVERIFY(editor.input(u"hl_zk")->focusTarget()->hasFocus());
    retype(editor, "hl_zk", u"0.9"_qs);
    press(Qt::Key_F5);
    QCOMPARE(desk.told(), u"积分下限不能大于积分上限！"_qs);
    QVERIFY(editor.input(u"hl_jfxx")->focusTarget()->hasFocus());
    retype(editor, "hl_jfxx", u"50"_qs);
    press(Qt::Key_F5);
    QCOMPARE(desk.told(), u"积分范围与其他级别重叠！"_qs);
    retype(editor, "hl_jfxx", u"1000000"_qs);
    retype(editor, "hl_jfsx", u"2000000"_qs);
    press(Qt::Key_F5);
    QCOMPARE(desk.told(), QString());
    QCOMPARE(desk.figures(u"select hl_zk,hl_jfxx,hl_jfsx from jxc_hyfl where hl_name=?"_qs,
                          {u"金卡"_qs}),
             u"0.9 1000000 2000000"_qs);
}

void TestMemberSettings::offersShowWhatTheirKindNeeds() {
    MemberDesk desk;
    auto &list = desk.open<MasterForm>(u"TF_Hyyh"_qs);
    press(Qt::Key_Insert);
    auto *editor = qobject_cast<TF_Hyyh_Add *>(list.editor());
    QVERIFY(editor != nullptr);
    const auto shown = [&] {
        QStringList columns;
        for (const FieldInput *input : editor->tabs().inputs())
            if (input->focusTarget()->isVisible() && input->field().column.contains(u"_yh"_qs))
                columns << input->field().column;
        return columns.join(u' ');
    };
    QCOMPARE(shown(), u"hh_yh1"_qs);
    enter(u"满百返五"_qs);
    press(Qt::Key_Down);
    QCOMPARE(shown(), u"hh_yh2 hh_yh3"_qs);
    enter();
    enter(u"100"_qs);
    type(u"5.5"_qs);
    QCOMPARE(field<QLineEdit>(*editor, "hh_note").text(), u"累计消费 100 元，转换现金 5.5 元"_qs);
    retype(*editor, "hh_yh2", u"0"_qs);
    press(Qt::Key_F5);
    QCOMPARE(desk.told(), u"累计消费必须大于零！"_qs);
    retype(*editor, "hh_yh2", u"200"_qs);
    press(Qt::Key_F6); // and another one, by the table of gifts
    QCOMPARE(desk.figures(u"select hh_zl,hh_yh1,hh_yh2,hh_yh3 from jxc_hyyh where hh_name=?"_qs,
                          {u"满百返五"_qs}),
             u"1 0 200 5.5"_qs);
    enter(u"送礼"_qs);
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    QCOMPARE(shown(), QString());
    press(Qt::Key_F6);
    QCOMPARE(desk.texts(u"select hh_zlname,hh_note from jxc_hyyh where hh_zl=2"_qs),
             QStringList{u"充值赠送|充值赠送金额"_qs});
    enter(u"再送"_qs); // a second one is refused as soon as it is chosen
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    QCOMPARE(desk.told(), u"已有充值赠送的优惠方式！"_qs);
    QCOMPARE(shown(), u"hh_yh2 hh_yh3"_qs);
    retype(*editor, "hh_name", u"送礼"_qs);
    press(Qt::Key_F5);
    QCOMPARE(desk.told(), u"优惠方式不能重复！"_qs);
    desk.user.answers = {true};
    press(Qt::Key_Escape);

    // A change of kind takes the figures of the other one away: sales would give back by them.
    list.grid().goTo(u"hh_name", u"满百返五"_qs);
    press(Qt::Key_F4);
    auto &kind = field<QComboBox>(*list.editor(), "hh_zl");
    kind.setFocus();
    press(Qt::Key_Up);
    retype(*list.editor(), "hh_yh1", u"1.1"_qs);
    press(Qt::Key_F5);
    QCOMPARE(desk.told(), QString());
    QCOMPARE(desk.figures(u"select hh_zl,hh_yh1,hh_yh2,hh_yh3 from jxc_hyyh where hh_name=?"_qs,
                          {u"满百返五"_qs}),
             u"0 1.1 0 0"_qs);
    QCOMPARE(desk.texts(u"select hh_zlname,hh_note from jxc_hyyh where hh_name='满百返五'"_qs),
             QStringList{u"存款优惠|实际款=所付存款*1.1"_qs});
}

void TestMemberSettings::giftsOfARecharge() {
    MemberDesk desk;
    (void)desk.open<SmallListForm>(u"TF_Hyzs"_qs);
    press(Qt::Key_Insert);
    enter(u"100"_qs);
    enter(u"10"_qs);
    enter(u"满百送十"_qs);
    enter(u"100"_qs);
    enter(u"20"_qs);
    enter();
    QCOMPARE(desk.told(), u"充值金额不能重复！"_qs);
    press(Qt::Key_Escape);
    QCOMPARE(desk.figures(u"select hs_czje,hs_zsje,count(*) over () from jxc_hyczzs"_qs),
             u"100 10 1"_qs);
}

void TestMemberSettings::settingsEnableWhatApplies() {
    MemberDesk desk;
    auto &form = desk.open<TF_Hyksz>(u"TF_Hyksz"_qs);
    const auto enabled = [&](const char *name) { return field<QWidget>(form, name).isEnabled(); };
    QVERIFY(!enabled("jf_yelj") && !enabled("jf_srjfbs") && !enabled("jf_hyrzk"));
    enter(u"10"_qs);
    QVERIFY(field<QComboBox>(form, "jf_jfgz").hasFocus());
    press(Qt::Key_Up); // 充值积分
    enter();
    press(Qt::Key_Space);
    enter();
    enter(u"2"_qs);
    QVERIFY(field<QComboBox>(form, "jf_srjflx").hasFocus());
    press(Qt::Key_Down);
    enter();
    enter(u"3"_qs);
    enter(u"3"_qs); // three times during the promotion
    enter(u"2026-04-10"_qs);
    enter(u"2026-04-01"_qs);
    press(Qt::Key_Down); // weekly
    QVERIFY(enabled("jf_hyrmy1") && !enabled("jf_hyr1"));
    enter();
    press(Qt::Key_End);
    enter();
    press(Qt::Key_Home);
    enter();
    enter(u"1.5"_qs);
    const auto refusedAt = [&](const QString &text, const char *name) {
        press(Qt::Key_F5);
        QCOMPARE(desk.told(), text);
        QVERIFY(form.isVisible() && field<QWidget>(form, name).hasFocus());
    };
    refusedAt(u"促销期间的开始日期不能大于结束日期！"_qs, "jf_dbrq2");
    enter(u"2026-04-20"_qs);
    refusedAt(u"会员日必须在 1 到 7 之间！"_qs, "jf_hyrmy1");
    press(Qt::Key_Home);
    refusedAt(u"会员日折扣必须在 0 到 1 之间！"_qs, "jf_hyrzk");
    type(u"0.88"_qs);
    press(Qt::Key_F5);
    QVERIFY(!form.isVisible());
    QCOMPARE(desk.figures(u"select jf_mfje,jf_jfgz,jf_yelj,jf_srjfbs,jf_srjflx,jf_srjfts,jf_dbjf,"
                          "jf_hyr,jf_hyrmy1,jf_hyrmy2,jf_hyrzk from jxc_jfsz"_qs),
             u"10 0 1 2 1 3 3 1 1 1 0.88"_qs);
    QCOMPARE(desk.texts(u"select jf_dbrq1,jf_dbrq2 from jxc_jfsz"_qs),
             QStringList{u"2026-04-10|2026-04-20"_qs});
    QCOMPARE(desk.lastLog(), u"修改会员设置"_qs);

    // What is switched off stays as it was stored.
    (void)desk.open<TF_Hyksz>(u"TF_Hyksz"_qs);
    retype(form, "jf_dbjf", u"0"_qs);
    QVERIFY(!enabled("jf_dbrq1"));
    auto &day = field<QComboBox>(form, "jf_hyr");
    day.setFocus();
    press(Qt::Key_Home);
    QVERIFY(!enabled("jf_hyrmy1") && !enabled("jf_hyrzk"));
    desk.user.answers = {false};
    press(Qt::Key_Escape);
    QVERIFY(form.isVisible());
    press(Qt::Key_F5);
    QCOMPARE(desk.texts(u"select jf_dbjf,jf_dbrq1,jf_hyr,jf_hyrmy2 from jxc_jfsz"_qs),
             QStringList{u"0|2026-04-10|0|1"_qs});
}

void TestMemberSettings::pointsBuyGifts() {
    MemberDesk desk;
    desk.addGifts();
    desk.set(u"cs_kc"_qs, 0);
    auto &list = desk.open<TF_Dhzp>(u"TF_Dhzp"_qs);
    press(Qt::Key_Insert);
    auto &editor = *list.findChild<TF_Dhzp_Add *>();
    enter(u"13900001111"_qs);
    QVERIFY(child<QLabel>(editor, u"points"_qs)->text().contains(u"100"_qs));
    enter(); // warehouse
    enter(); // date, fixed
    enter(u"春季"_qs);
    enter(u"农药"_qs); // the cheaper one comes first
    enter(u"2"_qs);
    enter(u"Z1"_qs);
    enter(u"5"_qs);
    QVERIFY(child<QLabel>(editor, u"sums"_qs)->text().contains(u"剩余积分 -80"_qs));
    atNextDialog([&](QWidget *) {
        enter(u"1"_qs);
        QCOMPARE(desk.told(), u"会员密码不正确！"_qs);
        enter(u"66"_qs);
    });
    press(Qt::Key_F5);
    QCOMPARE(desk.told(), u"赠品“农药Z2”库存不足！"_qs);
    press(Qt::Key_Escape); // from its quantity into its line, which goes
    press(Qt::Key_Delete, Qt::ControlModifier);
    QCOMPARE(editor.table().rows().records().size(), size_t{1});
    editor.table().edit(0, 5);
    enter(u"4"_qs);
    press(Qt::Key_F5); // the password was right before
    QCOMPARE(desk.told(), u"会员积分不足！"_qs);
    QVERIFY(editor.isVisible());
    editor.table().edit(0, 5);
    enter(u"3"_qs);
    press(Qt::Key_F5);
    QCOMPARE(desk.told(), QString());
    QCOMPARE(findMember(desk.db, u"100002"_qs)->points, 10_d);
    QCOMPARE(desk.stock(u"Z1"_qs).section(u' ', 0, 0), u"1"_qs);
    bringUp(&list);
    QCOMPARE(list.grid().currentText(u"hy_name"), u"老李"_qs);
    QCOMPARE(list.grid().currentText(u"dh_note"), u"春季"_qs);
    QCOMPARE(list.lines().currentText(u"g_sn"), u"Z1"_qs);
    QCOMPARE(Decimal::fromText(list.lines().currentText(u"dh_jf")), 90_d);
    const QString number = list.grid().currentText(u"gl_djh");
    desk.user.takeAsked();
    press(Qt::Key_F9);
    QCOMPARE(desk.user.takeAsked(),
             QStringList{u"您的操作将撤销积分兑换：%1，确认吗？"_qs.arg(number)});
    QCOMPARE(findMember(desk.db, u"100002"_qs)->points, 100_d);
    QCOMPARE(list.grid().model().rowCount(), 0);
    press(Qt::Key_Delete);
    QCOMPARE(desk.told(), u"请先选择一条记录！"_qs);
}

JXC_GUI_MAIN(TestMemberSettings, QApplication)
#include "test_member_settings.moc"
