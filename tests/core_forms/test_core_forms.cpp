#include "app/form_registry.h"
#include "core/forms/tf_admin.h"
#include "core/forms/tf_bqjl.h"
#include "core/forms/tf_pwdmodi.h"
#include "core/forms/tf_role.h"
#include "core/forms/tf_role_add.h"
#include "core/forms/tf_skin.h"
#include "core/forms/tf_viewlog.h"
#include "core/forms/tf_xtwh.h"
#include "core/login.h"
#include "core/operators.h"
#include "core/skin.h"
#include "support/windows.h"
#include "ui/grid.h"
#include "ui/period_bar.h"

#include <QAction>
#include <QClipboard>
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTreeWidget>

using namespace jxc;
using namespace jxc::test;

namespace {

struct Office {
    Shop shop;
    FormRegistry registry{shop.session, shop.user, shop.place.folder()};

    Office() { registerForms(registry); }
    template<class FormClass>
    FormClass *open(const char16_t *name) {
        auto *form = qobject_cast<FormClass *>(registry.openForm(QString::fromUtf16(name), {}));
        bringUp(form);
        return form;
    }
    /// The dialog that a form has just opened.
    static QWidget *dialog() {
        QWidget *top = QApplication::activeModalWidget();
        bringUp(top);
        return top;
    }
    ~Office() {
        while (QWidget *top = QApplication::activeModalWidget())
            top->hide();
    }
    void seatClerk(const QString &group, const QList<int> &rights) {
        shop.clerk(group, rights);
        if (!authenticate(shop.session, u"小王"_qs, {}))
            qFatal("the clerk cannot log in");
    }
};

QString cell(Grid &grid, int line, int column) {
    return grid.model().cellText(line, column);
}

QLineEdit *edit(QWidget *window, const char16_t *name) {
    return child<QLineEdit>(*window, QString::fromUtf16(name));
}

} // namespace

class TestCoreForms : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void operators_data() { addEngineRows(); }
    void operators();
    void clerksChangeOnlyThemselves_data() { addEngineRows(); }
    void clerksChangeOnlyThemselves();
    void rolesWriteTheirPositions_data() { addEngineRows(); }
    void rolesWriteTheirPositions();
    void password_data() { addEngineRows(); }
    void password();
    void log_data() { addEngineRows(); }
    void log();
    void look_data() { addEngineRows(); }
    void look();
    void notes_data() { addEngineRows(); }
    void notes();
    void maintenanceAsksItsOwnRights_data() { addEngineRows(); }
    void maintenanceAsksItsOwnRights();
};

