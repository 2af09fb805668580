#include "app/card_board.h"
#include "app/form_registry.h"
#include "app/status_panes.h"
#include "app/tf_mainform.h"
#include "core/roles.h"
#include "services/opening.h"
#include "support/gui.h"
#include "ui/icons.h"

#include <QDir>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>

using namespace jxc;
using namespace jxc::test;

namespace {

/// The main window over forms that only show that they were opened.
struct Desk {
    Shop shop;
    FormRegistry registry{shop.session, shop.user, shop.place.folder()};
    std::unique_ptr<TF_MainForm> window;

    explicit Desk(const QStringList &missing = {}) {
        for (const FunctionButton &button : dispatchTable())
            if (!missing.contains(button.formClass))
                addForm(button.formClass);
        for (const auto *more : {u"TF_Mryt", u"TF_Sjtx", u"TF_PwdModi", u"TF_Backup"})
            addForm(QString::fromUtf16(more));
        window = std::make_unique<TF_MainForm>(registry, 1'000'000);
        registry.setOwner(window.get());
        window->resize(1366, 768);
        window->show();
        openSession(shop.session, u"admin"_qs, {});
        window->FormActivate();
        bringUp(window.get());
    }
    void addForm(const QString &name) {
        registry.add(name, [name](const FormContext &context, QWidget *parent) {
            return new Form(context, name, QStringLiteral("无题"), parent);
        });
    }
    /// The clerk sits down with these rights of a group and no other.
    void seatClerk(const QString &group, const QList<int> &rights) {
        shop.clerk(group, rights);
        openSession(shop.session, u"小王"_qs, {});
    }
    /// The form that is shown now; it is closed again.
    QString takeShown() {
        for (QWidget *widget : QApplication::topLevelWidgets())
            if (auto *form = qobject_cast<Form *>(widget); form != nullptr && form->isVisible()) {
                form->close();
                if (QApplication::activeModalWidget() == nullptr)
                    bringUp(window.get());
                return form->objectName();
            }
        return {};
    }
    QStringList logNotes() {
        return shop.texts(QStringLiteral("select log_note from jxc_log order by id"));
    }
    FunctionCard *card(const QString &handler) { return child<FunctionCard>(*window, handler); }
};

QString refusalOf(const FunctionButton &button) {
    return QStringLiteral("您没有权限进行%1\r\n\r\n或者没有可用的仓库。").arg(button.refusal);
}

} // namespace

class TestMainForm : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void tableIsComplete();
    void everyButtonIsGuarded_data() { addEngineRows(); }
    void everyButtonIsGuarded();
    void restrictedWithoutWarehouse_data() { addEngineRows(); }
    void restrictedWithoutWarehouse();
    void keepsOneInstance_data() { addEngineRows(); }
    void keepsOneInstance();
    void missingFormsAreDisabled_data() { addEngineRows(); }
    void missingFormsAreDisabled();
    void keysReachEverything_data() { addEngineRows(); }
    void keysReachEverything();
    void findsFunctions_data() { addEngineRows(); }
    void findsFunctions();
    void tellsWhoAndWhere_data() { addEngineRows(); }
    void tellsWhoAndWhere();
    void changesOperator_data() { addEngineRows(); }
    void changesOperator();
    void cancelledLoginEnds_data() { addEngineRows(); }
    void cancelledLoginEnds();
    void asksBeforeLeaving_data() { addEngineRows(); }
    void asksBeforeLeaving();
    void backsUpInTheBackground_data() { addEngineRows(); }
    void backsUpInTheBackground();
    void reminds_data() { addEngineRows(); }
    void reminds();
    void everythingFitsSmallScreens_data() { addEngineRows(); }
    void everythingFitsSmallScreens();
};

void TestMainForm::tableIsComplete() {
    QSet<QString> handlers;
    int guarded = 0;
    for (const FunctionButton &button : dispatchTable()) {
        QVERIFY2(!handlers.contains(button.handler), qPrintable(button.handler));
        handlers.insert(button.handler);
        QVERIFY2(hasIcon(button.icon), qPrintable(button.icon));
        QVERIFY(!button.caption.isEmpty() && button.group >= 0 && button.group <= 8);
        if (button.rights.isEmpty())
            continue;
        ++guarded;
        QVERIFY(button.refusal.endsWith(u'！'));
        const auto group = std::ranges::find(rightsTree(), button.rightGroup, &RightsGroup::column);
        QVERIFY2(group != rightsTree().end(), qPrintable(button.rightGroup));
        for (const int position : button.rights) // the role dialog can grant it
            QVERIFY2(position >= 1 && position <= group->rights.size(), qPrintable(button.handler));
    }
    QCOMPARE(guarded, 88);
    QCOMPARE(dispatchTable().size(), size_t{94});
    for (int group = 1; group <= 8; ++group) { // each has a letter of its own
        QSet<QChar> keys;
        for (const FunctionButton *button : buttonsOf(group))
            keys.insert(keyOf(*button));
        QCOMPARE(keys.size(), static_cast<qsizetype>(buttonsOf(group).size()));
        QVERIFY(!keys.contains(QChar()));
    }
}

