#pragma once

#include "core/prompter.h"

#include <QHash>

namespace jxc {

/// Gives an answer that the user has given already without asking again: for work of several
/// actions that meets the same question more than once.
class RememberingPrompter : public Prompter {
public:
    explicit RememberingPrompter(Prompter &prompter)
        : m_prompter(prompter) {}

    void inform(const QString &text, const QString &caption) override {
        m_prompter.inform(text, caption);
    }
    bool confirm(const QString &text, const QString &caption) override {
        if (const auto known = m_answers.constFind(text); known != m_answers.constEnd())
            return *known;
        const bool answer = m_prompter.confirm(text, caption);
        m_answers.insert(text, answer);
        return answer;
    }

private:
    Prompter &m_prompter;
    QHash<QString, bool> m_answers;
};

} // namespace jxc
