// What scripts and scheduled jobs rely on: the words and exit codes of the command-line tool.
#include "faults/fault_shop.h"
#include "support/ctl_process.h"

#include <QDir>
#include <QFile>
#include <QTest>

using namespace jxc;
using namespace jxc::test;
using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int done = 0;
constexpr int failed = 1;
constexpr int refused = 2;
constexpr int usage = 64;

QByteArray contentOf(const QString &path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(path));
    return file.readAll();
}

void put(const QString &path, const QByteArray &content) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write %s", qPrintable(path));
}

bool hasServer() {
    const auto all = engines();
    return std::find(all.begin(), all.end(), Engine::Postgres) != all.end();
}

} // namespace

/// The whole answer: what is written out and the exit code.
#define COMPARE_ANSWER(answer, code, text)                                                         \
    do {                                                                                           \
        const CtlAnswer given = (answer);                                                          \
        QVERIFY2(given.exitCode == (code), qPrintable(given.shown()));                             \
        QCOMPARE(given.out, QString(text));                                                        \
    } while (false)

class TestCtl : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void commandLine();
    void passwords();
    void createKeepsWhatIsThere();
    void foreignFilesStayAsTheyAre();
    void approvesAndCancels_data() { addEngineRows(); }
    void approvesAndCancels();
    void batchAnswersLineByLine_data() { addEngineRows(); }
    void batchAnswersLineByLine();
    void refusesUnsoundDocuments_data() { addEngineRows(); }
    void refusesUnsoundDocuments();
    void takesNumbersAsText_data() { addEngineRows(); }
    void takesNumbersAsText();
    void verifyTellsDifferences_data() { addEngineRows(); }
    void verifyTellsDifferences();
    void importsLists_data() { addEngineRows(); }
    void importsLists();
    void postsAndSettlesTheCounter_data() { addEngineRows(); }
    void postsAndSettlesTheCounter();
    void backsUpAndRestores_data() { addEngineRows(); }
    void backsUpAndRestores();
    void copiesToTheServerAndBack();
    void upgradesNothingCurrent_data() { addEngineRows(); }
    void upgradesNothingCurrent();
};

void TestCtl::commandLine() {
    const QTemporaryDir home;
    const QString nowhere = home.filePath(u"none.mdb"_s);
    const std::vector<QStringList> senseless = {
        {},
        {u"nonsense"_s},
        {u"--nonsense"_s, u"verify"_s},
        {u"--database"_s},
        {u"--database"_s, nowhere, u"approve"_s},
        {u"--database"_s, nowhere, u"batch"_s},
        {u"--database"_s, nowhere, u"verify"_s, u"more"_s},
        {u"--database"_s, nowhere, u"reset"_s, u"everything"_s},
        {u"--database"_s, nowhere, u"restore"_s},
        {u"--database"_s, nowhere, u"copy"_s, nowhere},
        {u"--database"_s, nowhere, u"demo"_s, u"--days"_s, u"many"_s},
    };
    for (const QStringList &line : senseless) {
        const CtlAnswer answer = runCtl(line);
        QVERIFY2(answer.exitCode == usage, qPrintable(line.join(u' ') + u'\n' + answer.shown()));
        QVERIFY(answer.out.isEmpty() && !answer.err.isEmpty());
    }
    const CtlAnswer help = runCtl({u"help"_s});
    QCOMPARE(help.exitCode, done);
    QVERIFY(help.out.contains(u"approve NUMBER"));
    QVERIFY(QDir(home.path()).isEmpty());
}

void TestCtl::passwords() {
    FaultShop shop(Engine::Sqlite);
    const QString number = shop.save(u"CJ"_s);
    const Digest before = digestOf(shop.witness());
    const QString wrong = u"用户密码不正确，请重新输入！\n"_s;
    for (const QStringList &line :
         {QStringList{u"--password"_s, u"x"_s, u"approve"_s, number},
          QStringList{u"--operator"_s, u"nobody"_s, u"approve"_s, number},
          QStringList{u"--password"_s, u"' or ''='"_s, u"approve"_s, number},
          QStringList{u"--password"_s, u"x"_s, u"batch"_s, u"-"_s}}) {
        const CtlAnswer answer = runCtlOn(shop.url(), line, "approve " + number.toUtf8() + '\n');
        QVERIFY2(answer.exitCode == refused, qPrintable(answer.shown()));
        QCOMPARE(answer.err, wrong);
        QVERIFY(answer.out.isEmpty());
    }
    QCOMPARE(differing(before, digestOf(shop.witness())), QString());
}

