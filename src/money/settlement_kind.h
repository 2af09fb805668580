#pragma once

#include "money/partner_ledger.h"

#include <array>

namespace jxc {

/// Receipts and payments (SK, FK), and amounts entered as owed (YS, YF).
struct SettlementKind {
    QStringView code;       ///< prefix of the number, k_djlx
    QStringView title;      ///< k_djtxt
    QStringView logOpening; ///< of an approval, the partner's name follows
    Partner::Kind partner;
    int approveRight; ///< of group wlzk; it is the cancelling right too
    int cashSign;     ///< 0: no cash moves
    QStringView amountColumn;

    /// Whether it pays, and so can be spread over what is open.
    [[nodiscard]] constexpr bool settles() const { return cashSign != 0; }
};

/// SK, FK, YS, YF.
[[nodiscard]] const std::array<SettlementKind, 4> &settlementKinds();
/// By the first two letters of a number; null for others.
[[nodiscard]] const SettlementKind *findSettlementKind(QStringView number);

} // namespace jxc
