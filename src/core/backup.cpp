#include "core/backup.h"

#include "db/backup_file.h"

#include <QDir>
#include <QFileInfo>

namespace jxc {

QString accountSetName(const Session &session) {
    const QString name = QFileInfo(session.currentDatabaseFile).completeBaseName();
    return name.isEmpty() ? QStringLiteral("jxc") : name;
}

QString backupFileName(const Session &session, const QDateTime &time) {
    return accountSetName(session) + time.toString(u"yy_MM_dd_HH_mm_ss") + QStringLiteral(".DAT");
}

QString backupTo(const Session &session, const QString &folder) {
    if (folder.isEmpty() || !QDir(folder).exists())
        throw DatabaseError(QStringLiteral("备份失败，文件夹不存在！"), {}, {});
    QString target = QDir(folder).filePath(backupFileName(session, session.now()));
    writeBackupFile(session.db().location(), target);
    return target;
}

QString backupDatabase(const Session &session) {
    try {
        const QString folder =
            session.db().scalar(QStringLiteral("select back_path from jxc_backup order by id"));
        if (folder.isEmpty())
            return {};
        QString written;
        try {
            written = backupTo(session, folder);
        } catch (const std::exception &) { // NOLINT(bugprone-empty-catch): silent, deliberately
        }
        deleteBackupFiles(session, folder);
        return written;
    } catch (const std::exception &) {
        return {}; // no box may stand in the way of work or of leaving
    }
}

std::optional<QDateTime> newestBackup(const Session &session) {
    if (session.backup.folder.isEmpty())
        return std::nullopt;
    const QString stamp = QStringLiteral("[0-9][0-9]");
    const QString names = accountSetName(session) +
                          QStringList(QList<QString>(6, stamp)).join(u'_') + QStringLiteral(".DAT");
    const QFileInfoList files =
        QDir(session.backup.folder).entryInfoList({names}, QDir::Files, QDir::Time);
    if (files.isEmpty())
        return std::nullopt;
    return files.first().lastModified();
}

int deleteBackupFiles(const Session &session, const QString &folder) {
    constexpr qint64 day = 24LL * 60 * 60 * 1000;
    const auto settings =
        session.db().row(QStringLiteral("select back_days from jxc_backup order by id"));
    const qint64 days = settings ? settings->integer(u"back_days") : 0;
    if (days <= 0 || folder.isEmpty())
        return 0;
    int deleted = 0;
    const QDir place(folder);
    for (const QFileInfo &file :
         place.entryInfoList({QStringLiteral("*.DAT")},
                             QDir::Files | QDir::Hidden | QDir::System | QDir::CaseSensitive))
        if (file.lastModified().msecsTo(session.now()) > days * day &&
            QFile::remove(file.absoluteFilePath()))
            ++deleted;
    return deleted;
}

Outcome saveBackupSettings(Session &session, Prompter &prompter, const BackupSettings &settings) {
    Database &db = session.db();
    Outcome outcome = runAction(db, prompter, [&](Answers &) {
        db.execute(QStringLiteral("delete from jxc_backup"));
        db.insertRow(QStringLiteral("jxc_backup"),
                     {{QStringLiteral("back_path"), settings.folder},
                      {QStringLiteral("back_auto"), settings.automatic},
                      {QStringLiteral("back_exit"), settings.onExit},
                      {QStringLiteral("back_sj"), settings.intervalHours},
                      {QStringLiteral("back_days"), settings.keepDays}});
    });
    if (outcome.isDone())
        session.backup = settings;
    return outcome;
}

Outcome manualBackup(Session &session, Prompter &prompter, const BackupSettings &settings) {
    if (settings.folder.trimmed().isEmpty())
        return {Outcome::Kind::refused, QStringLiteral("备份路径必须填写！")};
    Outcome saved = saveBackupSettings(session, prompter, settings);
    if (!saved.isDone())
        return saved;
    if (!QDir(settings.folder).exists())
        return {Outcome::Kind::refused, QStringLiteral("备份失败，文件夹不存在！")};
    try {
        backupTo(session, settings.folder);
    } catch (const DatabaseError &error) {
        return {Outcome::Kind::failed, error.userText()};
    }
    return {Outcome::Kind::done, QStringLiteral("备份完成！")};
}

} // namespace jxc
