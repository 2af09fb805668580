#include "db/backup_file.h"

#include "db/copy.h"
#include "db/schema.h"
#include "db/sqlite_file.h"
#include "db/transaction.h"

#include <QFileInfo>
#include <algorithm>
#include <filesystem>
#include <sqlite3.h>

namespace jxc {

namespace {

std::filesystem::path nativePath(const QString &path) {
    return {path.toStdU16String()};
}

/// Removes a file that did not get its name.
class PartFile {
public:
    explicit PartFile(const QString &target)
        : m_name(target + QStringLiteral(".part")) {
        QFile::remove(m_name);
    }
    ~PartFile() { QFile::remove(m_name); }
    PartFile(const PartFile &) = delete;
    PartFile &operator=(const PartFile &) = delete;

    [[nodiscard]] const QString &name() const { return m_name; }
    void rename(const QString &target) const {
        std::error_code error; // unlike Qt's, this takes the place of a file that is there
        std::filesystem::rename(nativePath(m_name), nativePath(target), error);
        if (error)
            throw DatabaseError(QStringLiteral("备份文件不能写入：%1").arg(target), {}, {});
    }

private:
    QString m_name;
};

/// What others left beside a file belongs to its content.
SqliteFile::Use useOf(const QString &file) {
    const bool inUse = QFileInfo::exists(file + QStringLiteral("-wal")) ||
                       QFileInfo::exists(file + QStringLiteral("-journal"));
    return inUse ? SqliteFile::Use::shared : SqliteFile::Use::atRest;
}

bool isOurs(const SqliteFile &file) {
    const QString find =
        QStringLiteral("select name from sqlite_master where type='table' and name='%1'");
    return std::ranges::all_of(identifyingTables(), [&](const QString &table) {
        return file.text(find.arg(table)) == table;
    });
}

} // namespace

void writeBackupFile(const Location &from, const QString &target) {
    const PartFile part(target);
    Dialect::create(from.engine)->copyToFile(from, part.name());
    if (checkBackupFile(part.name()) != BackupFault::none)
        throw DatabaseError(QStringLiteral("备份文件写入后检查不正确：%1").arg(target), {}, {});
    part.rename(target);
}

BackupFault checkBackupFile(const QString &path) {
    try {
        const SqliteFile file(path, useOf(path));
        if (!isOurs(file))
            return BackupFault::notOurs;
        const bool whole =
            file.text(QStringLiteral("pragma integrity_check(1)")) == QLatin1String("ok");
        return whole ? BackupFault::none : BackupFault::damaged;
    } catch (const BusyError &) {
        throw;
    } catch (const DatabaseError &error) {
        const int code = error.code().toInt() & 0xff;
        if (code == SQLITE_NOTADB || code == SQLITE_CANTOPEN)
            return BackupFault::notOurs;
        return BackupFault::damaged;
    }
}

void unpackBackupFile(const QString &file, const QString &target) {
    const SqliteFile source(file, useOf(file));
    const SqliteFile copy(target, SqliteFile::Use::fresh);
    PageCopy(source.handle(), copy.handle()).finish();
    copy.seal();
}

void replaceByTables(Database &db, const QString &file, const QString &keepAs) {
    Database source(Location::ofFile(file));
    Transaction transaction(db);
    writeBackupFile(db.location(), keepAs); // the write lock is held: nothing comes after it
    copyAccountSet(source, db);
    const QStringList differences = compareAccountSets(source, db);
    if (!differences.isEmpty())
        throw DatabaseError(QStringLiteral("恢复的数据与备份文件不一致：%1").arg(differences[0]),
                            {}, {});
    transaction.commit();
}

} // namespace jxc
