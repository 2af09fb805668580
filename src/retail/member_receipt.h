#pragma once

#include "core/action.h"

namespace jxc {

class Session;

/// Posts on its member a receipt that another counter program wrote into the shared tables: a sale
/// (XS) or, by its copy or its row among the returns, a return (XT). Refused for an unknown
/// receipt, one without a member, and one that was posted before.
Outcome postReceipt(Session &session, Prompter &prompter, const QString &number);

} // namespace jxc
