#include "support/test_database.h"

#include "db/creation.h"

#include <QCoreApplication>
#include <QDate>
#include <QRandomGenerator>
#include <QSqlError>
#include <QSqlQuery>
#include <QTest>

Q_DECLARE_METATYPE(jxc::Engine)

namespace jxc::test {

namespace {

const QDate creationDay(2026, 3, 1);

QString serverUrl() {
    return qEnvironmentVariable("JXC_TEST_POSTGRES");
}

QString uniqueName(const QString &stem) {
    return QStringLiteral("%1_%2_%3")
        .arg(stem)
        .arg(QCoreApplication::applicationPid())
        .arg(QRandomGenerator::global()->generate());
}

/// Runs one statement on the server's maintenance database.
void onServer(const QString &sql) {
    const QString name = uniqueName(QStringLiteral("maintenance"));
    {
        const Location server = Location::parse(serverUrl());
        QSqlDatabase connection = QSqlDatabase::addDatabase(QStringLiteral("QPSQL"), name);
        connection.setHostName(server.host);
        connection.setPort(server.port);
        connection.setUserName(server.userName);
        connection.setDatabaseName(server.databaseName);
        if (!connection.open()) qFatal("%s", qPrintable(connection.lastError().text()));
        QSqlQuery query(connection);
        if (!query.exec(sql)) qFatal("%s", qPrintable(query.lastError().text()));
    }
    QSqlDatabase::removeDatabase(name);
}

void fill(const Location &location) {
    Database db(location, Database::Opening::empty);
    resetAllTables(db, creationDay);
}

/// Made once a process: a copy is far quicker than 165 new tables.
const Location &embeddedTemplate() {
    static QTemporaryDir folder;
    static const Location location = [] {
        const Location place = Location::ofFile(folder.filePath(QStringLiteral("template.mdb")));
        fill(place);
        return place;
    }();
    return location;
}

Location serverLocation(const QString &databaseName) {
    Location location = Location::parse(serverUrl());
    location.databaseName = databaseName;
    return location;
}

struct ServerTemplate {
    QString name = uniqueName(QStringLiteral("jxc_template"));
    ServerTemplate() {
        onServer(QStringLiteral("create database ") + name);
        fill(serverLocation(name));
    }
    ~ServerTemplate() { onServer(QStringLiteral("drop database if exists %1 with (force)").arg(name)); }
    ServerTemplate(const ServerTemplate &) = delete;
    ServerTemplate &operator=(const ServerTemplate &) = delete;
};

QString serverTemplate() {
    static const ServerTemplate made;
    return made.name;
}

} // namespace

static std::optional<Engine> chosenEngine; // outside a test's rows

std::vector<Engine> engines() {
    if (serverUrl().isEmpty()) return {Engine::Sqlite};
    return {Engine::Sqlite, Engine::Postgres};
}

QString engineName(Engine engine) {
    return engine == Engine::Sqlite ? QStringLiteral("sqlite") : QStringLiteral("postgresql");
}

void addEngineRows() {
    QTest::addColumn<Engine>("engine");
    for (const Engine engine : engines()) QTest::newRow(qPrintable(engineName(engine))) << engine;
}

void useEngine(Engine engine) {
    chosenEngine = engine;
}

Engine currentEngine() {
    if (chosenEngine) return *chosenEngine;
    QFETCH(Engine, engine);
    return engine;
}

TestDatabase::TestDatabase(Engine engine, Content content) {
    if (engine == Engine::Sqlite) {
        m_location = Location::ofFile(m_folder.filePath(QStringLiteral("jxc.mdb")));
        if (content == Content::accountSet) QFile::copy(embeddedTemplate().file, m_location.file);
    } else {
        m_location = serverLocation(uniqueName(QStringLiteral("jxc_test")));
        const QString from = content == Content::accountSet ? serverTemplate() : QStringLiteral("template0");
        onServer(QStringLiteral("create database %1 template %2").arg(m_location.databaseName, from));
    }
    m_db = std::make_unique<Database>(m_location, content == Content::accountSet ? Database::Opening::existing
                                                                                 : Database::Opening::empty);
}

TestDatabase::~TestDatabase() {
    m_db.reset();
    if (m_location.engine == Engine::Postgres)
        onServer(QStringLiteral("drop database if exists %1 with (force)").arg(m_location.databaseName));
}

QString TestDatabase::url() const {
    if (m_location.engine == Engine::Sqlite) return m_location.file;
    return m_location.display();
}

std::unique_ptr<Database> TestDatabase::connect() const {
    return std::make_unique<Database>(m_location);
}

void TestDatabase::reopen() {
    m_db.reset();
    m_db = connect();
}

} // namespace jxc::test
