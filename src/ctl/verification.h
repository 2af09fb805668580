#pragma once

#include "ctl/exit_code.h"
#include "services/verify.h"

namespace jxc::ctl {

/// Checks the books and says what is wrong: a line each, and last "N differences". What is only for
/// information is said too, and does not count.
ExitCode sayVerification(Database &db, const VerifyOptions &options = {});

} // namespace jxc::ctl
