#pragma once

#include "retail/print_settings.h"
#include "retail/shift.h"

#include <QByteArray>

namespace jxc {

/// A figure of a shift, as it is shown and printed.
struct ShiftLine {
    QString caption;
    Decimal amount;
    bool isAlways = true; ///< stands on paper even when it is 0
};

/// What led to the cash that is due, in the order in which a cashier reckons.
[[nodiscard]] std::vector<ShiftLine> shiftLines(const Shift &shift);
/// What was handed over.
[[nodiscard]] std::vector<ShiftLine> handoverLines(const EndedShift &ended);

/// The slip of a change of shift, for a receipt printer.
[[nodiscard]] QByteArray escPosShift(const PrintSettings &settings, const EndedShift &ended,
                                     bool again);

} // namespace jxc
