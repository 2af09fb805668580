#pragma once

#include <QDateTime>
#include <QString>
#include <stdexcept>

namespace jxc {

// The books keep dates as text and compare them as text, so the form is always the same: dates
// "yyyy-MM-dd", time stamps "yyyy-MM-dd hh:mm:ss", whatever the workstation's locale says.

/// A text was expected to be a date and is none.
class DateError : public std::runtime_error {
public:
    explicit DateError(QStringView text);
};

/// The date that the text names; invalid unless it is a day of the calendar in exactly the books'
/// form ("2024-2-9" and "2024-02-30" are none).
[[nodiscard]] QDate parseDate(QStringView text);
[[nodiscard]] bool isDate(QStringView text);

/// Empty for an invalid date.
[[nodiscard]] QString toDateText(QDate date);
[[nodiscard]] QString toTimeStampText(const QDateTime &moment);

/// "yyyy-MM": the first seven characters of a date or time stamp.
[[nodiscard]] QString monthOf(QStringView date);
/// "yymmdd" as document numbers carry it. Throws DateError when the text is no date.
[[nodiscard]] QString dateDigits(QStringView date);

/// "星期日 " to "星期六 " for 1 (Sunday) to 7, with the trailing blank that the headings count on;
/// empty for any other number.
[[nodiscard]] QString weekdayName(int dayOfWeek);
[[nodiscard]] QString weekdayName(QDate date);

} // namespace jxc
