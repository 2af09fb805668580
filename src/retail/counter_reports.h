#pragma once

#include "db/row.h"
#include "retail/counter_rows.h"

namespace jxc {

// Reports of the counter. Figures are net: what came back is taken off. A discount is one line
// ("00000000" 优惠商品), an amount without a quantity. Quantities are in the goods' base unit, so
// that cases and bottles add up. Profit is amount less cost. Each is one statement over the
// period's receipts; sums are exact.

/// 商品销售统计: a row per goods, by code. Beside the fields that name a goods: gc_name, sl, zje,
/// zcb, lr, lrl (profit in percent of the amount; 0 without one). Searched as goods are.
[[nodiscard]] Rows counterGoods(const Session &session, const CounterFilter &filter);

/// The lines behind a figure, newest first: id pos_xsrq gl_djh g_sn g_name (with the gift mark)
/// gg_name dw_name pos_sl pos_dj pos_dzl pos_zje pos_zcb lr t_ph t_yxq hy_bh hy_name a_name ck_name
/// is_return is_back. Quantities are in the line's unit. Searched by number or as goods are.
[[nodiscard]] Rows counterLineList(const Session &session, const CounterFilter &filter);

/// 会员消费统计: a row per member who bought or returned something, by card: hy_sn hy_bh hy_name
/// hy_mobile hl_name, cs receipts, thcs returns, zje, pos_bcjf points, pos_jfye rebate onto the
/// card, last the day of the last receipt. Searched by card, name or mobile phone.
[[nodiscard]] Rows counterMembers(const Session &session, const CounterFilter &filter);

} // namespace jxc
