#pragma once

#include "core/prompter.h"

#include <QStringList>

namespace jxc::test {

/// Answers every question alike and keeps what was said.
class RecordingPrompter : public Prompter {
public:
    explicit RecordingPrompter(bool answer = true)
        : m_answer(answer) {}

    void inform(const QString &text, const QString &) override { told << text; }
    bool confirm(const QString &text, const QString &) override {
        asked << text;
        return m_answer;
    }

    QStringList told;
    QStringList asked;

private:
    bool m_answer;
};

} // namespace jxc::test