void TestCtl::createKeepsWhatIsThere() {
    const QTemporaryDir home;
    const QString file = home.filePath(u"data/jxc.mdb"_s);
    const QStringList create = {u"--home"_s, home.path(), u"create"_s};
    const CtlAnswer made = runCtl(create);
    QVERIFY2(made.exitCode == done && QFile::exists(file), qPrintable(made.shown()));
    QCOMPARE(runCtl({u"--home"_s, home.path(), u"verify"_s}).out, u"0 differences\n"_s);

    const auto goods = [&](const QString &sql) {
        Database db(Location::ofFile(file));
        if (!sql.isEmpty())
            db.execute(sql);
        return db.scalar(u"select count(*) from jxc_goods where g_sn='KEEP'"_s);
    };
    goods(u"insert into jxc_goods (g_sn) values ('KEEP')"_s);
    const CtlAnswer again = runCtl(create);
    QVERIFY2(again.exitCode == refused, qPrintable(again.shown()));
    QVERIFY(again.err.contains(u"已有帐套，不能覆盖："));
    QCOMPARE(goods({}), u"1"_s);
    const CtlAnswer demo = runCtl({u"--home"_s, home.path(), u"demo"_s, u"--days"_s, u"1"_s});
    QVERIFY2(demo.exitCode == refused, qPrintable(demo.shown()));
    QCOMPARE(goods({}), u"1"_s);
    QCOMPARE(runCtl(create + QStringList{u"--force"_s}).exitCode, done);
    QCOMPARE(goods({}), u"0"_s);
}

void TestCtl::foreignFilesStayAsTheyAre() {
    const QTemporaryDir home;
    const QString text = home.filePath(u"letter.mdb"_s);
    const QString empty = home.filePath(u"empty.mdb"_s);
    const QString cut = home.filePath(u"cut.mdb"_s);
    const QString other = home.filePath(u"other.mdb"_s);
    put(text, QByteArray("Dear customer,\r\n").repeated(500));
    put(empty, {});
    {
        const TestDatabase set(Engine::Sqlite);
        put(cut, contentOf(set.location().file).first(5000));
        Database db(Location::ofFile(other), Database::Opening::empty);
        db.execute(u"create table addresses (id integer primary key)"_s);
    }
    for (const QString &file : {text, empty, cut, other}) {
        const QByteArray content = contentOf(file);
        for (const QStringList &command :
             {QStringList{u"verify"_s}, QStringList{u"approve"_s, u"CJ2026031010001"_s},
              QStringList{u"upgrade"_s}, QStringList{u"backup"_s, home.path()}}) {
            const CtlAnswer answer = runCtlOn(file, command);
            QVERIFY2(answer.exitCode == refused, qPrintable(file + answer.shown()));
            QCOMPARE(answer.err, u"数据库格式不可识别！ / 系统将退出！\n"_s);
            QCOMPARE(contentOf(file), content);
        }
    }
    QVERIFY(
        QDir(home.path()).entryList({u"*.DAT*"_s, u"letter.mdb-*"_s, u"empty.mdb-*"_s}).isEmpty());
    // Nor is a letter written over by a new account set.
    const QByteArray letter = contentOf(text);
    const CtlAnswer create = runCtlOn(text, {u"create"_s, u"--force"_s});
    QVERIFY2(create.exitCode == refused, qPrintable(create.shown()));
    QCOMPARE(contentOf(text), letter);
    // One that is missing is not made by the way.
    QCOMPARE(runCtlOn(home.filePath(u"none.mdb"_s), {u"verify"_s}).exitCode, refused);
    QVERIFY(!QFile::exists(home.filePath(u"none.mdb"_s)));
}