void TestMainForm::everyButtonIsGuarded() {
    Desk desk;
    desk.seatClerk(QStringLiteral("cggl"), {});
    for (const FunctionButton &button : dispatchTable()) {
        if (button.rights.isEmpty())
            continue;
        desk.shop.user.told.clear();
        desk.window->click(button);
        QCOMPARE(desk.shop.user.told, QStringList{refusalOf(button)});
        QCOMPARE(desk.takeShown(), QString());
        for (const int position : button.rights) { // any one of them suffices
            QString flags(30, u'0');
            flags[position - 1] = u'1';
            desk.shop.db.execute(QStringLiteral("update jxc_role set %1=? where r_sn='100002'")
                                     .arg(button.rightGroup),
                                 {flags});
            desk.window->click(button);
            const Form *form = desk.registry.kept(button.formClass);
            QVERIFY2(form != nullptr && form->isVisible(), qPrintable(button.handler));
            if (!button.formCaption.isEmpty())
                QCOMPARE(form->windowTitle(), button.formCaption);
            QCOMPARE(desk.takeShown(), button.formClass);
            QCOMPARE(desk.shop.user.told.size(), 1);
        }
        desk.shop.db.execute(
            QStringLiteral("update jxc_role set %1='' where r_sn='100002'").arg(button.rightGroup));
    }
    // These are everybody's.
    for (const auto *handler :
         {u"btn_BqjlClick", u"btn_Menu6_Btn9Click", u"btn_RjbzClick", u"btn_Menu1_Right5Click"}) {
        const FunctionButton *button = findButton(handler);
        desk.window->click(*button);
        QCOMPARE(desk.takeShown(), button->formClass);
    }
}

/// While warehouses are restricted, who is in no warehouse's list may do nothing.
void TestMainForm::restrictedWithoutWarehouse() {
    Desk desk;
    desk.seatClerk(QStringLiteral("kcgl"), {1});
    const FunctionButton *button = findButton(u"btn_Menu3_Btn1Click");
    desk.shop.set(QStringLiteral("cs_cs002"), 1);
    desk.window->click(*button);
    QCOMPARE(desk.shop.user.told, QStringList{refusalOf(*button)});
    desk.shop.db.execute(QStringLiteral("update jxc_ckxx set ck_asn='100002,'"));
    desk.window->click(*button);
    QCOMPARE(desk.takeShown(), u"TF_Kcdb"_qs);
}

void TestMainForm::keepsOneInstance() {
    Desk desk;
    desk.window->menuClick(2);
    desk.card(QStringLiteral("img_Menu2_CangkuClick"))->click();
    Form *first = desk.registry.kept(QStringLiteral("TF_Kccx"));
    first->setProperty("state", 7);
    QCOMPARE(first->windowTitle(), u"当前库存查询"_qs);
    desk.takeShown();
    desk.window->menuClick(3);
    desk.card(QStringLiteral("img_Menu3_CangkuClick"))->click();
    QCOMPARE(desk.registry.kept(QStringLiteral("TF_Kccx")), first);
    QCOMPARE(first->property("state").toInt(), 7);
    QCOMPARE(first->windowTitle(), u"库存商品变动查询"_qs);
    // Opened again from a form above it, it comes up as it is.
    desk.registry.openForm(QStringLiteral("TF_Djcx"), {});
    QCOMPARE(desk.registry.openForm(QStringLiteral("TF_Kccx"), {}), first);
    QVERIFY(first->isVisible());
    QCOMPARE(QApplication::activeModalWidget(), first);
}

