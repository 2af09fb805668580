#include "app/backup_watch.h"

#include "core/backup.h"
#include "db/backup_file.h"

#include <QDir>
#include <QThread>
#include <limits>

namespace jxc {

namespace {

constexpr qint64 hour = 60LL * 60 * 1000;

QString ageText(qint64 milliseconds) {
    const qint64 minutes = milliseconds / 60'000;
    if (minutes < 1)
        return QStringLiteral("刚刚");
    if (minutes < 60)
        return QStringLiteral("%1分钟前").arg(minutes);
    if (minutes < 48 * 60)
        return QStringLiteral("%1小时前").arg(minutes / 60);
    return QStringLiteral("%1天前").arg(minutes / (24 * 60));
}

} // namespace

BackupWatch::BackupWatch(Session &session, QObject *parent)
    : QObject(parent)
    , m_session(session) {
    connect(&m_timer, &QTimer::timeout, this, &BackupWatch::backupTimer);
    connect(&m_minute, &QTimer::timeout, this, &BackupWatch::changed);
    m_minute.setInterval(60'000);
}

BackupWatch::~BackupWatch() {
    if (m_worker != nullptr)
        m_worker->wait(); // a backup is whole or not there
}

void BackupWatch::start() {
    m_failed = false;
    m_timer.stop();
    const BackupSettings &settings = m_session.backup;
    if (settings.automatic && settings.intervalHours > 0) {
        // A timer counts to 24 days.
        const qint64 interval =
            std::min<qint64>(settings.intervalHours * hour, std::numeric_limits<int>::max());
        m_timer.start(static_cast<int>(interval));
    }
    m_minute.start();
    Q_EMIT changed();
}

void BackupWatch::backupTimer() {
    if (m_worker != nullptr)
        return;
    const QString folder =
        m_session.db().scalar(QStringLiteral("select back_path from jxc_backup order by id"));
    if (folder.isEmpty())
        return;
    const QString target = QDir(folder).filePath(backupFileName(m_session, m_session.now()));
    auto good = std::make_shared<bool>(false);
    m_worker = QThread::create([good, target, from = m_session.db().location()] {
        try {
            writeBackupFile(from, target);
            *good = true;
        } catch (const std::exception &) { // NOLINT(bugprone-empty-catch): the pane turns red
        }
    });
    connect(m_worker, &QThread::finished, this, [this, good, folder] {
        m_worker->deleteLater();
        m_worker = nullptr;
        deleteBackupFiles(m_session, folder);
        finish(*good);
    });
    m_worker->start();
}

void BackupWatch::backupOnExit() {
    if (m_session.backup.onExit)
        finish(!backupDatabase(m_session).isEmpty());
}

void BackupWatch::finish(bool good) {
    m_failed = !good;
    Q_EMIT changed();
}

QString BackupWatch::text() const {
    if (m_session.backup.folder.isEmpty())
        return QStringLiteral("尚未设置备份");
    const auto newest = newestBackup(m_session);
    const QString age = newest ? ageText(newest->msecsTo(m_session.now())) : QStringLiteral("无");
    if (m_failed)
        return QStringLiteral("备份失败！上次备份：") + age;
    return QStringLiteral("上次备份：") + age;
}

bool BackupWatch::isOverdue() const {
    if (m_failed || m_session.backup.folder.isEmpty())
        return true;
    const auto newest = newestBackup(m_session);
    if (!newest)
        return true;
    // Without an interval a day is what a shop can bear to lose.
    const qint64 hours = m_session.backup.intervalHours > 0 ? m_session.backup.intervalHours : 24;
    return newest->msecsTo(m_session.now()) > hours * hour;
}

} // namespace jxc
