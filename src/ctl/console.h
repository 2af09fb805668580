#pragma once

#include "core/action.h"
#include "core/prompter.h"

namespace jxc::ctl {

/// A line on the terminal, written out at once.
void say(const QString &line);
/// A line for whoever looks at errors.
void complain(const QString &line);
/// A text of several lines on one: " / " stands for the breaks.
[[nodiscard]] QString oneLine(const QString &text);
/// How it went with a document: "NUMBER ok" or "NUMBER refused: TEXT".
void sayOutcome(const QString &number, const Outcome &outcome);
/// Asks for a password without showing it; empty when there is no terminal.
[[nodiscard]] QString askPassword(const QString &prompt);

/// Answers confirmations as --yes says; informs on the terminal.
class ConsolePrompter : public Prompter {
public:
    explicit ConsolePrompter(bool yes)
        : m_yes(yes) {}
    void inform(const QString &text, const QString &caption) override;
    bool confirm(const QString &text, const QString &caption) override;

private:
    bool m_yes;
};

} // namespace jxc::ctl