void TestMainForm::missingFormsAreDisabled() {
    Desk desk({QStringLiteral("TF_Cgth"), QStringLiteral("TF_Rjbz")});
    desk.window->menuClick(1);
    FunctionCard *missing = desk.card(QStringLiteral("btn_Menu1_Btn2Click"));
    QVERIFY(!missing->isEnabled());
    QCOMPARE(missing->toolTip(), u"尚未提供"_qs);
    QTest::keyClicks(desk.window.get(), missing->key());
    QCOMPARE(desk.takeShown(), QString());
    QTest::keyClick(desk.window.get(), Qt::Key_F1); // no help yet: nothing happens
    QCOMPARE(desk.takeShown(), QString());
}

void TestMainForm::keysReachEverything() {
    Desk desk({QStringLiteral("TF_Cgth")});
    TF_MainForm &window = *desk.window;
    for (int group = 8; group >= 1; --group) {
        const auto digit = static_cast<Qt::Key>(Qt::Key_0 + group);
        QTest::keyClick(&window, digit, group % 2 == 0 ? Qt::AltModifier : Qt::ControlModifier);
        QCOMPARE(window.currentGroup(), group);
        QCOMPARE(window.board().cards().size(), buttonsOf(group).size());
    }
    QTest::keyClick(&window, Qt::Key_PageUp);
    QCOMPARE(window.currentGroup(), 8);
    QTest::keyClick(&window, Qt::Key_PageDown);
    QCOMPARE(window.currentGroup(), 1);

    const auto &cards = window.board().cards();
    QVERIFY(cards[0]->hasFocus());
    QTest::keyClick(cards[0], Qt::Key_Right); // over the one that is disabled
    QVERIFY(cards[2]->hasFocus());
    QTest::keyClick(cards[2], Qt::Key_Return);
    QCOMPARE(desk.takeShown(), u"TF_Cgrk"_qs);
    QTest::keyClick(cards[2], Qt::Key_Left);
    QTest::keyClick(cards[0], Qt::Key_Space);
    QCOMPARE(desk.takeShown(), u"TF_Cgjh"_qs);
    QTest::keyClick(cards[0], Qt::Key_Down); // a row below: five columns at this width
    QVERIFY(cards[5]->hasFocus());
    for (FunctionCard *card : cards) {
        if (!card->isEnabled())
            continue;
        QTest::keyClicks(&window, card->key().toLower());
        QCOMPARE(desk.takeShown(), card->button().formClass);
    }
}

void TestMainForm::findsFunctions() {
    Desk desk;
    auto *find = child<QLineEdit>(*desk.window, QStringLiteral("edtFind"));
    QTest::keyClick(desk.window.get(), Qt::Key_F2);
    QVERIFY(find->hasFocus());
    QTest::keyClicks(find, QStringLiteral("kcpd"));
    QCOMPARE(desk.window->board().cards().size(), size_t{1});
    QTest::keyClick(find, Qt::Key_Return);
    QCOMPARE(desk.takeShown(), u"TF_Kcpd"_qs);
    QTest::keyClick(find, Qt::Key_Escape);
    QCOMPARE(desk.window->board().cards().size(), buttonsOf(1).size());
    QTest::keyClick(desk.window.get(), Qt::Key_K, Qt::ControlModifier);
    typeText(find, QStringLiteral("退货"));
    QCOMPARE(desk.window->board().cards().size(), size_t{4});
    QTest::keyClick(find, Qt::Key_Down);
    QVERIFY(desk.window->board().cards()[0]->hasFocus());
    find->setText(QStringLiteral("没有这个"));
    QVERIFY(desk.window->board().cards().empty());
    QTest::keyClick(find, Qt::Key_Return);
    QCOMPARE(desk.takeShown(), QString());
}

void TestMainForm::tellsWhoAndWhere() {
    Desk desk;
    const QStringList texts = desk.window->panes().texts();
    QCOMPARE(texts[0], u"岚舟通软件"_qs);
    QCOMPARE(texts[1], u"操作员：admin"_qs);
    QCOMPARE(texts[2], u"当前帐套:jxc"_qs);
    QVERIFY(texts[3].startsWith(desk.shop.session.company.name));
    QCOMPARE(texts[5], u"按F1键查看帮助文档  "_qs);
    QCOMPARE(desk.window->windowTitle(), u"农资进销存管理系统 [岚舟通农资] "_qs);
    // The month's stock values are begun.
    QCOMPARE(
        desk.shop.db.scalar(QStringLiteral("select count(*) from jxc_kcjs where js_rq='2026-03'")),
        desk.shop.db.scalar(QStringLiteral("select count(*) from jxc_ckxx")));
    QTest::mouseClick(child<QPushButton>(*desk.window, QStringLiteral("paneOperator")),
                      Qt::LeftButton);
    QCOMPARE(desk.takeShown(), u"TF_PwdModi"_qs);
    desk.seatClerk(QStringLiteral("cggl"), {1});
    QTest::mouseClick(child<QPushButton>(*desk.window, QStringLiteral("paneBackup")),
                      Qt::LeftButton);
    QCOMPARE(desk.shop.user.told.last(),
             u"您没有权限进行备份/恢复数据库！\r\n\r\n或者没有可用的仓库。"_qs);
}

