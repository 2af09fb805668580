#pragma once

#include "db/row.h"
#include "stock/document_query.h"
#include "stock/stock_query.h"

namespace jxc {

/// 进退货查询, 销售退货查询: approved receipts and purchase returns, or sales and sales returns,
/// newest first, in one list. Of the filter, codes, state and partner type do not count. Fields:
/// code title id number rq partner_sn partner_name ck_sn ck_name yfje due, sfje paid at once, yhje
/// off, wfje still unpaid, u_name a_name note checker chkrq. Amounts of returns are negative, so
/// that the sums under the list are net.
[[nodiscard]] Rows findTrade(const Session &session, Trade trade, const DocumentQuery &filter);

} // namespace jxc
