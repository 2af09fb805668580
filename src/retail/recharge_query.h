#pragma once

#include "db/row.h"

#include <QString>

namespace jxc {

class Session;

/// Which recharges a list shows; empty texts narrow nothing.
struct RechargeFilter {
    QString from{}, to{}; ///< "yyyy-MM-dd", both included
    QString member{};     ///< hy_sn
    QString search{};     ///< part of number, card number, name, note or operator
};

/// The movements of stored value (jxc_hyxf), newest first: id xf_rq gl_djh hy_bh hy_name xf_je
/// xf_yhje xf_xj xf_xyk xf_wxje xf_zfbje xf_djq xf_zlje xf_zt xf_note a_name.
[[nodiscard]] Rows listRecharges(const Session &session, const RechargeFilter &filter);

} // namespace jxc
