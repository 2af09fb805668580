#include "app/card_board.h"
#include "app/form_registry.h"
#include "app/status_panes.h"
#include "app/tf_mainform.h"
#include "core/roles.h"
#include "services/opening.h"
#include "support/windows.h"
#include "ui/icons.h"

#include <QDir>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>

using namespace jxc;
using namespace jxc::test;

namespace {

/// The main window over forms that only show that they were opened.
struct Counter {
    Shop shop;
    FormRegistry registry{shop.session, shop.user, shop.place.folder()};
    std::unique_ptr<TF_MainForm> window;

    explicit Counter(const QStringList &missing = {}) {
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
    Counter counter;
    counter.seatClerk(QStringLiteral("cggl"), {});
    for (const FunctionButton &button : dispatchTable()) {
        if (button.rights.isEmpty())
            continue;
        counter.shop.user.told.clear();
        counter.window->click(button);
        QCOMPARE(counter.shop.user.told, QStringList{refusalOf(button)});
        QCOMPARE(counter.takeShown(), QString());
        for (const int position : button.rights) { // any one of them suffices
            QString flags(30, u'0');
            flags[position - 1] = u'1';
            counter.shop.db.execute(QStringLiteral("update jxc_role set %1=? where r_sn='100002'")
                                        .arg(button.rightGroup),
                                    {flags});
            counter.window->click(button);
            const Form *form = counter.registry.kept(button.formClass);
            QVERIFY2(form != nullptr && form->isVisible(), qPrintable(button.handler));
            if (!button.formCaption.isEmpty())
                QCOMPARE(form->windowTitle(), button.formCaption);
            QCOMPARE(counter.takeShown(), button.formClass);
            QCOMPARE(counter.shop.user.told.size(), 1);
        }
        counter.shop.db.execute(
            QStringLiteral("update jxc_role set %1='' where r_sn='100002'").arg(button.rightGroup));
    }
    // These are everybody's.
    for (const auto *handler :
         {u"btn_BqjlClick", u"btn_Menu6_Btn9Click", u"btn_RjbzClick", u"btn_Menu1_Right5Click"}) {
        const FunctionButton *button = findButton(handler);
        counter.window->click(*button);
        QCOMPARE(counter.takeShown(), button->formClass);
    }
}

/// While warehouses are restricted, who is in no warehouse's list may do nothing.
void TestMainForm::restrictedWithoutWarehouse() {
    Counter counter;
    counter.seatClerk(QStringLiteral("kcgl"), {1});
    const FunctionButton *button = findButton(u"btn_Menu3_Btn1Click");
    counter.shop.set(QStringLiteral("cs_cs002"), 1);
    counter.window->click(*button);
    QCOMPARE(counter.shop.user.told, QStringList{refusalOf(*button)});
    counter.shop.db.execute(QStringLiteral("update jxc_ckxx set ck_asn='100002,'"));
    counter.window->click(*button);
    QCOMPARE(counter.takeShown(), u"TF_Kcdb"_qs);
}

void TestMainForm::keepsOneInstance() {
    Counter counter;
    counter.window->menuClick(2);
    counter.card(QStringLiteral("img_Menu2_CangkuClick"))->click();
    Form *first = counter.registry.kept(QStringLiteral("TF_Kccx"));
    first->setProperty("state", 7);
    QCOMPARE(first->windowTitle(), u"当前库存查询"_qs);
    counter.takeShown();
    counter.window->menuClick(3);
    counter.card(QStringLiteral("img_Menu3_CangkuClick"))->click();
    QCOMPARE(counter.registry.kept(QStringLiteral("TF_Kccx")), first);
    QCOMPARE(first->property("state").toInt(), 7);
    QCOMPARE(first->windowTitle(), u"库存商品变动查询"_qs);
    // Opened again from a form above it, it comes up as it is.
    counter.registry.openForm(QStringLiteral("TF_Djcx"), {});
    QCOMPARE(counter.registry.openForm(QStringLiteral("TF_Kccx"), {}), first);
    QVERIFY(first->isVisible());
    QCOMPARE(QApplication::activeModalWidget(), first);
}

void TestMainForm::missingFormsAreDisabled() {
    Counter counter({QStringLiteral("TF_Cgth"), QStringLiteral("TF_Rjbz")});
    counter.window->menuClick(1);
    FunctionCard *missing = counter.card(QStringLiteral("btn_Menu1_Btn2Click"));
    QVERIFY(!missing->isEnabled());
    QCOMPARE(missing->toolTip(), u"尚未提供"_qs);
    QTest::keyClicks(counter.window.get(), missing->key());
    QCOMPARE(counter.takeShown(), QString());
    QTest::keyClick(counter.window.get(), Qt::Key_F1); // no help yet: nothing happens
    QCOMPARE(counter.takeShown(), QString());
}

void TestMainForm::keysReachEverything() {
    Counter counter({QStringLiteral("TF_Cgth")});
    TF_MainForm &window = *counter.window;
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
    QCOMPARE(counter.takeShown(), u"TF_Cgrk"_qs);
    QTest::keyClick(cards[2], Qt::Key_Left);
    QTest::keyClick(cards[0], Qt::Key_Space);
    QCOMPARE(counter.takeShown(), u"TF_Cgjh"_qs);
    QTest::keyClick(cards[0], Qt::Key_Down); // a row below: five columns at this width
    QVERIFY(cards[5]->hasFocus());
    for (FunctionCard *card : cards) {
        if (!card->isEnabled())
            continue;
        QTest::keyClicks(&window, card->key().toLower());
        QCOMPARE(counter.takeShown(), card->button().formClass);
    }
}

void TestMainForm::findsFunctions() {
    Counter counter;
    auto *find = child<QLineEdit>(*counter.window, QStringLiteral("edtFind"));
    QTest::keyClick(counter.window.get(), Qt::Key_F2);
    QVERIFY(find->hasFocus());
    QTest::keyClicks(find, QStringLiteral("kcpd"));
    QCOMPARE(counter.window->board().cards().size(), size_t{1});
    QTest::keyClick(find, Qt::Key_Return);
    QCOMPARE(counter.takeShown(), u"TF_Kcpd"_qs);
    QTest::keyClick(find, Qt::Key_Escape);
    QCOMPARE(counter.window->board().cards().size(), buttonsOf(1).size());
    QTest::keyClick(counter.window.get(), Qt::Key_K, Qt::ControlModifier);
    typeText(find, QStringLiteral("退货"));
    QCOMPARE(counter.window->board().cards().size(), size_t{4});
    QTest::keyClick(find, Qt::Key_Down);
    QVERIFY(counter.window->board().cards()[0]->hasFocus());
    find->setText(QStringLiteral("没有这个"));
    QVERIFY(counter.window->board().cards().empty());
    QTest::keyClick(find, Qt::Key_Return);
    QCOMPARE(counter.takeShown(), QString());
}

void TestMainForm::tellsWhoAndWhere() {
    Counter counter;
    const QStringList texts = counter.window->panes().texts();
    QCOMPARE(texts[0], u"岚舟通软件"_qs);
    QCOMPARE(texts[1], u"操作员：admin"_qs);
    QCOMPARE(texts[2], u"当前帐套:jxc"_qs);
    QVERIFY(texts[3].startsWith(counter.shop.session.company.name));
    QCOMPARE(texts[5], u"按F1键查看帮助文档  "_qs);
    QCOMPARE(counter.window->windowTitle(), u"农资进销存管理系统 [岚舟通农资] "_qs);
    // The month's stock values are begun.
    QCOMPARE(counter.shop.db.scalar(
                 QStringLiteral("select count(*) from jxc_kcjs where js_rq='2026-03'")),
             counter.shop.db.scalar(QStringLiteral("select count(*) from jxc_ckxx")));
    QTest::mouseClick(child<QPushButton>(*counter.window, QStringLiteral("paneOperator")),
                      Qt::LeftButton);
    QCOMPARE(counter.takeShown(), u"TF_PwdModi"_qs);
    counter.seatClerk(QStringLiteral("cggl"), {1});
    QTest::mouseClick(child<QPushButton>(*counter.window, QStringLiteral("paneBackup")),
                      Qt::LeftButton);
    QCOMPARE(counter.shop.user.told.last(),
             u"您没有权限进行备份/恢复数据库！\r\n\r\n或者没有可用的仓库。"_qs);
}

void TestMainForm::changesOperator() {
    Counter counter;
    counter.shop.clerk(QStringLiteral("cggl"), {1});
    counter.window->click(*findButton(u"btn_Menu1_Btn1Click"));
    const QPointer<Form> before = counter.registry.kept(QStringLiteral("TF_Cgjh"));
    counter.takeShown();
    QSignalSpy ended(counter.window.get(), &TF_MainForm::ended);

    counter.window->click(*findButton(u"btn_HbglClick"));
    QWidget *login = QApplication::activeModalWidget();
    QTest::keyClick(login, Qt::Key_Escape);
    QCOMPARE(counter.window->panes().texts()[1], u"操作员：admin"_qs);
    QVERIFY(before != nullptr);

    counter.window->click(*findButton(u"btn_HbglClick"));
    login = QApplication::activeModalWidget();
    QTest::keyClick(child<QLineEdit>(*login, QStringLiteral("edtPwd")), Qt::Key_Down);
    QTest::keyClick(login, Qt::Key_F5);
    QCOMPARE(counter.window->panes().texts()[1], u"操作员：小王"_qs);
    QCOMPARE(counter.window->panes().texts()[2], u"当前帐套:jxc"_qs);
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
    Counter counter;
    QSignalSpy ended(counter.window.get(), &TF_MainForm::ended);
    const QString folder = counter.shop.place.folder() + QStringLiteral("/backups");
    QDir().mkpath(folder);
    counter.shop.session.backup = {folder, false, true, 0, 0};
    counter.shop.db.execute(QStringLiteral("delete from jxc_backup"));
    counter.shop.db.insertRow(QStringLiteral("jxc_backup"), {{QStringLiteral("back_path"), folder},
                                                             {QStringLiteral("back_exit"), 1}});
    counter.shop.user.answers = {false, true};
    counter.window->click(*findButton(u"btn_TcxtClick"));
    QVERIFY(counter.window->isVisible());
    QVERIFY(!counter.logNotes().contains(u"退出系统"_qs));
    QVERIFY(ended.isEmpty());
    counter.window->close();
    QCOMPARE(counter.shop.user.takeAsked(),
             (QStringList{u"是否要退出系统？"_qs, u"是否要退出系统？"_qs}));
    QVERIFY(!counter.window->isVisible());
    QCOMPARE(counter.logNotes().last(), u"退出系统"_qs);
    QCOMPARE(QDir(folder).entryList(QDir::Files), QStringList{u"jxc26_03_31_09_00_00.DAT"_qs});
    QCOMPARE(ended.size(), 1);
}

void TestMainForm::backsUpInTheBackground() {
    Counter counter;
    BackupWatch &backups = counter.window->backups();
    QCOMPARE(backups.text(), u"尚未设置备份"_qs);
    QVERIFY(backups.isOverdue());
    backups.backupTimer(); // nothing is set: nothing happens
    QVERIFY(!backups.isRunning());

    const QString folder = counter.shop.place.folder() + QStringLiteral("/backups");
    QDir().mkpath(folder);
    counter.shop.db.execute(QStringLiteral("delete from jxc_backup"));
    counter.shop.db.insertRow(QStringLiteral("jxc_backup"), {{QStringLiteral("back_path"), folder},
                                                             {QStringLiteral("back_auto"), 1},
                                                             {QStringLiteral("back_sj"), 3}});
    counter.window->FormActivate();
    QCOMPARE(backups.interval(), 3 * 60 * 60 * 1000);
    QCOMPARE(backups.text(), u"上次备份：无"_qs);
    QVERIFY(backups.isOverdue());
    backups.backupTimer();
    QVERIFY(backups.isRunning());
    QTRY_VERIFY(!backups.isRunning());
    const QFileInfo file(folder + QStringLiteral("/jxc26_03_31_09_00_00.DAT"));
    QVERIFY(file.exists());
    counter.shop.clock.set(file.lastModified().addSecs(2 * 3600 + 5));
    QCOMPARE(backups.text(), u"上次备份：2小时前"_qs);
    QVERIFY(!backups.isOverdue());
    counter.shop.clock.set(file.lastModified().addSecs(3 * 3600 + 5));
    QVERIFY(backups.isOverdue());
    counter.shop.clock.set(file.lastModified());

    counter.shop.db.execute(QStringLiteral("update jxc_backup set back_path=?"),
                            {QString(folder + QStringLiteral("/gone"))});
    backups.backupTimer();
    QTRY_VERIFY(!backups.isRunning());
    QCOMPARE(backups.text(), u"备份失败！上次备份：刚刚"_qs);
    QVERIFY(backups.isOverdue());
    QVERIFY(counter.shop.user.told.isEmpty()); // no box stands in the way of work
}

void TestMainForm::reminds() {
    Counter counter;
    const auto remind = [&](const char16_t *who, int way, const char16_t *when) {
        counter.shop.db.insertRow(QStringLiteral("jxc_tx"), {{QStringLiteral("tx_dx"), who},
                                                             {QStringLiteral("tx_fs"), way},
                                                             {QStringLiteral("tx_sj"), when},
                                                             {QStringLiteral("tx_zt"), u"0"}});
    };
    counter.window->Timer1Timer(); // a new account set shows both windows, one after the other
    QCOMPARE(counter.takeShown(), u"TF_Mryt"_qs);
    QCOMPARE(counter.takeShown(), u"TF_Sjtx"_qs);
    QCOMPARE(counter.takeShown(), QString());

    counter.shop.db.execute(QStringLiteral("update jxc_txdisp set t_mryt='0',t_sjtx='1'"));
    remind(u"小王", 2, u"2026-03-31");
    remind(u"admin", 2, u"2026-04-01");
    remind(u"全体人员", 3, u"1,2"); // today is a Tuesday, 3
    remind(u"全体人员", 4, u"01,30");
    counter.window->Timer1Timer();
    QCOMPARE(counter.takeShown(), QString());

    remind(u"admin", 2, u"2026-03-31");
    counter.window->Timer1Timer();
    QCOMPARE(counter.takeShown(), u"TF_Sjtx"_qs);
    QCOMPARE(counter.shop.db.scalar(QStringLiteral("select count(*) from jxc_tx where tx_zt='1'")),
             u"1"_qs);
    counter.window->Timer1Timer(); // once only
    QCOMPARE(counter.takeShown(), QString());
    for (const auto &[way, when] : std::vector<std::pair<int, const char16_t *>>{
             {3, u"3"}, {4, u"15,31"}, {1, u"程序启动时"}}) {
        counter.shop.db.execute(QStringLiteral("delete from jxc_tx"));
        remind(u"全体人员", way, when);
        for (int start = 1; start <= 2; ++start) { // these come back
            counter.window->Timer1Timer();
            QCOMPARE(counter.takeShown(), u"TF_Sjtx"_qs);
        }
    }
}

/// 1366 by 768, also at 150 %: no card leaves the board, no pane covers another.
void TestMainForm::everythingFitsSmallScreens() {
    Counter counter;
    for (const QSize size : {QSize(1366, 768), QSize(910, 512)}) {
        counter.window->resize(size);
        QTest::qWait(1);
        QVERIFY(counter.window->minimumSizeHint().width() <= size.width());
        QVERIFY(counter.window->minimumSizeHint().height() <= size.height());
        for (int group = 1; group <= 8; ++group) {
            counter.window->menuClick(group);
            for (const FunctionCard *card : counter.window->board().cards()) {
                QVERIFY(card->geometry().right() < counter.window->board().viewport()->width());
                QVERIFY(card->width() >= FunctionCard::leastWidth);
            }
        }
    }
}

JXC_GUI_MAIN(TestMainForm, QApplication)
#include "test_mainform.moc"
