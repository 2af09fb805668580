#include "base/dates.h"

#include <array>

namespace jxc {

namespace {

/// -1 when one of the characters is no ASCII digit; QString::toInt would let signs and blanks pass.
int digitsToInt(QStringView digits) {
    int value = 0;
    for (const QChar c : digits) {
        if (c < u'0' || c > u'9')
            return -1;
        value = value * 10 + (c.unicode() - u'0');
    }
    return value;
}

} // namespace

DateError::DateError(QStringView text)
    : std::runtime_error(
          QStringLiteral("“%1”不是有效的日期！").arg(text.left(40).toString()).toStdString()) {}

QDate parseDate(QStringView text) {
    if (text.size() != 10 || text[4] != u'-' || text[7] != u'-')
        return {};
    // A negative part makes the date invalid; the calendar decides the rest.
    const int year = digitsToInt(text.first(4));
    const int month = digitsToInt(text.sliced(5, 2));
    const int day = digitsToInt(text.sliced(8, 2));
    return year < 1 ? QDate() : QDate(year, month, day);
}

bool isDate(QStringView text) {
    return parseDate(text).isValid();
}

QString toDateText(QDate date) {
    return date.toString(u"yyyy-MM-dd");
}

QString toTimeStampText(const QDateTime &moment) {
    return moment.toString(u"yyyy-MM-dd hh:mm:ss");
}

QString monthOf(QStringView date) {
    return date.left(7).toString();
}

QString dateDigits(QStringView date) {
    if (!isDate(date))
        throw DateError(date);
    return date.toString().remove(u'-').sliced(2);
}

QString weekdayName(int dayOfWeek) {
    static const std::array<QString, 7> names = {
        QStringLiteral("星期日 "), QStringLiteral("星期一 "), QStringLiteral("星期二 "),
        QStringLiteral("星期三 "), QStringLiteral("星期四 "), QStringLiteral("星期五 "),
        QStringLiteral("星期六 ")};
    if (dayOfWeek < 1 || dayOfWeek > 7)
        return {};
    return names[static_cast<size_t>(dayOfWeek - 1)];
}

QString weekdayName(QDate date) {
    // Qt counts from Monday = 1 to Sunday = 7.
    return date.isValid() ? weekdayName(date.dayOfWeek() % 7 + 1) : QString();
}

} // namespace jxc
