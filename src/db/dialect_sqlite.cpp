#include "db/dialect_sqlite.h"

#include "db/backup_file.h"
#include "db/database.h"
#include "db/executor_sqlite.h"
#include "db/sqlite_file.h"
#include "db/sqlite_sums.h"

#include <QFileInfo>
#include <QSqlDriver>
#include <QSqlQuery>
#include <QStorageInfo>
#include <sqlite3.h>

namespace jxc {

namespace {

/// Locks over a network drive are not to be trusted with a write-ahead log.
bool onNetworkDrive(const QString &path) {
    static const QStringList remote = {QStringLiteral("nfs"),   QStringLiteral("nfs4"),
                                       QStringLiteral("cifs"),  QStringLiteral("smb3"),
                                       QStringLiteral("smbfs"), QStringLiteral("fuse.sshfs")};
    const QStorageInfo storage(QFileInfo(path).absolutePath());
    return remote.contains(QString::fromLatin1(storage.fileSystemType())) ||
           storage.device().startsWith("//") || storage.device().startsWith("\\\\");
}

QString placeholders(qsizetype count) {
    QStringList marks;
    for (qsizetype i = 0; i < count; ++i)
        marks << QStringLiteral("?");
    return marks.join(u',');
}

} // namespace

QString SqliteDialect::driverName() const {
    return QStringLiteral("QSQLITE");
}

void SqliteDialect::configure(QSqlDatabase &connection, const Location &location) const {
    connection.setDatabaseName(location.file);
    connection.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=5000"));
}

void SqliteDialect::prepare(Database &db, QStringList &warnings) const {
    const bool remote = onNetworkDrive(db.location().file);
    const QString wanted = remote ? QStringLiteral("delete") : QStringLiteral("wal");
    const QString got = db.scalar(QStringLiteral("pragma journal_mode=") + wanted);
    if (remote || got != wanted)
        warnings << QStringLiteral(
            "数据文件不在本机硬盘上，多台电脑同时使用时建议改用PostgreSQL！");
    // A misspelt pragma succeeds, so what matters is read back.
    db.runDirect(QStringLiteral("pragma synchronous=full"));
    if (db.scalar(QStringLiteral("pragma synchronous")) != QLatin1String("2"))
        throw DatabaseError(QStringLiteral("数据库不能设为安全写入方式！"), {}, {});
    registerExactSums(db);
    db.runDirect(QStringLiteral("pragma cache_size=-32768"));
    db.runDirect(QStringLiteral("pragma temp_store=memory"));
}

std::unique_ptr<Executor> SqliteDialect::createExecutor(const QSqlDatabase &connection,
                                                        Executor::Failure failure) const {
    const QVariant handle = connection.driver()->handle();
    return std::make_unique<SqliteExecutor>(*static_cast<sqlite3 *const *>(handle.constData()),
                                            std::move(failure));
}

void SqliteDialect::beginWriting(Database &db) const {
    db.runDirect(QStringLiteral("begin immediate"));
}

void SqliteDialect::beginReading(Database &db) const {
    db.runDirect(QStringLiteral("begin"));
}

void SqliteDialect::commit(Database &db) const {
    // The driver's own commit keeps the engine's code to itself, and a full disk may show only
    // here.
    QSqlQuery query(db.m_connection);
    if (!query.exec(QStringLiteral("commit")))
        db.fail(query.lastError(), QStringLiteral("commit"));
}

void SqliteDialect::raise(const QSqlError &error, const QString &statement) const {
    const QString code = error.nativeErrorCode();
    switch (code.toInt() & 0xff) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        throw BusyError(QStringLiteral("数据库正忙，其他操作员正在使用，请稍后再试！"), statement,
                        code);
    case SQLITE_FULL:
        throw DatabaseError(QStringLiteral("磁盘空间不足，本次操作没有保存！"), statement, code);
    case SQLITE_READONLY:
    case SQLITE_PERM:
        throw DatabaseError(QStringLiteral("数据文件是只读的，本次操作没有保存！"), statement,
                            code);
    case SQLITE_CANTOPEN:
        throw DatabaseError(QStringLiteral("数据文件不能打开！"), statement, code);
    case SQLITE_IOERR:
        throw DatabaseError(QStringLiteral("读写数据文件出错，本次操作没有保存！"), statement,
                            code);
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
        throw DatabaseError(QStringLiteral("数据文件已损坏，请用备份恢复！"), statement, code);
    default:
        throw DatabaseError(error.text(), statement, code);
    }
}

