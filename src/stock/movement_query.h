#pragma once

#include "db/row.h"

namespace jxc {

class Session;

/// 库存商品变动查询: how the stock of a goods came to be what it is.
struct MovementFilter {
    QString goods;
    QString warehouse{}; ///< empty: all that the operator may see, their stocks added up
    QString from, to;    ///< "yyyy-MM-dd", both included
};

/// The journal rows of the period in order of date and entry, after an opening line (id null, title
/// "期初", gl_kdrq the first day). Fields: id gl_flag title gl_kdrq gl_djh ck_sn ck_name ghs_sn
/// ghs_name gl_dj gl_zje t_ph t_scrq t_yxq u_name a_name gl_bz; gl_in and gl_out, the quantity in
/// base units that came or went (null for the other side); gl_kc, gl_pjjj, gl_kczje, stock, average
/// cost and stock value after the row, over several warehouses their sum (gl_pjjj the row's own).
[[nodiscard]] Rows movements(const Session &session, const MovementFilter &filter);

} // namespace jxc
