#pragma once

#include "core/session.h"
#include "ctl/console.h"
#include "ctl/exit_code.h"
#include "db/database.h"

#include <memory>
#include <optional>

namespace jxc::ctl {

/// What stands before the command on the line.
struct Options {
    QString home;
    QString database; ///< URL or path; empty: the embedded file below home
    QString operatorName = QStringLiteral("admin");
    std::optional<QString> password;
    bool yes = false;
};

/// What a command works with.
class Context {
public:
    Context(Options options, QStringList arguments)
        : m_options(std::move(options))
        , m_arguments(std::move(arguments))
        , m_prompter(m_options.yes) {}

    /// The arguments after the command's name.
    [[nodiscard]] const QStringList &arguments() const { return m_arguments; }
    /// Takes a switch ("--force") out of the arguments.
    bool takeSwitch(const QString &name);
    /// Takes a switch with a number ("--days 30"); nothing when it is absent. Throws UsageError.
    std::optional<int> takeNumber(const QString &name);

    [[nodiscard]] Prompter &prompter() { return m_prompter; }
    [[nodiscard]] const Clock &clock() const { return m_clock; }
    [[nodiscard]] QString home() const;
    /// Where the account set is, whether it exists or not.
    [[nodiscard]] Location location() const;

    /// Opens the account set and logs the operator in. Throws NotOurDatabase, DatabaseError,
    /// Refusal.
    Session &session();
    /// Opens the account set without logging in, for what only reads.
    Database &database();

private:
    [[nodiscard]] QString password(Session &session) const;

    Options m_options;
    QStringList m_arguments;
    ConsolePrompter m_prompter;
    SystemClock m_clock;
    std::unique_ptr<Database> m_database;
    std::unique_ptr<Session> m_session;
};

/// The command line makes no sense; the text says why.
class UsageError : public std::runtime_error {
public:
    explicit UsageError(const QString &text)
        : std::runtime_error(text.toStdString()) {}
};

} // namespace jxc::ctl