void TestMainForm::changesOperator() {
    Desk desk;
    desk.shop.clerk(QStringLiteral("cggl"), {1});
    desk.window->click(*findButton(u"btn_Menu1_Btn1Click"));
    const QPointer<Form> before = desk.registry.kept(QStringLiteral("TF_Cgjh"));
    desk.takeShown();
    QSignalSpy ended(desk.window.get(), &TF_MainForm::ended);

    desk.window->click(*findButton(u"btn_HbglClick"));
    QWidget *login = QApplication::activeModalWidget();
    QTest::keyClick(login, Qt::Key_Escape);
    QCOMPARE(desk.window->panes().texts()[1], u"操作员：admin"_qs);
    QVERIFY(before != nullptr);

    desk.window->click(*findButton(u"btn_HbglClick"));
    login = QApplication::activeModalWidget();
    QTest::keyClick(child<QLineEdit>(*login, QStringLiteral("edtPwd")), Qt::Key_Down);
    QTest::keyClick(login, Qt::Key_F5);
    QCOMPARE(desk.window->panes().texts()[1], u"操作员：小王"_qs);
    QCOMPARE(desk.window->panes().texts()[2], u"当前帐套:jxc"_qs);
    QVERIFY(ended.isEmpty());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(before == nullptr); // what admin left open is not for the clerk's eyes
}

void TestMainForm::cancelledLoginEnds() {
    Shop shop;
    FormRegistry registry(shop.session, shop.user, shop.place.folder());
    shop.session.loginOk = false;
    TF_MainForm window(registry);
    QSignalSpy ended(&window, &TF_MainForm::ended);
    window.FormShow();
    QVERIFY(window.windowTitle().startsWith(u"岚舟通农资进销存管理系统 "));
    QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape);
    QCOMPARE(ended.size(), 1);
    QVERIFY(shop.user.asked.isEmpty());
}

void TestMainForm::asksBeforeLeaving() {
    Desk desk;
    QSignalSpy ended(desk.window.get(), &TF_MainForm::ended);
    const QString folder = desk.shop.place.folder() + QStringLiteral("/backups");
    QDir().mkpath(folder);
    desk.shop.session.backup = {folder, false, true, 0, 0};
    desk.shop.db.execute(QStringLiteral("delete from jxc_backup"));
    desk.shop.db.insertRow(QStringLiteral("jxc_backup"), {{QStringLiteral("back_path"), folder},
                                                          {QStringLiteral("back_exit"), 1}});
    desk.shop.user.answers = {false, true};
    desk.window->click(*findButton(u"btn_TcxtClick"));
    QVERIFY(desk.window->isVisible());
    QVERIFY(!desk.logNotes().contains(u"退出系统"_qs));
    QVERIFY(ended.isEmpty());
    desk.window->close();
    QCOMPARE(desk.shop.user.takeAsked(),
             (QStringList{u"是否要退出系统？"_qs, u"是否要退出系统？"_qs}));
    QVERIFY(!desk.window->isVisible());
    QCOMPARE(desk.logNotes().last(), u"退出系统"_qs);
    QCOMPARE(QDir(folder).entryList(QDir::Files), QStringList{u"jxc26_03_31_09_00_00.DAT"_qs});
    QCOMPARE(ended.size(), 1);
}

