#pragma once

#include <QObject>
#include <QTimer>
#include <memory>

class QThread;

namespace jxc {

class Session;

/// Makes the automatic backups while the program runs, and knows how old the last good one is.
class BackupWatch : public QObject {
    Q_OBJECT
public:
    explicit BackupWatch(Session &session, QObject *parent = nullptr);
    ~BackupWatch() override;

    /// Starts (or stops) the timer as the settings say; they have just been loaded.
    void start();
    /// One automatic backup, in the background: nobody waits for it and nothing is said.
    void backupTimer();
    /// The backup on leaving, when the settings ask for one.
    void backupOnExit();

    /// "上次备份：3小时前" and the like.
    [[nodiscard]] QString text() const;
    /// Whether the last one failed, or is older than the interval.
    [[nodiscard]] bool isOverdue() const;
    [[nodiscard]] bool isRunning() const { return m_worker != nullptr; }
    [[nodiscard]] int interval() const { return m_timer.isActive() ? m_timer.interval() : 0; }

Q_SIGNALS:
    void changed();

private:
    void finish(bool good);

    Session &m_session;
    QTimer m_timer, m_minute;
    QThread *m_worker = nullptr;
    bool m_failed = false;
};

} // namespace jxc
