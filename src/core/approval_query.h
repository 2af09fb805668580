#pragma once

#include <QString>

namespace jxc {

/// What a list of records with approval shows; empty texts narrow nothing.
struct ApprovalQuery {
    bool approved = false; ///< 已审核 or 待审核
    QString from{}, to{};  ///< "yyyy-MM-dd", both included
    QString search{};      ///< part of number, partner's name or note
};

} // namespace jxc
