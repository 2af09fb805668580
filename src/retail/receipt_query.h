#pragma once

#include "db/row.h"

#include <QString>

namespace jxc {

class Session;

/// Which receipts the journal shows; empty texts narrow nothing.
struct ReceiptFilter {
    QString from, to; ///< "yyyy-MM-dd", both included
    QString cashier{}, warehouse{};
    QString member{}; ///< hy_sn
    QString search{}; ///< a part of the number or of the member's name, or the member's card
};

/// The receipts as they stand and the returns of the counter negative, newest first. Fields: id
/// pos_xsrq gl_djh hy_bh hy_name pos_yfje pos_sfje pos_zlje pos_xj pos_czk pos_yhk pos_djq pos_wxje
/// pos_zfbje pos_mlje a_name ck_name pos_rjid is_return.
[[nodiscard]] Rows listReceipts(Session &session, const ReceiptFilter &filter);

/// The lines of one: g_sn g_name (with the gift mark) gg_name dw_name pos_sl pos_dj pos_dzl pos_zje
/// t_ph t_yxq.
[[nodiscard]] Rows receiptLines(Session &session, const QString &number, bool isReturn);

} // namespace jxc
