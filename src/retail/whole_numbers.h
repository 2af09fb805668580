#pragma once

#include "base/decimal.h"

namespace jxc {

// Points are whole numbers; fractions are dropped towards zero.

[[nodiscard]] inline Decimal truncated(Decimal value) {
    return Decimal::fromMicros(value.micros() / 1'000'000 * 1'000'000);
}

/// How often the divisor, which is not 0, goes wholly into a figure.
[[nodiscard]] inline Decimal wholeQuotient(Decimal value, Decimal divisor) {
    return Decimal::fromMicros(value.micros() / divisor.micros() * 1'000'000);
}

} // namespace jxc
