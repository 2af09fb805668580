#pragma once

#include <QString>

namespace jxc {

/// Speaks with the user: the program in message boxes, the command-line tool on the terminal, tests
/// by a list of answers. Never called while a transaction is open.
class Prompter {
public:
    virtual ~Prompter() = default;
    virtual void inform(const QString &text, const QString &caption) = 0;
    /// True for Yes.
    virtual bool confirm(const QString &text, const QString &caption) = 0;
};

/// Says yes to everything and tells nobody: for plays, measurements and unattended jobs.
class AgreeingPrompter : public Prompter {
public:
    void inform(const QString &, const QString &) override {}
    bool confirm(const QString &, const QString &) override { return true; }
};

/// The captions of the two kinds of boxes.
inline const QString informCaption = QStringLiteral("系统提示");
inline const QString confirmCaption = QStringLiteral("信息提醒");

} // namespace jxc
