#include "core/action.h"

#include "db/transaction.h"

#include <QRandomGenerator>
#include <QThread>

namespace jxc {

namespace {

/// A question without an answer yet, on its way to the user.
struct Question {
    QString text;
};

/// The user answered No to a question that an action cannot do without.
struct Declined {
    QString text;
};

constexpr int busyTries = 3;

void waitALittle() {
    QThread::msleep(20 + QRandomGenerator::global()->bounded(80U));
}

} // namespace

bool Answers::ask(const QString &text) {
    const auto given = m_given.constFind(text);
    if (given == m_given.constEnd())
        throw Question{text};
    return *given;
}

void Answers::require(const QString &text) {
    if (!ask(text))
        throw Declined{text};
}

class ActionRunner {
public:
    ActionRunner(Database &db, Prompter &prompter, const std::function<void(Answers &)> &body)
        : m_db(db)
        , m_prompter(prompter)
        , m_body(body) {}

    Outcome run() {
        for (int busy = 0, lost = 0;;) {
            try {
                return runOnce();
            } catch (const Question &question) {
                m_answers.m_given[question.text] =
                    m_prompter.confirm(question.text, confirmCaption);
            } catch (const BusyError &error) {
                if (++busy >= busyTries)
                    return {Outcome::Kind::failed, error.userText()};
                waitALittle();
            } catch (const ConnectionLost &error) {
                // Lost while committing: it may be done, so it must not be done again.
                if (error.statement() == QLatin1String("commit") || ++lost > 1)
                    return {Outcome::Kind::failed, error.userText()};
            }
        }
    }

private:
    Outcome runOnce() {
        try {
            Transaction transaction(m_db);
            m_body(m_answers);
            transaction.commit();
            return {};
        } catch (const Refusal &refusal) {
            return {Outcome::Kind::refused, refusal.text()};
        } catch (const Declined &declined) {
            return {Outcome::Kind::declined, declined.text};
        } catch (const TextTooLong &error) {
            return {Outcome::Kind::refused, error.userText()};
        } catch (const NumberError &error) {
            return {Outcome::Kind::refused, QString::fromUtf8(error.what())};
        } catch (const RangeError &error) {
            return {Outcome::Kind::refused, QString::fromUtf8(error.what())};
        } catch (const BusyError &) {
            throw;
        } catch (const ConnectionLost &) {
            throw;
        } catch (const DatabaseError &error) {
            return {Outcome::Kind::failed, error.userText()};
        }
    }

    Database &m_db;
    Prompter &m_prompter;
    const std::function<void(Answers &)> &m_body;
    Answers m_answers;
};

Outcome runAction(Database &db, Prompter &prompter, const std::function<void(Answers &)> &body) {
    return ActionRunner(db, prompter, body).run();
}

} // namespace jxc
