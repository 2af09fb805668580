#pragma once

#include "core/prompter.h"

namespace jxc {

/// Speaks in message boxes over the window in front. Y, N, Enter and Esc answer a question.
class BoxPrompter : public Prompter {
public:
    void inform(const QString &text, const QString &caption) override;
    bool confirm(const QString &text, const QString &caption) override;
};

/// Installs Qt's own Chinese words (the context menu of a field, the buttons of a file dialog).
void useChineseWords();

/// Makes the program write dates and numbers in one form, whatever the workstation is set to: the
/// books compare dates as text. Called before the first window.
void useFixedLocale();

} // namespace jxc
