#pragma once

#include "core/action.h"

namespace jxc {

class Session;

/// 库存核对: where the stored stock is not what the approved documents make it. Fields: the fields
/// that name a goods, ck_sn ck_name (empty for the goods' own total), item (帐面库存, 实际库存,
/// 批号 库存, 库存合计), t_ph t_scrq t_yxq of a batch, found 账面, due 应为, diff = found - due.
/// None when the stock is right. Reads the whole journal: seconds for a long one.
[[nodiscard]] Rows checkStock(Session &session);

/// Asks, recomputes the stock from the documents and writes the figures that differ; `repaired`
/// gets their number. The caller has asked for the right (kcgl 17).
Outcome repairStock(Session &session, Prompter &prompter, int *repaired);

} // namespace jxc
