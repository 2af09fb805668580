#pragma once

#include "db/row.h"

#include <QString>

namespace jxc {

class Session;

/// What a member bought, line by line, newest first: id pos_xsrq gl_djh g_sn g_name gg_name dw_name
/// pos_sl pos_dj pos_zje t_ph. Days "yyyy-MM-dd", both included.
[[nodiscard]] Rows memberGoods(const Session &session, const QString &member, const QString &from,
                               const QString &to);

/// What went between the member's card and others, and points that were given away or changed for
/// gifts, newest first: id moved_at kind ("转账", "积分") value points (into the card positive)
/// remark a_name.
[[nodiscard]] Rows memberTransfers(const Session &session, const QString &member,
                                   const QString &from, const QString &to);

} // namespace jxc