QString SqliteDialect::exactSum(const QString &column) const {
    return QStringLiteral("exact_sum(%1)").arg(column);
}

QString SqliteDialect::exactSumOfProducts(const QString &a, const QString &b) const {
    return QStringLiteral("exact_sum_of_products(%1,%2)").arg(a, b);
}

std::vector<qint64> SqliteDialect::insertRows(Database &db, const QString &table,
                                              const QStringList &columns,
                                              const std::vector<Values> &rows) const {
    const QString sql = QStringLiteral("insert into %1 (%2) values (%3)")
                            .arg(table, columns.join(u','), placeholders(columns.size()));
    std::vector<qint64> ids;
    ids.reserve(rows.size());
    for (const Values &values : rows) {
        ids.push_back(db.run(sql, values).insertedId);
    }
    return ids;
}

void SqliteDialect::updateById(Database &db, const QString &table, const QStringList &columns,
                               const std::vector<Values> &rows) const {
    QStringList settings;
    for (const QString &column : columns)
        settings << column + QStringLiteral("=?");
    const QString sql =
        QStringLiteral("update %1 set %2 where id=?").arg(table, settings.join(u','));
    for (const Values &row : rows) {
        Values values(row.begin() + 1, row.end());
        values.push_back(row.front());
        db.run(sql, values);
    }
}

qint64 SqliteDialect::lastId(Database &db, const QString &table) const {
    const auto row =
        db.row(QStringLiteral("select seq from sqlite_sequence where name=?"), {table});
    return row ? row->integer(size_t{0}) : 0;
}

void SqliteDialect::setLastId(Database &db, const QString &table, qint64 id) const {
    db.execute(QStringLiteral("delete from sqlite_sequence where name=?"), {table});
    db.execute(QStringLiteral("insert into sqlite_sequence (name,seq) values (?,?)"), {table, id});
}

void SqliteDialect::copyToFile(const Location &from, const QString &file) const {
    SqliteFile source(from.file, SqliteFile::Use::shared);
    SqliteFile target(file, SqliteFile::Use::fresh);
    PageCopy(source.handle(), target.handle()).finish();
    target.seal();
}

void SqliteDialect::replaceFromFile(Database &db, const QString &file,
                                    const QString &keepAs) const {
    SqliteFile source(file, SqliteFile::Use::shared);
    const QString pageSize = QStringLiteral("pragma page_size");
    // Without a write-ahead log nobody can read while the pages are replaced, so the replaced set
    // could not be kept whole; and a log does not take pages of another size.
    if (db.scalar(QStringLiteral("pragma journal_mode")) != QLatin1String("wal") ||
        db.scalar(pageSize) != source.text(pageSize)) {
        replaceByTables(db, file, keepAs);
        return;
    }
    const QVariant handle = db.driverHandle();
    PageCopy copy(source.handle(), *static_cast<sqlite3 *const *>(handle.constData()));
    copy.lockTarget(); // from here on nobody commits what would be missing in the kept file
    writeBackupFile(db.location(), keepAs);
    copy.finish();
}

QStringList SqliteDialect::tableNames(Database &db) const {
    QStringList names;
    for (const Row &row :
         db.rows(QStringLiteral("select name from sqlite_master where type='table'")))
        names << row.text(size_t{0});
    return names;
}

QStringList SqliteDialect::columnNames(Database &db, const QString &table) const {
    QStringList names;
    for (const Row &row : db.rows(QStringLiteral("select name from pragma_table_info(?)"), {table}))
        names << row.text(size_t{0});
    return names;
}

void SqliteDialect::widenText(Database &, const QString &, const Column &) const {
    // This engine holds texts of any length in every column; the schema guards the widths.
}

} // namespace jxc
