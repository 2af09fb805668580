#pragma once

#include "retail/counter_settings.h"

#include <optional>

namespace jxc {

/// What stands in the counter's input line, taken apart.
struct CounterInput {
    QString code;                      ///< of the goods, as typed or scanned
    std::optional<Decimal> quantity{}; ///< "3*" before the code
    /// A label of the scale, should no goods bear the whole of it as its barcode.
    struct Label {
        QString goods;                     ///< five digits
        std::optional<Decimal> quantity{}; ///< kilograms or pieces
        std::optional<Decimal> amount{};   ///< or the price of the whole
    };
    std::optional<Label> label{};
};

/// "3*code", "3*" alone (a quantity for the current line), a code, or a label of the scale whose
/// check digit is right. Full-width signs count as the plain ones. An unreadable quantity stays
/// part of the code, so that it is told as not found.
[[nodiscard]] CounterInput parseCounterInput(const CounterSettings &settings, const QString &typed);

} // namespace jxc