void TestCtl::approvesAndCancels() {
    FaultShop shop(currentEngine());
    const QString a = shop.save(u"CJ"_s);
    const QString b = shop.saveSettlement(u"SK"_s);
    const QString told = u" refused: 单据已被其他操作员修改或审核，请刷新后重试！\n"_s;
    const QString unknown = u"CJ2026031099999"_s;
    COMPARE_ANSWER(runCtlOn(shop.url(), {u"approve"_s, a, b}), done,
                   a + u" ok\n"_s + b + u" ok\n"_s);
    COMPARE_ANSWER(runCtlOn(shop.url(), {u"approve"_s, a, b}), refused, a + told + b + told);
    COMPARE_ANSWER(
        runCtlOn(shop.url(), {u"approve"_s, unknown, u"ZZ1"_s}), refused,
        u"%1 refused: 单据“%1”不存在！\nZZ1 refused: 单据“ZZ1”不存在！\n"_s.arg(unknown));
    // Without --yes every question is answered No.
    const CtlAnswer no = runCtlOn(shop.url(), {u"cancel"_s, a});
    QVERIFY2(no.exitCode == refused, qPrintable(no.shown()));
    QCOMPARE(no.out, a + u" refused: 您的操作将取消当前选中的已审核单据：%1，确认吗？\n"_s.arg(a));
    QVERIFY(no.err.contains(u"—— 否"));
    QVERIFY(shop.isApproved(a));
    COMPARE_ANSWER(runCtlOn(shop.url(), {u"--yes"_s, u"cancel"_s, a}), done, a + u" ok\n"_s);
    COMPARE_ANSWER(runCtlOn(shop.url(), {u"cancel"_s, b, u"--yes"_s}), done, b + u" ok\n"_s);
    QVERIFY(!shop.isApproved(a) && !shop.isApproved(b));
    COMPARE_ANSWER(runCtlOn(shop.url(), {u"--yes"_s, u"cancel"_s, a}), refused,
                   u"%1 refused: 单据“%1”还没有审核！\n"_s.arg(a));
    // A text of several lines stands on one.
    const QString source = shop.save(shop.draft(u"CJ"_s));
    COMPARE_ANSWER(runCtlOn(shop.url(), {u"approve"_s, source}), done, source + u" ok\n"_s);
    shop.db().execute(u"update jxc_jhd set j_checker='other'"_s);
    shop.db().execute(u"update jxc_admin set a_sn='100002',r_sn='100099' where a_name='admin'"_s);
    COMPARE_ANSWER(
        runCtlOn(shop.url(), {u"--yes"_s, u"cancel"_s, source}), refused,
        u"%1 refused: 单据：%1，的审核人：other / 不允许其他人取消审核！\n"_s.arg(source));
}

