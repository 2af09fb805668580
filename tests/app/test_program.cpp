#include "app/form_registry.h"
#include "app/program.h"
#include "app/tf_loading.h"
#include "app/tf_login.h"
#include "app/tf_mainform.h"
#include "core/account_set.h"
#include "core/backup.h"
#include "core/operation_log.h"
#include "db/creation.h"
#include "support/windows.h"

#include <QDateEdit>
#include <QDir>
#include <QLocale>
#include <QPushButton>
#include <QSignalSpy>
#include <clocale>

using namespace jxc;
using namespace jxc::test;

namespace {

Application &application() {
    return *static_cast<Application *>(QCoreApplication::instance());
}

/// A button whose click throws.
template<class Fault>
void clickAndThrow(const Fault &fault) {
    QPushButton button;
    QObject::connect(&button, &QPushButton::clicked, [&] { throw fault; });
    button.show();
    QTest::mouseClick(&button, Qt::LeftButton);
}

} // namespace

class TestProgram : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void cleanup();
    void tellsFaultsAndGoesOn();
    void endsOnForeignAccountSet();
    void asksInBoxes_data();
    void asksInBoxes();
    void writesDatesInOneForm_data();
    void writesDatesInOneForm();
    void offersNewAccountSet();
    void refusesForeignFile();
    void startsToTheLogin();
};

void TestProgram::cleanup() {
    application().setPrompter(nullptr);
    application().setReconnect({});
}

void TestProgram::tellsFaultsAndGoesOn() {
    ScriptedPrompter user;
    application().setPrompter(&user);
    clickAndThrow(std::runtime_error("磁盘空间不足"));
    clickAndThrow(Refusal(u"不行！"_qs));
    clickAndThrow(DatabaseError(u"语句不对"_qs, u"select"_qs, {}));
    clickAndThrow(7);
    QCOMPARE(user.told, (QStringList{u"磁盘空间不足"_qs, u"不行！"_qs, u"语句不对"_qs,
                                     u"程序发生未知错误！"_qs}));
    user.told.clear();
    int reconnected = 0;
    application().setReconnect([&] {
        ++reconnected;
        throw std::runtime_error("still away");
    });
    clickAndThrow(ConnectionLost(u"与数据库服务器的连接已断开！"_qs, u"select"_qs, {}));
    QCOMPARE(reconnected, 1);
    QCOMPARE(user.told, QStringList{u"与数据库服务器的连接已断开！\r\n\r\n已录入的内容没有丢失，"
                                    u"连接恢复后请再操作一次。"_qs});
}

void TestProgram::endsOnForeignAccountSet() {
    ScriptedPrompter user;
    application().setPrompter(&user);
    QSignalSpy unreadable(&application(), &Application::accountSetUnreadable);
    clickAndThrow(NotOurDatabase(u"data/jxc.mdb"_qs));
    clickAndThrow(DatabaseError(u"不能打开 data/jxc.mdb"_qs, {}, {}));
    QCOMPARE(user.told, QStringList(2, u"数据库格式不可识别！\r\n\r\n系统将退出！"_qs));
    QCOMPARE(unreadable.size(), 2);
    clickAndThrow(DatabaseError(u"另一个错误"_qs, {}, {}));
    QCOMPARE(unreadable.size(), 2);
}

void TestProgram::asksInBoxes_data() {
    QTest::addColumn<int>("key");
    QTest::addColumn<bool>("answer");
    QTest::newRow("Y") << static_cast<int>(Qt::Key_Y) << true;
    QTest::newRow("N") << static_cast<int>(Qt::Key_N) << false;
    QTest::newRow("Enter") << static_cast<int>(Qt::Key_Return) << true;
    QTest::newRow("Esc") << static_cast<int>(Qt::Key_Escape) << false;
}

void TestProgram::asksInBoxes() {
    QFETCH(int, key);
    QFETCH(bool, answer);
    BoxPrompter prompter;
    BoxPresser asked(static_cast<Qt::Key>(key));
    QCOMPARE(prompter.confirm(u"您的操作将<b>删除</b>\r\n\r\n确认吗？"_qs, confirmCaption), answer);
    QCOMPARE(asked.title, u"信息提醒"_qs);
    QCOMPARE(asked.text, u"您的操作将<b>删除</b>\n\n确认吗？"_qs);
    BoxPresser told(Qt::Key_Escape);
    prompter.inform(u"密码修改成功！"_qs, informCaption);
    QCOMPARE(told.title, u"系统提示"_qs);
}

