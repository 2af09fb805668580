#pragma once

#include "core/action.h"

namespace jxc::ctl {

/// What the command tells its caller.
enum ExitCode { done = 0, failed = 1, refused = 2, usage = 64 };

[[nodiscard]] inline ExitCode exitCodeOf(const Outcome &outcome) {
    switch (outcome.kind) {
    case Outcome::Kind::done:
        return done;
    case Outcome::Kind::failed:
        return failed;
    default:
        return refused;
    }
}

/// Of two answers the one that asks for more attention.
[[nodiscard]] inline ExitCode worse(ExitCode a, ExitCode b) {
    if (a == failed || b == failed)
        return failed;
    return a == done ? b : a;
}

} // namespace jxc::ctl