void TestCtl::batchAnswersLineByLine() {
    FaultShop shop(currentEngine());
    const QString a = shop.save(u"CJ"_s);
    const QString b = shop.save(u"XS"_s);
    QProcess process;
    startCtl(process, shop.url(), {u"batch"_s, u"-"_s});
    const auto ask = [&](const QString &line) {
        process.write(line.toUtf8() + '\n');
        while (!process.canReadLine() && process.waitForReadyRead(20'000)) {
        }
        return QString::fromUtf8(process.readLine());
    };
    // Each answer is there before the next line is written, and so is what it reports.
    QCOMPARE(ask(u"approve "_s + a), a + u" ok\n"_s);
    QVERIFY(shop.isApproved(a));
    QVERIFY(!shop.isApproved(b));
    QCOMPARE(ask(u"  approve\t"_s + b + u"  \r"_s), b + u" ok\n"_s);
    QCOMPARE(ask(u"\n# a remark\ndelete "_s + a), a + u" refused: 无法识别的命令\n"_s);
    QCOMPARE(ask(u"approve "_s + a),
             a + u" refused: 单据已被其他操作员修改或审核，请刷新后重试！\n"_s);
    process.closeWriteChannel();
    QVERIFY(process.waitForFinished(20'000));
    QCOMPARE(process.exitCode(), refused);

    const QTemporaryDir folder;
    put(folder.filePath(u"work"_s), u"cancel %1\ncancel %2"_s.arg(b, a).toUtf8());
    COMPARE_ANSWER(runCtlOn(shop.url(), {u"--yes"_s, u"batch"_s, folder.filePath(u"work"_s)}), done,
                   b + u" ok\n"_s + a + u" ok\n"_s);
    QCOMPARE(runCtlOn(shop.url(), {u"batch"_s, folder.filePath(u"missing"_s)}).exitCode, refused);
    QCOMPARE(faultsOf(shop.witness()), QString());
}

void TestCtl::refusesUnsoundDocuments() {
    struct Fault {
        const char16_t *sql; ///< ? is the document's number
        QString says;
        bool fileOnly = false; ///< the server's own column types forbid it
    };
    const std::vector<Fault> faults = {
        {u"delete from jxc_jhsp where j_sn=?", u"单据没有明细，不能审核！"_s},
        {u"update jxc_jhd set j_jhrq='2026-02-30' where j_sn=?",
         u"单据日期“2026-02-30”无效，不能审核！"_s},
        {u"update jxc_jhd set j_jhrq='' where j_sn=?", u"单据日期“”无效，不能审核！"_s},
        {u"update jxc_jhd set ck_sn='199999' where j_sn=?",
         u"单据的仓库“199999”不存在，不能审核！"_s},
        {u"update jxc_jhsp set g_sn='GONE' where j_sn=?", u"商品“GONE”不存在，不能审核！"_s},
        {u"update jxc_jhsp set jh_sl='many' where j_sn=?", u"many"_s, true},
        {u"update jxc_jhsp set jh_zsl=9000000000000000000 where j_sn=?", u"数值超出范围！"_s},
    };
    FaultShop shop(currentEngine());
    for (const Fault &fault : faults) {
        if (fault.fileOnly && currentEngine() != Engine::Sqlite)
            continue;
        const QString number = shop.save(u"CJ"_s);
        const QString sql = QString::fromUtf16(fault.sql);
        shop.db().execute(sql, {number});
        Digest before = digestOf(shop.witness());
        const CtlAnswer answer = runCtlOn(shop.url(), {u"approve"_s, number});
        QVERIFY2(answer.exitCode == refused, qPrintable(sql + answer.shown()));
        QVERIFY2(answer.out.startsWith(number + u" refused: "_s) && answer.out.contains(fault.says),
                 qPrintable(sql + answer.shown()));
        Digest after = digestOf(shop.witness());
        before.remove(u"jxc_log"_s); // the login is there
        after.remove(u"jxc_log"_s);
        QCOMPARE(differing(before, after), QString());
        QVERIFY(!shop.isApproved(number));
    }
    QCOMPARE(faultsOf(shop.witness()), QString());
}

void TestCtl::takesNumbersAsText() {
    FaultShop shop(currentEngine());
    const QString draft = shop.save(u"CJ"_s);
    const Digest before = digestOf(shop.witness());
    for (const QString &text :
         {u"CJ' or '1'='1"_s, u"CJ'; delete from jxc_goods; --"_s, u"SK' or k_check=0 --"_s, u"%"_s,
          u"CJ%"_s, u"'"_s, u""_s, u"CJ\\"_s, u"XS?"_s}) {
        const CtlAnswer answer = runCtlOn(shop.url(), {u"approve"_s, text});
        QVERIFY2(answer.exitCode == refused, qPrintable(answer.shown()));
        QCOMPARE(answer.out, u"%1 refused: 单据“%1”不存在！\n"_s.arg(text));
    }
    QCOMPARE(differing(before, digestOf(shop.witness())), u"jxc_log"_s);
    QVERIFY(!shop.isApproved(draft));
}

void TestCtl::verifyTellsDifferences() {
    FaultShop shop(currentEngine());
    COMPARE_ANSWER(runCtlOn(shop.url(), {u"verify"_s}), done, u"0 differences\n"_s);
    shop.db().execute(u"update jxc_kcsp set kc_zsl=kc_zsl+1 where g_sn='G2'"_s);
    const CtlAnswer answer = runCtlOn(shop.url(), {u"verify"_s});
    QCOMPARE(answer.exitCode, failed);
    QCOMPARE(answer.lines().last(), u"1 differences"_s);
    QVERIFY2(answer.lines().first().contains(u"G2"), qPrintable(answer.shown()));
}

void TestCtl::importsLists() {
    const TestDatabase place(currentEngine());
    const QString file = place.folder() + u"/list.csv"_s;
    const auto import = [&](const QStringList &arguments) {
        return runCtlOn(place.url(), QStringList{u"import"_s} + arguments);
    };
    put(file, "店里的客户\n客户姓名,手机,期初余额\n王大田,13800000001,1200.5\n李四,,没有\n");
    const QString mapping =
        u"工作表“list”，第2行为标题：客户名称=客户姓名，联系电话=手机，期初应收=期初余额\n"_s;
    COMPARE_ANSWER(import({u"customers"_s, file}), failed,
                   mapping + u"第4行 李四：期初应收不是数字\n导入完成，成功1条，失败1条！\n"_s);
    put(file, "客户姓名,手机,期初余额\n王大田,13900000009,\n");
    COMPARE_ANSWER(import({u"customers"_s, file, u"--update"_s}), done,
                   QString(mapping).replace(u"第2行"_s, u"第1行"_s) +
                       u"导入完成，成功1条，失败0条！\n"_s);
    COMPARE_ANSWER(runCtlOn(place.url(), {u"verify"_s}), done, u"0 differences\n"_s);

    put(file, "电话,地址\n1,2\n");
    QCOMPARE(import({u"suppliers"_s, file}).exitCode, refused);
    put(file, QByteArray());
    QCOMPARE(import({u"goods"_s, file}).exitCode, refused);
    QCOMPARE(import({u"goods"_s, file + u".none"_s}).exitCode, refused);
    QCOMPARE(import({u"nonsense"_s, file}).exitCode, usage);
}

void TestCtl::postsAndSettlesTheCounter() {
    TestDatabase place(currentEngine());
    Database &db = place.db();
    db.execute(u"update jxc_jfsz set jf_mfje=10"_s);
    db.insertRow(u"jxc_posxsd"_s, {{u"gl_djh"_s, u"XS26030110001"},
                                   {u"hy_sn"_s, u"100001"},
                                   {u"pos_xsrq"_s, u"2026-03-01 10:00:00"},
                                   {u"pos_yfje"_s, 35},
                                   {u"pos_sfje"_s, 40},
                                   {u"pos_xj"_s, 40},
                                   {u"pos_zlje"_s, 5}});
    db.insertRow(u"jxc_posxssp"_s, {{u"gl_djh"_s, u"XS26030110001"},
                                    {u"g_sn"_s, u"G1"},
                                    {u"pos_sl"_s, 1},
                                    {u"pos_zje"_s, 35}});
    COMPARE_ANSWER(runCtlOn(place.url(), {u"post-receipt"_s, u"XS26030110001"_s, u"XS9"_s}),
                   refused, u"XS26030110001 ok\nXS9 refused: 没有找到POS单据：XS9！\n"_s);
    QCOMPARE(db.scalar(u"select hy_cs from jxc_hyxx where hy_sn='100001'"_s), u"1"_s);
    COMPARE_ANSWER(runCtlOn(place.url(), {u"post-receipt"_s, u"XS26030110001"_s}), refused,
                   u"XS26030110001 refused: 单据XS26030110001的会员积分已经过账！\n"_s);
    const CtlAnswer settled = runCtlOn(place.url(), {u"--yes"_s, u"settle"_s});
    QVERIFY2(settled.exitCode == done, qPrintable(settled.shown()));
    const QString number = db.scalar(u"select pos_rjid from jxc_posxsd"_s);
    QCOMPARE(settled.out, number + u" ok\n"_s);
    QCOMPARE(runCtlOn(place.url(), {u"--yes"_s, u"settle"_s}).exitCode, refused);
    COMPARE_ANSWER(runCtlOn(place.url(), {u"verify"_s}), done, u"0 differences\n"_s);
}

void TestCtl::backsUpAndRestores() {
    FaultShop shop(currentEngine());
    const QTemporaryDir folder;
    const QString number = shop.save(u"XS"_s);
    const Digest before = digestOf(shop.witness());
    const CtlAnswer backup = runCtlOn(shop.url(), {u"backup"_s, folder.path()});
    QVERIFY2(backup.exitCode == done, qPrintable(backup.shown()));
    const QStringList files = QDir(folder.path()).entryList(QDir::Files);
    QCOMPARE(files.size(), 1);
    const QString file = folder.filePath(files.first());
    FaultShop::demand(shop.approve(number));
    // Asked first; No keeps everything.
    QCOMPARE(runCtlOn(shop.url(), {u"restore"_s, file}).exitCode, refused);
    QVERIFY(shop.isApproved(number));
    const CtlAnswer restore = runCtlOn(shop.url(), {u"--yes"_s, u"restore"_s, file});
    QVERIFY2(restore.exitCode == done, qPrintable(restore.shown()));
    QVERIFY2(restore.out.startsWith(u"恢复完成！\n被替换的数据保存在："),
             qPrintable(restore.shown()));
    QVERIFY(QFile::remove(restore.lines().last().section(u'：', 1)));
    QVERIFY(!shop.isApproved(number));
    QCOMPARE(differing(before, digestOf(shop.witness())), u"jxc_log"_s); // that of the backup's day
    COMPARE_ANSWER(runCtlOn(shop.url(), {u"verify"_s}), done, u"0 differences\n"_s);
    FaultShop::demand(shop.approve(number));
    // A file of another kind replaces nothing.
    put(folder.filePath(u"letter.DAT"_s), "Dear customer");
    const CtlAnswer letter =
        runCtlOn(shop.url(), {u"--yes"_s, u"restore"_s, folder.filePath(u"letter.DAT"_s)});
    QVERIFY2(letter.exitCode == refused, qPrintable(letter.shown()));
    QVERIFY(shop.isApproved(number));
}

void TestCtl::copiesToTheServerAndBack() {
    if (!hasServer())
        QSKIP("no PostgreSQL server: JXC_TEST_POSTGRES is not set");
    FaultShop shop(Engine::Sqlite);
    const QString number = shop.save(u"XS"_s);
    TestDatabase server(Engine::Postgres, TestDatabase::Content::nothing);
    const QTemporaryDir folder;
    const QString back = folder.filePath(u"back.mdb"_s);
    COMPARE_ANSWER(runCtl({u"copy"_s, shop.url(), server.url()}), done, u"0 differences\n"_s);
    COMPARE_ANSWER(runCtlOn(server.url(), {u"verify"_s}), done, u"0 differences\n"_s);
    COMPARE_ANSWER(runCtl({u"copy"_s, server.url(), back}), done, u"0 differences\n"_s);
    {
        Database copy(Location::ofFile(back));
        QCOMPARE(differing(digestOf(shop.witness()), digestOf(copy)), QString());
    }
    COMPARE_ANSWER(runCtlOn(back, {u"approve"_s, number}), done, number + u" ok\n"_s);
    COMPARE_ANSWER(runCtlOn(server.url(), {u"approve"_s, number}), done, number + u" ok\n"_s);
    const CtlAnswer again = runCtl({u"copy"_s, shop.url(), server.url()});
    QVERIFY2(again.exitCode == refused, qPrintable(again.shown()));
}

void TestCtl::upgradesNothingCurrent() {
    FaultShop shop(currentEngine());
    const Digest before = digestOf(shop.witness());
    COMPARE_ANSWER(runCtlOn(shop.url(), {u"upgrade"_s}), done, u"共升级0步。\n"_s);
    QCOMPARE(differing(before, digestOf(shop.witness())), QString());
}

QTEST_GUILESS_MAIN(TestCtl)
#include "test_ctl.moc"