void TestCoreForms::operators() {
    Office office;
    auto *form = office.open<TF_Admin>(u"TF_Admin");
    Grid &table = form->grid();
    QTest::keyClick(form, Qt::Key_Insert);
    QWidget *editor = office.dialog();
    QTest::keyClick(editor, Qt::Key_F5);
    QCOMPARE(office.shop.user.told.last(), u"用户名称必须填写！"_qs);
    // Enter leads through the fields and at last to the button.
    QVERIFY(edit(editor, u"a_name")->hasFocus());
    typeText(edit(editor, u"a_name"), u"小李"_qs);
    QTest::keyClick(edit(editor, u"a_name"), Qt::Key_Return);
    QVERIFY(edit(editor, u"a_pwd")->hasFocus());
    QTest::keyClicks(edit(editor, u"a_pwd"), u"1"_qs);
    QTest::keyClick(edit(editor, u"a_pwd"), Qt::Key_Return);
    QTest::keyClicks(edit(editor, u"a_pwd2"), u"2"_qs);
    QTest::keyClick(editor, Qt::Key_F5);
    QCOMPARE(office.shop.user.told.last(), u"两次密码输入不一致！"_qs);
    edit(editor, u"a_pwd2")->setText(u"1"_qs);
    QTest::keyClicks(edit(editor, u"a_zreoje"), u"0.5x"_qs); // a letter is no amount
    QTest::keyClick(editor, Qt::Key_F5);
    QVERIFY(!editor->isVisible());
    QCOMPARE(office.shop.texts(u"select a_sn,a_name,a_pwd,r_sn from jxc_admin where id>1"_qs),
             QStringList{u"100002|小李|1|100001"_qs});
    QCOMPARE(listOperators(office.shop.session).back().roundingLimit, 0.5_d);

    QCOMPARE(table.model().rowCount(), 2);
    bringUp(form);
    table.goToLine(1);
    QTest::keyClick(form, Qt::Key_C, Qt::ControlModifier);
    QVERIFY(!QApplication::clipboard()->text().isEmpty());
    QTest::keyClick(form, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(table.model().rowCount(), 3);
    QCOMPARE(cell(table, 2, 1), u"复制 小李"_qs);
    table.goToLine(2);
    QTest::keyClick(form, Qt::Key_Delete);
    QCOMPARE(table.model().rowCount(), 2);
    table.goToLine(0);
    QTest::keyClick(form, Qt::Key_Delete);
    QCOMPARE(office.shop.user.told.last(), u"系统默认数据，不能删除！"_qs);

    table.goToLine(1);
    QTest::keyClick(form, Qt::Key_F4);
    editor = office.dialog();
    QCOMPARE(edit(editor, u"a_name")->text(), u"小李"_qs);
    edit(editor, u"a_name")->setText(u"小张"_qs);
    office.shop.user.answers = {false};
    QTest::keyClick(editor, Qt::Key_Escape); // what was typed goes only if one says so
    QVERIFY(editor->isVisible());
    QCOMPARE(office.shop.user.asked.last(), u"内容已修改，确认放弃吗？"_qs);
    QTest::keyClick(editor, Qt::Key_F5);
    QCOMPARE(cell(table, 1, 1), u"小张"_qs);
}

void TestCoreForms::clerksChangeOnlyThemselves() {
    Office office;
    office.seatClerk(u"qtcz"_qs, {6});
    auto *form = office.open<TF_Admin>(u"TF_Admin");
    Grid &table = form->grid();
    QCOMPARE(table.model().rowCount(), 1);
    QTest::keyClick(form, Qt::Key_Insert);
    QCOMPARE(QApplication::activeModalWidget(), form);
    QTest::keyClick(form, Qt::Key_F4);
    QVERIFY(!child<QComboBox>(*office.dialog(), u"r_sn"_qs)->isEnabled());
}

void TestCoreForms::rolesWriteTheirPositions() {
    Office office;
    auto *form = office.open<TF_Role>(u"TF_Role");
    QTest::keyClick(form, Qt::Key_F4);
    QCOMPARE(office.shop.user.told.last(), u"系统管理员角色不能修改或删除！"_qs);
    QTest::keyClick(form, Qt::Key_Insert);
    auto *editor = qobject_cast<TF_Role_Add *>(office.dialog());
    typeText(edit(editor, u"r_name"), u"店员"_qs);
    auto *tree = child<QTreeWidget>(*editor, u"treeRights"_qs);
    QCOMPARE(tree->topLevelItemCount(), 8);
    tree->setCurrentItem(tree->topLevelItem(2));
    QTest::keyClick(editor, Qt::Key_F7); // the whole of 库存管理
    tree->topLevelItem(2)->child(16)->setCheckState(0, Qt::Unchecked);
    QCOMPARE(tree->topLevelItem(2)->checkState(0), Qt::PartiallyChecked);
    tree->topLevelItem(6)->setCheckState(0, Qt::Checked); // by its own box
    tree->topLevelItem(1)->setExpanded(true);
    tree->setCurrentItem(tree->topLevelItem(1)->child(3));
    tree->setFocus();
    QTest::keyClick(tree, Qt::Key_Space);
    QTest::keyClick(editor, Qt::Key_F5);
    QCOMPARE(office.shop.texts(u"select r_sn,r_name,cggl,xsgl,kcgl,wlzk,gspgl from jxc_role where "
                               u"r_sn='100002'"_qs),
             QStringList{u"100002|店员|00000000000000000|0001000000000000000|111111111111111101|"
                         u"000000000000000|1111111111111"_qs});

    Grid &table = form->grid();
    bringUp(form);
    table.goToLine(1);
    QTest::keyClick(form, Qt::Key_F4);
    editor = qobject_cast<TF_Role_Add *>(office.dialog());
    QVERIFY(editor->rights() == listRoles(office.shop.session).back().rights);
    QTest::keyClick(editor, Qt::Key_Escape); // unchanged: no question
    QVERIFY(office.shop.user.asked.isEmpty());
    bringUp(form);
    QTest::keyClick(form, Qt::Key_Delete);
    QCOMPARE(office.shop.user.takeAsked(), QStringList{u"您的操作将删除角色：店员，确认吗？"_qs});
    QCOMPARE(table.model().rowCount(), 1);
}

void TestCoreForms::password() {
    Office office;
    auto *form = office.open<TF_PwdModi>(u"TF_PwdModi");
    const auto fill = [&](const char16_t *current, const char16_t *wanted, const char16_t *again) {
        edit(form, u"edtOld")->setText(QString::fromUtf16(current));
        edit(form, u"edtNew")->setText(QString::fromUtf16(wanted));
        edit(form, u"edtNew2")->setText(QString::fromUtf16(again));
        QTest::keyClick(form, Qt::Key_F5);
    };
    fill(u"", u"1", u"2");
    fill(u"x", u"1", u"1");
    QVERIFY(form->isVisible());
    fill(u"", u"1", u"1");
    QCOMPARE(office.shop.user.told,
             (QStringList{u"两次密码输入不一致，不能修改密码！"_qs,
                          u"当前密码错误，不能修改密码！"_qs, u"密码修改成功！"_qs}));
    QVERIFY(!form->isVisible());
    office.open<TF_PwdModi>(u"TF_PwdModi"); // the kept one forgets what was typed
    QCOMPARE(edit(form, u"edtNew")->text(), QString());
}

void TestCoreForms::log() {
    Office office;
    for (const auto &[time, note] : std::vector<std::pair<const char16_t *, const char16_t *>>{
             {u"2026-02-28 23:59:59", u"旧的"}, {u"2026-03-31 23:59:59", u"新的"}})
        office.shop.db.insertRow(
            u"jxc_log"_qs,
            {{u"log_time"_qs, time}, {u"a_name"_qs, u"admin"}, {u"log_note"_qs, note}});
    auto *form = office.open<TF_ViewLog>(u"TF_ViewLog");
    const auto count = [&] { return form->grid().model().rowCount(); };
    const auto *days = form->findChild<PeriodBar *>();
    auto *clear = child<QAction>(*form, u"btnClear"_qs);
    QCOMPARE(days->period(), (Period{u"2026-03-01"_qs, u"2026-03-31"_qs}));
    QCOMPARE(count(), 1);
    QCOMPARE(cell(form->grid(), 0, 2), u"新的"_qs);
    QTest::keyClick(form, Qt::Key_6, Qt::AltModifier);
    QCOMPARE(days->period(), (Period{u"2000-01-01"_qs, u"9999-12-31"_qs}));
    QCOMPARE(count(), 2);
    typeText(edit(form, u"edtFind"), u"旧"_qs);
    QTest::keyClick(edit(form, u"edtFind"), Qt::Key_Return);
    QCOMPARE(count(), 1);
    QVERIFY(clear->isVisible());
    office.shop.user.answers = {false};
    clear->trigger();
    QCOMPARE(count(), 1);
    clear->trigger();
    QCOMPARE(count(), 0);
    QVERIFY(!office.shop.db.exists(u"select id from jxc_log"_qs)); // all, not only what was shown

    form->close();
    // A window that stays open over midnight.
    PeriodBar bar(u"2026-03-31"_qs, PeriodChoice::thisMonth);
    bar.setToday(u"2026-04-01"_qs);
    QCOMPARE(bar.period(), (Period{u"2026-04-01"_qs, u"2026-04-30"_qs}));
    bar.setPeriod({u"2026-01-05"_qs, u"2026-01-09"_qs});
    bar.setToday(u"2026-04-02"_qs);
    QCOMPARE(bar.period(), (Period{u"2026-01-05"_qs, u"2026-01-09"_qs}));
    office.seatClerk(u"qtcz"_qs, {14});
    office.open<TF_ViewLog>(u"TF_ViewLog");
    QVERIFY(!clear->isVisible());
    form->btnClearClick();
    QCOMPARE(office.shop.user.told.last(),
             u"您没有权限进行清除日志！\r\n\r\n或者没有可用的仓库。"_qs);
}

void TestCoreForms::look() {
    Office office;
    auto *form = office.open<TF_Skin>(u"TF_Skin");
    QVERIFY(child<QRadioButton>(*form, u"浅色"_qs)->isChecked());
    child<QRadioButton>(*form, u"深色"_qs)->click();
    QCOMPARE(Theme::current().name, u"深色"_qs);
    QCOMPARE(skinOf(office.shop.session), u"深色"_qs);
    office.seatClerk(u"cggl"_qs, {});
    child<QRadioButton>(*form, u"浅色"_qs)->click();
    QCOMPARE(Theme::current().name, u"浅色"_qs);
    QCOMPARE(office.shop.texts(u"select a_name,skin_name from jxc_skin order by id"_qs),
             (QStringList{u"admin|深色"_qs, u"小王|浅色"_qs}));
}

void TestCoreForms::notes() {
    Office office;
    auto *form = office.open<TF_Bqjl>(u"TF_Bqjl");
    auto *text = child<QPlainTextEdit>(*form, u"bq_txt"_qs);
    typeText(text, u"给老张打电话\n'订货'"_qs);
    QTest::keyClick(text, Qt::Key_Escape);
    QVERIFY(!form->isVisible());
    office.open<TF_Bqjl>(u"TF_Bqjl");
    QCOMPARE(text->toPlainText(), u"给老张打电话\n'订货'"_qs);
    form->close();
    office.seatClerk(u"cggl"_qs, {});
    office.open<TF_Bqjl>(u"TF_Bqjl");
    QCOMPARE(text->toPlainText(), QString());
    QCOMPARE(office.shop.db.scalar(u"select count(*) from jxc_bqjl"_qs), u"1"_qs);
}

void TestCoreForms::maintenanceAsksItsOwnRights() {
    Office office;
    office.seatClerk(u"qtcz"_qs, {14});
    auto *form = office.open<TF_Xtwh>(u"TF_Xtwh");
    const auto click = [&](const char16_t *formClass) {
        office.shop.user.told.clear();
        form->click(*std::ranges::find(maintenanceServices(), QString::fromUtf16(formClass),
                                       &MaintenanceService::formClass));
        return office.shop.user.told.value(0);
    };
    for (const auto *admins : {u"TF_Guide", u"TF_Sjql", u"TF_Nzjs", u"TF_Fdsz"})
        QCOMPARE(click(admins), u"只有系统管理员才能进行此操作！"_qs);
    QCOMPARE(click(u"TF_Backup"),
             u"您没有权限进行备份/恢复数据库！\r\n\r\n或者没有可用的仓库。"_qs);
    child<QPushButton>(*form, u"TF_ViewLog"_qs)->click();
    QCOMPARE(office.dialog()->objectName(), u"TF_ViewLog"_qs);
    QVERIFY(!child<QPushButton>(*form, u"TF_Nzjs"_qs)->isEnabled());
}

JXC_GUI_MAIN(TestCoreForms, QApplication)
#include "test_core_forms.moc"
