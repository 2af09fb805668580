#pragma once

#include "core/prompter.h"
#include "db/database.h"

#include <QHash>
#include <functional>
#include <stdexcept>

namespace jxc {

/// A rule of the business says no. The text is for the user; nothing was written.
class Refusal : public std::runtime_error {
public:
    explicit Refusal(const QString &text)
        : std::runtime_error(text.toStdString())
        , m_text(text) {}
    [[nodiscard]] const QString &text() const { return m_text; }

private:
    QString m_text;
};

/// The answers that the user has given so far to the questions of one action.
class Answers {
public:
    /// The answer to a Yes/No question. While there is none yet, leaves the action: it is rolled
    /// back, the user is asked with no transaction open, and the action runs anew.
    bool ask(const QString &text);
    /// As ask(), and No ends the action.
    void require(const QString &text);

private:
    friend class ActionRunner;
    QHash<QString, bool> m_given;
};

/// How an action ended.
struct Outcome {
    enum class Kind {
        done,
        refused,  ///< a rule said no
        declined, ///< the user answered No
        failed    ///< the database could not do it
    };
    Kind kind = Kind::done;
    QString text; ///< refusal, unanswered question or failure, for the user

    [[nodiscard]] bool isDone() const { return kind == Kind::done; }
};

/// Runs one user action in one transaction: it locks, reads, checks and writes, wholly or not at
/// all. A database that is busy, or a server that went away before anything was committed, is tried
/// again here and nowhere else. The caller shows the outcome.
Outcome runAction(Database &db, Prompter &prompter, const std::function<void(Answers &)> &body);

} // namespace jxc
