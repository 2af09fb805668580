#include "core/account_set.h"

#include "core/action.h"
#include "db/copy.h"
#include "db/sqlite_file.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace jxc {

namespace {

void makeFolderOf(const QString &file) {
    const QString folder = QFileInfo(file).absolutePath();
    if (!QDir().mkpath(folder))
        throw Refusal(QStringLiteral("不能建立文件夹：%1").arg(folder));
}

/// Whether a file of the embedded engine holds no table at all, as one does when making an account
/// set in it was broken off.
bool isBlankFile(const QString &path) {
    try {
        return SqliteFile(path, SqliteFile::Use::shared)
                   .text(QStringLiteral("select count(*) from sqlite_master")) ==
               QLatin1String("0");
    } catch (const DatabaseError &) {
        return false;
    }
}

void refuseForeignFile(const Location &location) {
    if (location.file.isEmpty() || QFileInfo(location.file).size() == 0)
        return;
    try {
        const Database existing(location);
    } catch (const NotOurDatabase &) {
        if (!isBlankFile(location.file))
            throw Refusal(QStringLiteral("文件不是帐套，不能覆盖：%1").arg(location.display()));
    }
}

} // namespace

QString homeFolder(const QString &wanted) {
    if (!wanted.isEmpty())
        return wanted;
    QString beside = QCoreApplication::applicationDirPath();
    if (QDir(beside + QStringLiteral("/data")).exists())
        return beside;
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
}

Location accountSetLocation(const QString &home, const QString &database) {
    if (!database.isEmpty())
        return Location::parse(database);
    return Location::ofFile(QDir(home).filePath(QStringLiteral("data/jxc.mdb")));
}

bool isAccountSetMissing(const Location &location) {
    if (location.file.isEmpty())
        return false;
    return QFileInfo(location.file).size() == 0 || isBlankFile(location.file);
}

std::unique_ptr<Database> openNewAccountSet(const Location &location, bool force) {
    refuseForeignFile(location);
    if (!location.file.isEmpty())
        makeFolderOf(location.file);
    auto db = std::make_unique<Database>(location, Database::Opening::empty);
    if (!force && holdsAccountSet(*db))
        throw Refusal(QStringLiteral("已有帐套，不能覆盖：%1").arg(location.display()));
    return db;
}

} // namespace jxc
