#pragma once

#include "db/row.h"
#include "retail/counter_rows.h"

namespace jxc {

/// The receipts as they stand and the returns of the counter negative, newest first; searched by a
/// part of the number or of the member's name, or by the member's card. Fields: those of
/// counterReceipts(), hy_bh hy_name ck_name.
[[nodiscard]] Rows listReceipts(const Session &session, const CounterFilter &filter);

/// The lines of one, of a return negative as its row is: g_sn g_name (with the gift mark) gg_name
/// dw_name pos_sl pos_dj pos_dzl pos_zje t_ph t_yxq.
[[nodiscard]] Rows receiptLines(const Session &session, const QString &number, bool isReturn);

} // namespace jxc
