#pragma once

#include <QString>

namespace jxc {

/// An amount of money as vouchers write it out: "1000" is 壹仟元整, "-12.30" 负壹拾贰元叁角.
///
/// The amount is plain text in yuan (Decimal::toText); decimals beyond the fen are cut, not
/// rounded. Empty when the text is no plain number, or longer than the units reach (28 digits of
/// yuan).
[[nodiscard]] QString amountInCapitals(QStringView amount);

} // namespace jxc
