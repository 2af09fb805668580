#pragma once

#include "core/action.h"
#include "stock/rewalk.h"

#include <QHash>

namespace jxc {

class Session;

/// Saves what was changed in the system settings, as one action: `changed` holds column and text of
/// the fields (loadSystemParameters gives what stands). Checks them in their order, logs the
/// captions of those that differ, and loads the globals anew. Changed decimals of price, quantity
/// or amount re-cost the whole journal in the same action, after asking; stopped by the progress,
/// nothing is changed. Refused by a field, `field` names its column.
Outcome saveParameters(Session &session, Prompter &prompter, const QHash<QString, QString> &changed,
                       const RewalkProgress &progress = {}, QString *field = nullptr);

} // namespace jxc
