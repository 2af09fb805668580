#pragma once

#include "db/row.h"

namespace jxc {

class Session;

/// Members for what was typed or scanned, at most `most`. A card number or a mobile number that is
/// typed in full stands alone, the card before the telephone; else those with the text as part of
/// card number, name, mnemonic code, mobile or telephone, exact ones first, then those that begin
/// with it. Nothing typed: those who buy most often. Lost and expired cards are found too: whoever
/// uses one asks memberUsable(). The customer without a card is none.
///
/// Columns: hy_sn hy_bh hy_name hy_jm hy_mobile hl_sn hl_name hh_sn hh_name hy_sr hy_zhje hy_jf
/// hy_zjf hy_status.
[[nodiscard]] Rows findMembers(const Session &session, const QString &typed, int most);
/// The same row for one member by key; nothing for an unknown one.
[[nodiscard]] std::optional<Row> memberRow(const Session &session, const QString &key);

/// The key of the row for customers without a card.
inline const QString noMember = QStringLiteral("100001");

} // namespace jxc
