#pragma once

#include "core/action.h"

#include <vector>

namespace jxc {

class Session;

struct Tip {
    qint64 id = 0;
    QString text;
};

/// All tips of the daily window, in their order.
[[nodiscard]] std::vector<Tip> listTips(const Session &session);

/// The tip whose turn it is, marked as shown; once all were shown they start anew. 0 when there are
/// none. Answers its id.
qint64 takeNextTip(const Session &session, Prompter &prompter);

} // namespace jxc
