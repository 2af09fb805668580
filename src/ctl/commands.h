#pragma once

#include "ctl/context.h"

#include <vector>

namespace jxc::ctl {

/// One command of the tool.
struct Command {
    QString name;
    QString usage; ///< its arguments and what it does, for the help
    ExitCode (*run)(Context &);
};

ExitCode create(Context &);
ExitCode reset(Context &);
ExitCode upgrade(Context &);
ExitCode approve(Context &);
ExitCode cancel(Context &);
ExitCode batch(Context &);
ExitCode postReceipts(Context &);
ExitCode settle(Context &);
ExitCode verify(Context &);
ExitCode importFile(Context &);
ExitCode backup(Context &);
ExitCode restore(Context &);
ExitCode copy(Context &);
ExitCode demo(Context &);
ExitCode play(Context &);

} // namespace jxc::ctl
