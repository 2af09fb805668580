#include "core/restore.h"

#include "core/backup.h"
#include "db/backup_file.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

namespace jxc {

namespace {

constexpr int busyTries = 3;
const QString notRecognised = QStringLiteral("备份文件不可识别，不能恢复！");

void check(const QString &file) {
    switch (checkBackupFile(file)) {
    case BackupFault::none:
        return;
    case BackupFault::notOurs:
        throw Refusal(notRecognised);
    case BackupFault::damaged:
        throw Refusal(QStringLiteral("备份文件已损坏，不能恢复！"));
    }
}

/// Copies the backup to where it can be written, checks the copy, and upgrades it.
void stage(const Session &session, const RestoreRequest &request, const QString &file) {
    unpackBackupFile(request.file, file);
    check(file);
    Database copy(Location::ofFile(file));
    upgradeDatabase(copy, session.now().date(), request.hooks);
}

QString keepFolder(const Session &session, const RestoreRequest &request) {
    if (!request.keepFolder.isEmpty())
        return request.keepFolder;
    const QString file = session.db().location().file;
    return file.isEmpty() ? QDir::currentPath() : QFileInfo(file).absolutePath();
}

/// A name like a backup's that nothing has yet: what is replaced must not replace a backup.
QString freeName(const Session &session, const QString &folder) {
    for (QDateTime time = session.now();; time = time.addSecs(1)) {
        QString name = QDir(folder).filePath(backupFileName(session, time));
        if (!QFileInfo::exists(name))
            return name;
    }
}

/// Answers the name of the kept set.
QString replaceOnce(const Session &session, const QString &folder, const QString &staged) {
    QString kept = freeName(session, folder);
    try {
        session.db().dialect().replaceFromFile(session.db(), staged, kept);
    } catch (const ConnectionLost &) {
        throw; // it may have happened
    } catch (...) {
        QFile::remove(kept); // nothing was replaced
        throw;
    }
    return kept;
}

QString restore(const Session &session, const RestoreRequest &request) {
    const QString folder = keepFolder(session, request);
    const QTemporaryDir place(QDir(folder).filePath(QStringLiteral("restore-XXXXXX")));
    if (!place.isValid())
        throw DatabaseError(QStringLiteral("数据文件夹不能写入：%1").arg(folder), {}, {});
    const QString staged = place.filePath(QStringLiteral("staged"));
    stage(session, request, staged);
    for (int tries = 1;; ++tries) {
        try {
            return replaceOnce(session, folder, staged);
        } catch (const BusyError &) { // each has waited for seconds
            if (tries == busyTries)
                throw;
        }
    }
}

} // namespace

RestoreOutcome restoreDatabase(const Session &session, Prompter &prompter,
                               const RestoreRequest &request) {
    using Kind = Outcome::Kind;
    if (request.file.trimmed().isEmpty())
        return {{Kind::refused, QStringLiteral("恢复路径必须填写！")}, {}};
    try {
        check(request.file);
        const QString question = QStringLiteral("恢复后当前帐套的数据将全部被替换，确认恢复吗？");
        if (!prompter.confirm(question, confirmCaption))
            return {{Kind::declined, question}, {}};
        const QString kept = restore(session, request);
        return {{Kind::done, QStringLiteral("恢复完成！")}, kept};
    } catch (const Refusal &refusal) {
        return {{Kind::refused, refusal.text()}, {}};
    } catch (const NotOurDatabase &) {
        return {{Kind::refused, notRecognised}, {}};
    } catch (const DatabaseError &error) {
        return {{Kind::failed, error.userText()}, {}};
    } catch (const std::runtime_error &error) { // a figure that cannot be read
        return {{Kind::failed, QString::fromUtf8(error.what())}, {}};
    }
}

} // namespace jxc
