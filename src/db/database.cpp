#include "db/database.h"

#include "db/schema.h"

#include <QAtomicInt>
#include <QSqlDriver>
#include <QSqlQuery>

namespace jxc {

namespace {

QString nextConnectionName() {
    static QAtomicInt counter;
    return QStringLiteral("jxc-%1").arg(counter.fetchAndAddRelaxed(1));
}

} // namespace

Database::Database(Location location, Opening opening)
    : m_location(std::move(location))
    , m_dialect(Dialect::create(m_location.engine))
    , m_connectionName(nextConnectionName()) {
    try {
        if (opening == Opening::existing)
            refuseForeign();
        open();
    } catch (...) {
        close();
        throw;
    }
}

Database::~Database() {
    if (m_depth > 0) {
        m_depth = 1;
        rollback();
    }
    close();
}

void Database::open() {
    m_connection = QSqlDatabase::addDatabase(m_dialect->driverName(), m_connectionName);
    m_dialect->configure(m_connection, m_location);
    if (!m_connection.open())
        fail(m_connection.lastError(), QStringLiteral("connect"));
    m_lost = false;
    makeExecutor();
    m_dialect->prepare(*this, m_warnings);
}

void Database::close() {
    m_executor.reset();
    if (m_connection.isValid())
        m_connection.close();
    m_connection = {};
    QSqlDatabase::removeDatabase(m_connectionName);
}

void Database::makeExecutor() {
    m_executor = m_dialect->createExecutor(
        m_connection, [this](const QSqlError &error, const QString &sql) { fail(error, sql); });
}

/// Looks through a connection that only reads, before anything is set on the file. Only the engine
/// may open the file: closing it by other means would, on Unix, drop the locks of this program's
/// other connections, and another program that leaves would take away the write-ahead log which
/// they still write.
void Database::refuseForeign() {
    m_connection = QSqlDatabase::addDatabase(m_dialect->driverName(), m_connectionName);
    m_dialect->configure(m_connection, m_location);
    if (m_location.engine == Engine::Sqlite)
        m_connection.setConnectOptions(
            QStringLiteral("QSQLITE_OPEN_READONLY;QSQLITE_BUSY_TIMEOUT=5000"));
    if (!m_connection.open()) {
        if (m_location.engine == Engine::Sqlite)
            throw NotOurDatabase(m_location.display());
        fail(m_connection.lastError(), QStringLiteral("connect"));
    }
    makeExecutor();
    QStringList found;
    try {
        found = m_dialect->tableNames(*this);
    } catch (const BusyError &) {
        throw;
    } catch (const DatabaseError &) {
        throw NotOurDatabase(m_location.display());
    }
    for (const QString &table : identifyingTables())
        if (!found.contains(table))
            throw NotOurDatabase(m_location.display());
    close();
}

void Database::reconnectIfLost() {
    if (!m_lost)
        return;
    close();
    m_depth = 0;
    open();
}

QVariant Database::driverHandle() const {
    return m_connection.driver()->handle();
}

void Database::fail(const QSqlError &error, const QString &sql) {
    try {
        m_dialect->raise(error, sql);
    } catch (const ConnectionLost &) {
        m_lost = true;
        throw;
    }
    Q_UNREACHABLE();
}

StatementResult Database::run(const QString &sql, const Values &values) {
    // Within a transaction the statements before are gone, so the transaction has to be run anew.
    if (m_depth == 0)
        reconnectIfLost();
    observe(sql, values);
    return m_executor->run(sql, values);
}

void Database::runDirect(const QString &sql) {
    observe(sql);
    QSqlQuery query(m_connection);
    query.exec(sql);
    // exec() tells of the first statement only; a wait for the write lock may fail in the last.
    while (query.nextResult()) {
    }
    if (query.lastError().isValid())
        fail(query.lastError(), sql);
}

QString Database::scalar(const QString &sql, const Values &values) {
    const auto first = row(sql, values);
    return first ? first->text(size_t{0}) : QString();
}

std::optional<Row> Database::row(const QString &sql, const Values &values) {
    Rows all = rows(sql, values);
    if (all.empty())
        return std::nullopt;
    return std::move(all.front());
}

bool Database::exists(const QString &sql, const Values &values) {
    return !rows(sql, values).empty();
}

Rows Database::rows(const QString &sql, const Values &values) {
    return run(sql, values).rows;
}

int Database::execute(const QString &sql, const Values &values) {
    static const QStringList layoutWords = {QStringLiteral("create "), QStringLiteral("drop "),
                                            QStringLiteral("alter "), QStringLiteral("analyze")};
    for (const QString &word : layoutWords) {
        if (!sql.startsWith(word))
            continue;
        m_executor->forget(); // kept statements were prepared for the old layout
        runDirect(sql);
        return 0;
    }
    return run(sql, values).changed;
}

namespace {

void checkLength(const Column *column, const Value &value) {
    const QString *text = value.text();
    if (column == nullptr || text == nullptr || column->length == 0 ||
        text->size() <= column->length)
        return;
    // The engines count characters; one outside the basic plane takes two of Qt's units.
    if (text->toUcs4().size() > column->length)
        throw TextTooLong(column->caption.isEmpty() ? column->name : column->caption,
                          column->length);
}

std::vector<const Column *> describe(const QString &table, const QStringList &columns) {
    std::vector<const Column *> described;
    described.reserve(static_cast<size_t>(columns.size()));
    for (const QString &name : columns)
        described.push_back(column(table, name));
    return described;
}

} // namespace

qint64 Database::insertRow(const QString &table, const Assignments &assignments) {
    QStringList columns;
    Values values;
    for (const Assignment &a : assignments) {
        columns << a.column;
        values.push_back(a.value);
    }
    return insertRows(table, columns, {values}).front();
}

std::vector<qint64> Database::insertRows(const QString &table, const QStringList &columns,
                                         const std::vector<Values> &rows) {
    if (rows.empty())
        return {};
    const auto described = describe(table, columns);
    for (const Values &values : rows)
        for (size_t i = 0; i < values.size(); ++i)
            checkLength(described[i], values[i]);
    return m_dialect->insertRows(*this, table, columns, rows);
}

int Database::updateRows(const QString &table, const Assignments &assignments, const QString &where,
                         const Values &whereValues) {
    QStringList columns;
    QStringList settings;
    Values values;
    for (const Assignment &a : assignments) {
        columns << a.column;
        settings << a.column + QStringLiteral("=?");
        values.push_back(a.value);
    }
    const auto described = describe(table, columns);
    for (size_t i = 0; i < values.size(); ++i)
        checkLength(described[i], values[i]);
    values.insert(values.end(), whereValues.begin(), whereValues.end());
    return execute(
        QStringLiteral("update %1 set %2 where %3").arg(table, settings.join(u','), where), values);
}

void Database::updateById(const QString &table, const QStringList &columns,
                          const std::vector<Values> &rows) {
    if (!rows.empty())
        m_dialect->updateById(*this, table, columns, rows);
}

void Database::dropTableIfExists(const QString &table) {
    if (tableNames().contains(table))
        execute(QStringLiteral("drop table ") + table);
}

void Database::begin() {
    if (m_depth == 0) {
        reconnectIfLost();
        m_dialect->beginWriting(*this);
        m_doomed = false;
    }
    ++m_depth;
}

void Database::beginReading() {
    reconnectIfLost();
    m_dialect->beginReading(*this);
    m_doomed = false;
    m_depth = 1;
}

void Database::commit() {
    if (m_doomed)
        throw std::logic_error("commit after a part of the transaction was rolled back");
    if (m_depth == 1) {
        observe(QStringLiteral("commit"));
        m_dialect->commit(*this);
    }
    --m_depth;
}

void Database::rollback() noexcept {
    if (--m_depth > 0) {
        m_doomed = true; // the outermost undoes everything
        return;
    }
    try {
        QSqlQuery(m_connection).exec(QStringLiteral("rollback"));
    } catch (...) { // NOLINT(bugprone-empty-catch): nothing is left to undo on a dead connection
    }
}

} // namespace jxc
