#include "app/form_registry.h"
#include "app/tf_loading.h"
#include "app/tf_login.h"
#include "core/operators.h"
#include "support/windows.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>

using namespace jxc;
using namespace jxc::test;

namespace {

/// A shop before anybody is in: the administrator without a password, 小王 with "1".
struct Door {
    TestDatabase place{currentEngine()};
    Database &db = place.db();
    FixedClock clock{QDateTime(QDate(2026, 3, 31), QTime(9, 0))};
    Session session{db, clock};
    ScriptedPrompter user;
    FormRegistry registry{session, user, place.folder()};
    QPointer<TF_Login> login;

    explicit Door(const QString &callerWord = {}, const QString &modeWord = {}) {
        db.insertRow(QStringLiteral("jxc_admin"), {{QStringLiteral("a_sn"), u"100002"},
                                                   {QStringLiteral("a_name"), u"小王"},
                                                   {QStringLiteral("a_pwd"), u"1"},
                                                   {QStringLiteral("r_sn"), u"100001"}});
        login = new TF_Login(registry.context(), callerWord, modeWord);
        login->showModal();
        bringUp(login);
    }
    ~Door() { delete login; }

    QComboBox &operators() { return *child<QComboBox>(*login, QStringLiteral("comAdmin")); }
    QLineEdit &password() { return *child<QLineEdit>(*login, QStringLiteral("edtPwd")); }
    QString hint() { return child<QLabel>(*login, QStringLiteral("lblHint"))->text(); }
    QString log() {
        return db.scalar(QStringLiteral("select log_note from jxc_log order by id desc limit 1"));
    }
};

} // namespace

class TestLogin : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void offersOperators_data() { addEngineRows(); }
    void offersOperators();
    void refusesWrongPassword_data() { addEngineRows(); }
    void refusesWrongPassword();
    void letsIn_data();
    void letsIn();
    void cancelling_data();
    void cancelling();
    void counterLoadsForItself_data() { addEngineRows(); }
    void counterLoadsForItself();
    void splashStages();
};

void TestLogin::offersOperators() {
    Door door;
    QCOMPARE(door.login->windowTitle(), u"岚舟通农资进销存管理系统 ---- 操作员登录"_qs);
    QCOMPARE(door.operators().count(), 2);
    QCOMPARE(door.operators().currentText(), u"admin"_qs);
    QCOMPARE(door.hint(), u"初始密码为空"_qs);
    QVERIFY(door.password().hasFocus());
    QTest::keyClicks(&door.password(), QStringLiteral("abc"));
    QTest::keyClick(&door.password(), Qt::Key_Down); // another operator: nothing typed stays
    QCOMPARE(door.operators().currentText(), u"小王"_qs);
    QCOMPARE(door.hint(), QString());
    QCOMPARE(door.password().text(), QString());
    QTest::keyClick(&door.password(), Qt::Key_Up);
    QCOMPARE(door.hint(), u"初始密码为空"_qs);
}

void TestLogin::refusesWrongPassword() {
    Door door;
    QTest::keyClick(&door.password(), Qt::Key_Down);
    for (int attempt = 1; attempt <= 3; ++attempt) {
        QTest::keyClicks(&door.password(), QStringLiteral("2"));
        QTest::keyClick(&door.password(), Qt::Key_Return);
        QCOMPARE(door.user.told.size(), attempt);
        QCOMPARE(door.user.told.last(), u"用户密码不正确，请重新输入！"_qs);
        QVERIFY(door.login->isVisible());
        QCOMPARE(door.password().text(), QString());
        QVERIFY(door.password().hasFocus());
        QVERIFY(!door.session.loginOk);
    }
    QCOMPARE(door.log(), QString());
}

void TestLogin::letsIn_data() {
    QTest::addColumn<Engine>("engine");
    QTest::addColumn<int>("key");
    for (const Engine engine : engines())
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_F5})
            QTest::addRow("%s %x", qPrintable(engineName(engine)), key)
                << engine << static_cast<int>(key);
}

void TestLogin::letsIn() {
    QFETCH(int, key);
    Door door;
    QSignalSpy accepted(door.login, &QDialog::accepted);
    QTest::keyClick(&door.password(), Qt::Key_Down);
    QTest::keyClicks(&door.password(), QStringLiteral(" 1 "));
    QTest::keyClick(&door.password(), static_cast<Qt::Key>(key));
    QCOMPARE(accepted.size(), 1);
    QVERIFY(!door.login->isVisible());
    QVERIFY(door.session.loginOk);
    QCOMPARE(door.session.currentOperatorName, u"小王"_qs);
    QCOMPARE(door.session.currentOperatorNo, u"100002"_qs);
    QCOMPARE(door.session.currentRoleNo, u"100001"_qs);
    QCOMPARE(door.session.currentDatabaseFile, u"jxc.mdb"_qs);
    QVERIFY(!door.session.company.shortName.isEmpty()); // loaded
    QCOMPARE(door.log(), u"登录系统"_qs);
    QVERIFY(door.user.told.isEmpty());
}

void TestLogin::cancelling_data() {
    QTest::addColumn<Engine>("engine");
    QTest::addColumn<QString>("caller");
    QTest::addColumn<bool>("byFrame");
    for (const bool byFrame : {false, true}) {
        QTest::addRow("start %d", byFrame) << Engine::Sqlite << QString() << byFrame;
        QTest::addRow("running %d", byFrame) << Engine::Sqlite << u"hb"_qs << byFrame;
    }
}

/// Cancelled at the start nobody is in; cancelled in the running program everything stays.
void TestLogin::cancelling() {
    QFETCH(QString, caller);
    QFETCH(bool, byFrame);
    Door door(caller);
    door.session.currentOperatorName = u"admin"_qs;
    QVERIFY(!door.session.loginOk);
    if (byFrame)
        door.login->close();
    else
        QTest::keyClick(&door.password(), Qt::Key_Escape);
    QVERIFY(!door.login->isVisible());
    QCOMPARE(door.session.loginOk, !caller.isEmpty());
    QCOMPARE(door.session.currentOperatorName, u"admin"_qs);
    QCOMPARE(door.log(), QString());
}

void TestLogin::counterLoadsForItself() {
    Door door({}, QStringLiteral("PosLogin"));
    QTest::keyClick(&door.password(), Qt::Key_Return);
    QVERIFY(door.session.loginOk);
    QCOMPARE(door.session.currentOperatorName, u"admin"_qs);
    QCOMPARE(door.log(), QString());
    QVERIFY(door.session.company.shortName.isEmpty());
}

void TestLogin::splashStages() {
    TF_Loading loading(1'000'000);
    QSignalSpy finished(&loading, &TF_Loading::finished);
    loading.FormActivate();
    QCOMPARE(loading.windowTitle(), u"岚舟通农资进销存管理系统"_qs);
    QCOMPARE(loading.statusText(), u"正在装载系统......"_qs);
    loading.Timer1Timer();
    QCOMPARE(loading.statusText(), u"正在设置环境参数......"_qs);
    loading.Timer1Timer();
    QCOMPARE(loading.statusText(), u"系统即将启动......"_qs);
    QVERIFY(loading.isVisible());
    loading.Timer1Timer();
    QVERIFY(!loading.isVisible());
    QCOMPARE(finished.size(), 1);

    TF_Loading running(1);
    QSignalSpy ran(&running, &TF_Loading::finished);
    running.FormActivate();
    QTRY_COMPARE(ran.size(), 1);
}

JXC_GUI_MAIN(TestLogin, QApplication)
#include "test_login.moc"