void TestProgram::writesDatesInOneForm_data() {
    QTest::addColumn<QString>("locale");
    for (const auto *name : {"zh_CN", "en_US", "de_DE", "ar_SA", "fa_IR", "th_TH"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

/// Whatever the workstation is set to, dates and numbers are written as the books compare them.
void TestProgram::writesDatesInOneForm() {
    QFETCH(QString, locale);
    QLocale::setDefault(QLocale(locale));
    std::setlocale(LC_NUMERIC, "de_DE.UTF-8");
    useFixedLocale();
    QCOMPARE(std::localeconv()->decimal_point, ".");
    TestDatabase place(Engine::Sqlite);
    const FixedClock clock(QDateTime(QDate(2026, 3, 5), QTime(7, 8, 9)));
    Session session(place.db(), clock);
    session.currentDatabaseFile = u"jxc.mdb"_qs;
    QCOMPARE(session.today(), u"2026-03-05"_qs);
    QCOMPARE(backupFileName(session, session.now()), u"jxc26_03_05_07_08_09.DAT"_qs);
    writeLog(session, u"记录"_qs);
    QCOMPARE(place.db().scalar(u"select log_time from jxc_log"_qs), u"2026-03-05 07:08:09"_qs);
    QDateEdit field(session.now().date());
    field.setDisplayFormat(u"yyyy-MM-dd"_qs);
    QCOMPARE(field.text(), u"2026-03-05"_qs);
}

void TestProgram::offersNewAccountSet() {
    const QTemporaryDir home;
    const QString file = home.filePath(u"data/jxc.mdb"_qs);
    {
        Program program(application(), {home.path(), {}});
        BoxPresser no(Qt::Key_N);
        QVERIFY(!program.start());
        QVERIFY(no.text.contains(QDir::toNativeSeparators(file)));
        QVERIFY(!QFile::exists(file));
    }
    Program program(application(), {home.path(), {}});
    BoxPresser yes(Qt::Key_Y);
    QVERIFY(program.start());
    Database db(Location::ofFile(file));
    QCOMPARE(db.scalar(u"select a_name from jxc_admin"_qs), u"admin"_qs);
}

void TestProgram::refusesForeignFile() {
    const QTemporaryDir home;
    QVERIFY(QDir(home.path()).mkpath(u"data"_qs));
    QFile file(home.filePath(u"data/jxc.mdb"_qs));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("something else altogether, that is no account set");
    file.close();
    Program program(application(), {home.path(), {}});
    BoxPresser told(Qt::Key_Return);
    QVERIFY(!program.start());
    QCOMPARE(told.text, u"数据库格式不可识别！\n\n系统将退出！"_qs);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QVERIFY(file.readAll().startsWith("something else"));
}

/// The whole way, as main goes it: the splash's three ticks, the main window, the login over it.
void TestProgram::startsToTheLogin() {
    const QTemporaryDir home;
    QVERIFY(QDir(home.path()).mkpath(u"data"_qs));
    {
        Database db(Location::ofFile(home.filePath(u"data/jxc.mdb"_qs)), Database::Opening::empty);
        resetAllTables(db, QDate(2026, 3, 1));
    }
    Program program(application(), {home.path(), {}});
    QVERIFY(program.start());
    TF_Loading *loading = nullptr;
    for (QWidget *window : QApplication::topLevelWidgets())
        if (auto *splash = qobject_cast<TF_Loading *>(window))
            loading = splash;
    QVERIFY(loading != nullptr && loading->isVisible());
    for (int tick = 1; tick <= 3; ++tick)
        loading->Timer1Timer();
    auto *login = qobject_cast<TF_Login *>(QApplication::activeModalWidget());
    QVERIFY(login != nullptr);
    auto *window = qobject_cast<TF_MainForm *>(login->parentWidget());
    QVERIFY(window != nullptr && window->isVisible());
    QTest::keyClick(login, Qt::Key_F5);
    QVERIFY(window->windowTitle().startsWith(u"农资进销存管理系统 ["));
    QTRY_VERIFY(QApplication::activeModalWidget() != nullptr); // the first reminder
    QCOMPARE(QApplication::activeModalWidget()->objectName(), u"TF_Mryt"_qs);
}

JXC_GUI_MAIN(TestProgram, Application)
#include "test_program.moc"
