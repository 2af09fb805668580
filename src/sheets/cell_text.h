#pragma once

#include <QString>

namespace jxc {

/// What a cell's number means, as its format says.
struct CellFormat {
    enum class Kind {
        number,
        day,    ///< a serial number of days
        moment, ///< the same with a time of day
    };
    Kind kind = Kind::number;
    int leastDigits = 0; ///< codes shown with leading zeros ("000000"), 0 for all others
};

/// Reads the number of a format built into every spreadsheet program, or a format's own pattern
/// when the file gives one (`pattern` not empty).
[[nodiscard]] CellFormat cellFormat(int builtIn, QStringView pattern);

/// A number as files write it ("1.2345E3", "0.30000000000000004") as the decimal it means, without
/// exponent. Fractions hold fifteen digits, as spreadsheet programs show them; whole numbers stay
/// whole. What is no number comes back as it is.
[[nodiscard]] QString numberText(QStringView raw);

/// The text of a numeric cell. `from1904`: the file counts its days from 1904.
[[nodiscard]] QString numericCellText(QStringView raw, const CellFormat &format, bool from1904);

} // namespace jxc
