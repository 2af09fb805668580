#pragma once

#include "stock/draft.h"

#include <QMutex>
#include <QThreadPool>
#include <optional>

namespace jxc {

class Session;

/// Keeps what is being typed on the disk, one file per account set, operator and kind, so that
/// a power cut takes no line away. The file is replaced whole at every keeping, so that it never
/// stands half written. A thread of its own writes: an old disk may take longer than a typist.
class DraftFile {
public:
    /// `folder` is made when something is kept.
    DraftFile(const QString &folder, const Session &session, const QString &code);
    /// Waits for what is still to be written.
    ~DraftFile();
    DraftFile(const DraftFile &) = delete;
    DraftFile &operator=(const DraftFile &) = delete;

    /// What cannot be written is lost silently: typing goes on. A newer draft takes the place of
    /// one that still waits.
    void keep(const Draft &draft);
    /// What was kept; nothing when there is none, or it cannot be read.
    [[nodiscard]] std::optional<Draft> read();
    void forget();

private:
    void writeWaiting();

    QString m_file;
    QThreadPool m_writer; ///< of one thread
    QMutex m_lock;
    std::optional<Draft> m_waiting;
};

/// A draft as text, and back. Nothing for what is no draft.
[[nodiscard]] QByteArray draftToJson(const Draft &draft);
[[nodiscard]] std::optional<Draft> draftFromJson(const QByteArray &json);

} // namespace jxc