void TestMainForm::backsUpInTheBackground() {
    Desk desk;
    BackupWatch &backups = desk.window->backups();
    QCOMPARE(backups.text(), u"尚未设置备份"_qs);
    QVERIFY(backups.isOverdue());
    backups.backupTimer(); // nothing is set: nothing happens
    QVERIFY(!backups.isRunning());

    const QString folder = desk.shop.place.folder() + QStringLiteral("/backups");
    QDir().mkpath(folder);
    desk.shop.db.execute(QStringLiteral("delete from jxc_backup"));
    desk.shop.db.insertRow(QStringLiteral("jxc_backup"), {{QStringLiteral("back_path"), folder},
                                                          {QStringLiteral("back_auto"), 1},
                                                          {QStringLiteral("back_sj"), 3}});
    desk.window->FormActivate();
    QCOMPARE(backups.interval(), 3 * 60 * 60 * 1000);
    QCOMPARE(backups.text(), u"上次备份：无"_qs);
    QVERIFY(backups.isOverdue());
    backups.backupTimer();
    QVERIFY(backups.isRunning());
    QTRY_VERIFY(!backups.isRunning());
    const QFileInfo file(folder + QStringLiteral("/jxc26_03_31_09_00_00.DAT"));
    QVERIFY(file.exists());
    desk.shop.clock.set(file.lastModified().addSecs(2 * 3600 + 5));
    QCOMPARE(backups.text(), u"上次备份：2小时前"_qs);
    QVERIFY(!backups.isOverdue());
    desk.shop.clock.set(file.lastModified().addSecs(3 * 3600 + 5));
    QVERIFY(backups.isOverdue());
    desk.shop.clock.set(file.lastModified());

    desk.shop.db.execute(QStringLiteral("update jxc_backup set back_path=?"),
                         {QString(folder + QStringLiteral("/gone"))});
    backups.backupTimer();
    QTRY_VERIFY(!backups.isRunning());
    QCOMPARE(backups.text(), u"备份失败！上次备份：刚刚"_qs);
    QVERIFY(backups.isOverdue());
    QVERIFY(desk.shop.user.told.isEmpty()); // no box stands in the way of work
}

void TestMainForm::reminds() {
    Desk desk;
    const auto remind = [&](const char16_t *who, int way, const char16_t *when) {
        desk.shop.db.insertRow(QStringLiteral("jxc_tx"), {{QStringLiteral("tx_dx"), who},
                                                          {QStringLiteral("tx_fs"), way},
                                                          {QStringLiteral("tx_sj"), when},
                                                          {QStringLiteral("tx_zt"), u"0"}});
    };
    desk.window->Timer1Timer(); // a new account set shows both windows, one after the other
    QCOMPARE(desk.takeShown(), u"TF_Mryt"_qs);
    QCOMPARE(desk.takeShown(), u"TF_Sjtx"_qs);
    QCOMPARE(desk.takeShown(), QString());

    desk.shop.db.execute(QStringLiteral("update jxc_txdisp set t_mryt='0',t_sjtx='1'"));
    remind(u"小王", 2, u"2026-03-31");
    remind(u"admin", 2, u"2026-04-01");
    remind(u"全体人员", 3, u"1,2"); // today is a Tuesday, 3
    remind(u"全体人员", 4, u"01,30");
    desk.window->Timer1Timer();
    QCOMPARE(desk.takeShown(), QString());

    remind(u"admin", 2, u"2026-03-31");
    desk.window->Timer1Timer();
    QCOMPARE(desk.takeShown(), u"TF_Sjtx"_qs);
    QCOMPARE(desk.shop.db.scalar(QStringLiteral("select count(*) from jxc_tx where tx_zt='1'")),
             u"1"_qs);
    desk.window->Timer1Timer(); // once only
    QCOMPARE(desk.takeShown(), QString());
    for (const auto &[way, when] : std::vector<std::pair<int, const char16_t *>>{
             {3, u"3"}, {4, u"15,31"}, {1, u"程序启动时"}}) {
        desk.shop.db.execute(QStringLiteral("delete from jxc_tx"));
        remind(u"全体人员", way, when);
        for (int start = 1; start <= 2; ++start) { // these come back
            desk.window->Timer1Timer();
            QCOMPARE(desk.takeShown(), u"TF_Sjtx"_qs);
        }
    }
}

/// 1366 by 768, also at 150 %: no card leaves the board, no pane covers another.
void TestMainForm::everythingFitsSmallScreens() {
    Desk desk;
    for (const QSize size : {QSize(1366, 768), QSize(910, 512)}) {
        desk.window->resize(size);
        QTest::qWait(1);
        QVERIFY(desk.window->minimumSizeHint().width() <= size.width());
        QVERIFY(desk.window->minimumSizeHint().height() <= size.height());
        for (int group = 1; group <= 8; ++group) {
            desk.window->menuClick(group);
            for (const FunctionCard *card : desk.window->board().cards()) {
                QVERIFY(card->geometry().right() < desk.window->board().viewport()->width());
                QVERIFY(card->width() >= FunctionCard::leastWidth);
            }
        }
    }
}

JXC_GUI_MAIN(TestMainForm, QApplication)
#include "test_mainform.moc"
