#pragma once

#include "core/action.h"

#include <optional>

namespace jxc {

class Session;

/// What is changed on all marked goods alike; what is not given stays.
struct BulkChange {
    std::optional<qint64> classNumber; ///< gc_cid
    std::optional<QString> supplier;   ///< ghs_sn
    std::optional<bool> restricted;    ///< 处方药
    std::optional<bool> disabled;
};

/// Changes the goods of these ids as one action and logs how many. A restricted goods needs a
/// registration number, so the first without one refuses it all.
Outcome bulkEditGoods(Session &session, Prompter &prompter, const std::vector<qint64> &ids,
                      const BulkChange &change);

} // namespace jxc
