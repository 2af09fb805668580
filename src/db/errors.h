#pragma once

#include <QString>
#include <stdexcept>

namespace jxc {

/// A statement failed. `userText()` is what the user is shown; `statement()` and `code()` are for
/// whoever looks into it.
class DatabaseError : public std::runtime_error {
public:
    DatabaseError(const QString &userText, QString statement, QString code)
        : std::runtime_error(userText.toStdString())
        , m_userText(userText)
        , m_statement(std::move(statement))
        , m_code(std::move(code)) {}

    [[nodiscard]] const QString &userText() const { return m_userText; }
    [[nodiscard]] const QString &statement() const { return m_statement; }
    /// The engine's own code: SQLite's extended result code, PostgreSQL's SQLSTATE.
    [[nodiscard]] const QString &code() const { return m_code; }

private:
    QString m_userText;
    QString m_statement;
    QString m_code;
};

/// Another workstation holds the lock, or two of them met in a deadlock: the action did nothing and
/// can be run again.
class BusyError : public DatabaseError {
public:
    using DatabaseError::DatabaseError;
};

/// The server went away; what was not committed is undone there.
class ConnectionLost : public DatabaseError {
public:
    using DatabaseError::DatabaseError;
};

/// What was opened is no account set of ours. Nothing in it was changed.
class NotOurDatabase : public DatabaseError {
public:
    explicit NotOurDatabase(const QString &where);
};

/// A text is longer than its column.
class TextTooLong : public DatabaseError {
public:
    TextTooLong(const QString &caption, int limit);
};

} // namespace jxc
