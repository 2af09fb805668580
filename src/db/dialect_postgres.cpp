#include "db/dialect_postgres.h"

#include "db/backup_file.h"
#include "db/copy.h"
#include "db/database.h"
#include "db/ddl.h"
#include "db/executor_qt.h"
#include "db/schema.h"
#include "db/sqlite_file.h"

#include <QSqlQuery>

namespace jxc {

namespace {

/// Every write of an account set takes this advisory lock first, so that one action after another
/// is posted and no deadlock can arise between them. Postings probe by index; a plan that was made
/// while a table was still empty must not go on reading it whole as it grows.
constexpr auto beginStatement = "begin; set local lock_timeout='5s'; set local enable_seqscan=off; "
                                "select pg_advisory_xact_lock(8165, hashtext(current_schema()))";

QString arrayType(const QString &table, const QString &columnName) {
    if (columnName == QLatin1String("id"))
        return QStringLiteral("bigint[]");
    const Column *described = jxc::column(table, columnName);
    if (described == nullptr)
        return QStringLiteral("text[]");
    switch (described->type) {
    case ColumnType::Numeric:
        return QStringLiteral("numeric[]");
    case ColumnType::Int:
        return QStringLiteral("integer[]");
    case ColumnType::Bit:
        return QStringLiteral("smallint[]");
    default:
        return QStringLiteral("text[]");
    }
}

QString arrayElement(const Value &value) {
    if (const qint64 *number = value.number())
        return QString::number(*number);
    if (const Decimal *figure = value.figure())
        return figure->toText();
    if (const QString *text = value.text()) {
        QString quoted = *text;
        quoted.replace(u'\\', QStringLiteral("\\\\")).replace(u'"', QStringLiteral("\\\""));
        return u'"' + quoted + u'"';
    }
    return QStringLiteral("NULL");
}

/// Turns rows into one array literal per column, which travel in a single statement.
Values columnArrays(const std::vector<Values> &rows) {
    Values arrays;
    for (size_t c = 0; c < rows.front().size(); ++c) {
        QStringList elements;
        elements.reserve(static_cast<qsizetype>(rows.size()));
        for (const Values &row : rows)
            elements << arrayElement(row[c]);
        arrays.emplace_back(QString(u'{' + elements.join(u',') + u'}'));
    }
    return arrays;
}

QString unnest(const QString &table, const QStringList &columns) {
    QStringList parameters;
    for (const QString &column : columns)
        parameters << QStringLiteral("?::") + arrayType(table, column);
    return QStringLiteral("unnest(%1)").arg(parameters.join(u','));
}

[[noreturn]] void raiseByState(const QString &state, const QString &text,
                               const QString &statement) {
    if (state == QLatin1String("40001") || state == QLatin1String("40P01") ||
        state == QLatin1String("55P03"))
        throw BusyError(QStringLiteral("数据库正忙，其他操作员正在使用，请稍后再试！"), statement,
                        state);
    // The client library itself has no state to report: the server did not answer.
    if (state.isEmpty() || state.startsWith(QLatin1String("08")) ||
        state.startsWith(QLatin1String("57P")))
        throw ConnectionLost(
            QStringLiteral("与数据库服务器的连接已断开或不能连接，请检查网络后重试！"), statement,
            state);
    if (state == QLatin1String("53100"))
        throw DatabaseError(QStringLiteral("磁盘空间不足，本次操作没有保存！"), statement, state);
    if (state == QLatin1String("22003"))
        throw RangeError();
    if (state == QLatin1String("3D000"))
        throw DatabaseError(QStringLiteral("数据库不存在，请先在服务器上建立！"), statement, state);
    if (state.startsWith(QLatin1String("28")))
        throw DatabaseError(QStringLiteral("数据库服务器拒绝登录，请检查用户名和密码！"), statement,
                            state);
    throw DatabaseError(text, statement, state);
}

} // namespace

QString PostgresDialect::driverName() const {
    return QStringLiteral("QPSQL");
}

void PostgresDialect::configure(QSqlDatabase &connection, const Location &location) const {
    connection.setHostName(location.host);
    connection.setPort(location.port);
    connection.setDatabaseName(location.databaseName);
    connection.setUserName(location.userName);
    connection.setPassword(location.password);
    // A workstation that lost its network must not keep the write lock for hours.
    connection.setConnectOptions(QStringLiteral(
        "connect_timeout=5;keepalives_idle=10;keepalives_interval=5;keepalives_count=3"));
    connection.setNumericalPrecisionPolicy(QSql::HighPrecision);
}

void PostgresDialect::prepare(Database &db, QStringList &) const {
    db.runDirect(QStringLiteral("set client_min_messages=warning"));
    // Compiling a plan takes longer than any statement of ours runs.
    db.runDirect(QStringLiteral("set jit=off"));
    // The write lock orders the actions; each statement then sees what the one before it committed.
    db.runDirect(QStringLiteral("set default_transaction_isolation='read committed'"));
}

std::unique_ptr<Executor> PostgresDialect::createExecutor(const QSqlDatabase &connection,
                                                          Executor::Failure failure) const {
    return std::make_unique<QtExecutor>(connection, std::move(failure));
}

void PostgresDialect::beginWriting(Database &db) const {
    try {
        db.runDirect(QLatin1String(beginStatement));
    } catch (...) {
        QSqlQuery(db.m_connection).exec(QStringLiteral("rollback"));
        throw;
    }
}

void PostgresDialect::beginReading(Database &db) const {
    db.runDirect(QStringLiteral("begin isolation level repeatable read read only"));
}

void PostgresDialect::commit(Database &db) const {
    // The driver's own also notices a commit that the server answered with a rollback.
    if (!db.m_connection.commit())
        db.fail(db.m_connection.lastError(), QStringLiteral("commit"));
}

void PostgresDialect::raise(const QSqlError &error, const QString &statement) const {
    raiseByState(error.nativeErrorCode(), error.text(), statement);
}

QString PostgresDialect::exactSum(const QString &column) const {
    return QStringLiteral("sum(%1)").arg(column);
}

QString PostgresDialect::exactSumOfProducts(const QString &a, const QString &b) const {
    return QStringLiteral("sum(%1*%2)").arg(a, b);
}

std::vector<qint64> PostgresDialect::insertRows(Database &db, const QString &table,
                                                const QStringList &columns,
                                                const std::vector<Values> &rows) const {
    const QString sql =
        QStringLiteral("insert into %1 (%2) select %2 from %3 with ordinality as n(%2,position) "
                       "order by position returning id")
            .arg(table, columns.join(u','), unnest(table, columns));
    std::vector<qint64> ids;
    ids.reserve(rows.size());
    for (const Row &row : db.rows(sql, columnArrays(rows)))
        ids.push_back(row.integer(size_t{0}));
    return ids;
}

void PostgresDialect::updateById(Database &db, const QString &table, const QStringList &columns,
                                 const std::vector<Values> &rows) const {
    QStringList settings;
    for (const QString &column : columns)
        settings << QStringLiteral("%1=n.%1").arg(column);
    const QStringList all = QStringList{QStringLiteral("id")} + columns;
    db.execute(QStringLiteral("update %1 set %2 from %3 as n(%4) where %1.id=n.id")
                   .arg(table, settings.join(u','), unnest(table, all), all.join(u',')),
               columnArrays(rows));
}

qint64 PostgresDialect::lastId(Database &db, const QString &table) const {
    return db
        .row(QStringLiteral("select coalesce(pg_sequence_last_value("
                            "pg_get_serial_sequence(?,'id')::regclass),0)"),
             {table})
        ->integer(size_t{0});
}

void PostgresDialect::setLastId(Database &db, const QString &table, qint64 id) const {
    if (id > 0)
        db.rows(QStringLiteral("select setval(pg_get_serial_sequence(?,'id'),?)"), {table, id});
}

void PostgresDialect::copyToFile(const Location &from, const QString &file) const {
    {
        Database source(from);
        Database target(Location::ofFile(file), Database::Opening::empty);
        copyAccountSet(source, target);
    }
    sealFile(file);
}

void PostgresDialect::replaceFromFile(Database &db, const QString &file,
                                      const QString &keepAs) const {
    replaceByTables(db, file, keepAs);
}

QStringList PostgresDialect::tableNames(Database &db) const {
    QStringList names;
    for (const Row &row : db.rows(
             QStringLiteral("select tablename from pg_tables where schemaname=current_schema()")))
        names << row.text(size_t{0});
    return names;
}

QStringList PostgresDialect::columnNames(Database &db, const QString &table) const {
    QStringList names;
    for (const Row &row :
         db.rows(QStringLiteral("select column_name from information_schema.columns "
                                "where table_schema=current_schema() and table_name=? "
                                "order by ordinal_position"),
                 {table}))
        names << row.text(size_t{0});
    return names;
}

void PostgresDialect::widenText(Database &db, const QString &table, const Column &column) const {
    const auto found = db.row(QStringLiteral("select data_type,character_maximum_length "
                                             "from information_schema.columns where "
                                             "table_schema=current_schema() and table_name=? and "
                                             "column_name=?"),
                              {table, column.name});
    if (!found)
        return;
    const qint64 width = found->integer(u"character_maximum_length");
    if (found->text(u"data_type") == QLatin1String("text") || width >= column.length)
        return;
    db.execute(QStringLiteral("alter table %1 alter column %2 type %3 using %2::varchar(%4)")
                   .arg(table, column.name, columnTypeSql(column, Engine::Postgres))
                   .arg(column.length));
}

} // namespace jxc
