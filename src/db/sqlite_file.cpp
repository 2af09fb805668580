#include "db/sqlite_file.h"

#include "db/dialect_sqlite.h"
#include "db/errors.h"

#include <QFileInfo>
#include <QUrl>
#include <sqlite3.h>

namespace jxc {

namespace {

constexpr int busyMilliseconds = 5000;

[[noreturn]] void fail(int code, const QString &text, const QString &what) {
    SqliteDialect().raise(QSqlError({}, text, QSqlError::StatementError, QString::number(code)),
                          what);
    Q_UNREACHABLE();
}

[[noreturn]] void fail(sqlite3 *handle, const QString &what) {
    fail(sqlite3_extended_errcode(handle), QString::fromUtf8(sqlite3_errmsg(handle)), what);
}

/// Not QUrl's: a network path must not become a host, which the engine refuses.
QByteArray uriOf(const QString &path) {
    QString absolute = QFileInfo(path).absoluteFilePath();
    if (!absolute.startsWith(u'/')) // a drive letter
        absolute.prepend(u'/');
    return "file://" + QUrl::toPercentEncoding(absolute, "/:");
}

} // namespace

SqliteFile::SqliteFile(const QString &path, Use use) {
    QByteArray name = uriOf(path);
    int flags = SQLITE_OPEN_URI | SQLITE_OPEN_READWRITE;
    if (use == Use::atRest) {
        name += "?immutable=1";
        flags = SQLITE_OPEN_URI | SQLITE_OPEN_READONLY;
    } else if (use == Use::fresh) {
        flags |= SQLITE_OPEN_CREATE;
    }
    const int code = sqlite3_open_v2(name.constData(), &m_handle, flags, nullptr);
    if (code != SQLITE_OK) {
        sqlite3_close(m_handle);
        fail(code, QString::fromUtf8(sqlite3_errstr(code)), path);
    }
    sqlite3_busy_timeout(m_handle, busyMilliseconds);
}

SqliteFile::~SqliteFile() {
    sqlite3_close(m_handle);
}

QString SqliteFile::text(const QString &sql) const {
    sqlite3_stmt *statement = nullptr;
    if (sqlite3_prepare_v2(m_handle, sql.toUtf8().constData(), -1, &statement, nullptr) !=
        SQLITE_OK)
        fail(m_handle, sql);
    QString result;
    const int code = sqlite3_step(statement);
    if (code == SQLITE_ROW)
        result =
            QString::fromUtf8(reinterpret_cast<const char *>(sqlite3_column_text(statement, 0)));
    sqlite3_finalize(statement);
    if (code != SQLITE_ROW && code != SQLITE_DONE)
        fail(m_handle, sql);
    return result;
}

void SqliteFile::seal() const {
    if (text(QStringLiteral("pragma journal_mode=delete")) != QLatin1String("delete"))
        throw BusyError(QStringLiteral("备份文件正被使用，请稍后再试！"), {}, {});
}

void sealFile(const QString &path) {
    SqliteFile(path, SqliteFile::Use::shared).seal();
}

PageCopy::PageCopy(sqlite3 *from, sqlite3 *to)
    : m_to(to)
    , m_copy(sqlite3_backup_init(to, "main", from, "main")) {
    if (m_copy == nullptr)
        fail(to, QStringLiteral("backup"));
}

PageCopy::~PageCopy() {
    if (m_copy != nullptr)
        sqlite3_backup_finish(m_copy);
}

void PageCopy::lockTarget() {
    const int code = sqlite3_backup_step(m_copy, 0);
    if (code != SQLITE_OK)
        fail(code, QString::fromUtf8(sqlite3_errstr(code)), QStringLiteral("backup"));
}

void PageCopy::finish() {
    const int step = sqlite3_backup_step(m_copy, -1);
    const int end = sqlite3_backup_finish(m_copy);
    m_copy = nullptr;
    const int code = step == SQLITE_DONE ? end : step;
    if (code != SQLITE_OK)
        fail(code, QString::fromUtf8(sqlite3_errstr(code)), QStringLiteral("backup"));
}

} // namespace jxc
