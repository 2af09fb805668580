#pragma once

#include "stock/draft.h"

#include <optional>

namespace jxc {

class Session;

/// Keeps what is being typed on the disk, one file per account set, operator
/// and kind, so that a power cut takes
/// no line away. The file is replaced whole at every keeping, so that it never stands half written.
class DraftFile {
public:
    /// `folder` is made when something is kept.
    DraftFile(const QString &folder, const Session &session, const QString &code);

    /// False when it could not be written; typing goes on.
    bool keep(const Draft &draft) const;
    /// What was kept; nothing when there is none, or it cannot be read.
    [[nodiscard]] std::optional<Draft> read() const;
    void forget() const;

private:
    QString m_file;
};

/// A draft as text, and back. Nothing for what is no draft.
[[nodiscard]] QByteArray draftToJson(const Draft &draft);
[[nodiscard]] std::optional<Draft> draftFromJson(const QByteArray &json);

} // namespace jxc
