// What the house does not want, looked for in its own sources; each rule names the replacement.
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QTest>

namespace {

struct Source {
    QString path; ///< from the top, "src/stock/walk.cpp"
    QStringList lines;
    [[nodiscard]] QString room() const { return path.section(u'/', 1, 1); }
};

std::vector<Source> sources(const QString &folder) {
    std::vector<Source> all;
    const QDir top(QStringLiteral(JXC_SOURCE_DIR));
    QDirIterator files(top.filePath(folder), {QStringLiteral("*.cpp"), QStringLiteral("*.h")}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        if (!file.open(QIODevice::ReadOnly)) qFatal("unreadable source");
        all.push_back({top.relativeFilePath(file.fileName()), QString::fromUtf8(file.readAll()).split(u'\n')});
    }
    return all;
}

/// Lines that match, unless their path begins with an exempt prefix ("/forms/": lies in such a folder).
QStringList findings(const QString &pattern, const QStringList &exempt) {
    const QRegularExpression expression(pattern);
    QStringList found;
    for (const Source &source : sources(QStringLiteral("src"))) {
        const bool isExempt = std::any_of(exempt.begin(), exempt.end(), [&](const QString &prefix) {
            return source.path.mid(4).startsWith(prefix) || (prefix.startsWith(u'/') && source.path.contains(prefix));
        });
        if (isExempt) continue;
        for (qsizetype i = 0; i < source.lines.size(); ++i)
            if (expression.match(source.lines[i]).hasMatch())
                found << QStringLiteral("%1:%2 %3").arg(source.path).arg(i + 1).arg(source.lines[i].trimmed());
    }
    return found;
}

// From the ground up; ctl and app stand on top of all.
const QStringList &rooms() {
    static const QStringList order = {
        QStringLiteral("base"),    QStringLiteral("sheets"),   QStringLiteral("db"),       QStringLiteral("core"),
        QStringLiteral("master"),  QStringLiteral("money"),    QStringLiteral("stock"),
        QStringLiteral("retail"),  QStringLiteral("records"),  QStringLiteral("reports"),
        QStringLiteral("services"), QStringLiteral("ui"),      QStringLiteral("ctl"),
        QStringLiteral("app")};
    return order;
}

} // namespace

class TestHouseRules : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void doors_data();
    void doors();
    void roomsIncludeDownwards();
    void findsWhatItLooksFor();
};

void TestHouseRules::doors_data() {
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QStringList>("exempt");
    QTest::newRow("statements go through Database, which binds values")
        << QStringLiteral("\\bQSqlQuery\\b|\\bQSqlDatabase\\b")
        << QStringList{QStringLiteral("db/")};
    QTest::newRow("the time is asked through the session's clock")
        << QStringLiteral("currentDateTime|QDate::currentDate|QTime::currentTime|\\btime\\(nullptr\\)")
        << QStringList{QStringLiteral("core/clock.h")};
    QTest::newRow("money, prices and quantities are Decimal, never double")
        << QStringLiteral("^[^/\"]*\\b(double|float)\\b|toDouble\\(\\)")
        << QStringList{QStringLiteral("base/decimal"), QStringLiteral("db/"),
                       QStringLiteral("sheets/xlsx_writer")}; // what such a file holds
    QTest::newRow("boxes open through the Prompter")
        << QStringLiteral("QMessageBox") << QStringList{QStringLiteral("ui/"), QStringLiteral("app/"), QStringLiteral("/forms/")};
    QTest::newRow("windows live in forms/, ui/ and app/")
        << QStringLiteral("#include <Q(Widget|Dialog|MainWindow|Application|TableView)>")
        << QStringList{QStringLiteral("ui/"), QStringLiteral("app/"), QStringLiteral("/forms/")};
    QTest::newRow("the engines are told apart in their dialects alone")
        << QStringLiteral("Engine::(Sqlite|Postgres)")
        << QStringList{QStringLiteral("db/"), QStringLiteral("core/backup"), QStringLiteral("core/restore"),
                       QStringLiteral("ctl/")};
}

void TestHouseRules::doors() {
    QFETCH(QString, pattern);
    QFETCH(QStringList, exempt);
    const QStringList found = findings(pattern, exempt);
    QVERIFY2(found.isEmpty(), qPrintable(found.join(u'\n')));
}

void TestHouseRules::roomsIncludeDownwards() {
    static const QRegularExpression include(QStringLiteral("^#include \"([a-z]+)/"));
    QStringList upward;
    for (const Source &source : sources(QStringLiteral("src")))
        for (const QString &line : source.lines) {
            const QString target = include.match(line).captured(1);
            // A room's windows stand on the shared ones, and on nothing else above their room.
            if (target == QLatin1String("ui") && source.path.contains(QLatin1String("/forms/"))) continue;
            if (!target.isEmpty() && rooms().indexOf(target) > rooms().indexOf(source.room()))
                upward << source.path + QStringLiteral(" includes ") + target;
        }
    QVERIFY2(upward.isEmpty(), qPrintable(upward.join(u'\n')));
}

/// A rule that cannot find anything would be no rule.
void TestHouseRules::findsWhatItLooksFor() {
    QVERIFY(!findings(QStringLiteral("\\bQSqlQuery\\b"), {}).isEmpty());
    QVERIFY(!findings(QStringLiteral("currentDateTime"), {}).isEmpty());
}

QTEST_APPLESS_MAIN(TestHouseRules)
#include "test_house_rules.moc"
