#include "stock/expiry.h"

#include "base/dates.h"

namespace jxc {

namespace {

/// "2026.03.05", "20260305" and "2026/3/5" hold the same figures as "2026-03-05".
struct DateParts {
    int year = 0, month = 0, day = 0;
};

DateParts partsOf(QStringView text) {
    QList<int> numbers;
    QString digits;
    const auto close = [&] {
        if (!digits.isEmpty())
            numbers += digits.toInt();
        digits.clear();
    };
    for (const QChar c : text) {
        if (c >= u'0' && c <= u'9')
            digits += c;
        else
            close();
    }
    if (numbers.isEmpty() && (digits.size() == 8 || digits.size() == 6))
        return {digits.first(4).toInt(), digits.sliced(4, 2).toInt(), digits.sliced(6).toInt()};
    close();
    if (numbers.size() < 2 || numbers.size() > 3)
        return {};
    return {numbers[0], numbers[1], numbers.size() == 3 ? numbers[2] : 0};
}

QDate dayOf(QStringView text, bool lastOfMonth) {
    const DateParts parts = partsOf(text);
    if (parts.year < 1000 || parts.month < 1)
        return {};
    if (parts.day > 0)
        return {parts.year, parts.month, parts.day};
    const QDate first(parts.year, parts.month, 1);
    return lastOfMonth && first.isValid() ? first.addDays(first.daysInMonth() - 1) : first;
}

} // namespace

QDate lastGoodDay(QStringView expiry) {
    return dayOf(expiry, true);
}

QDate lastGoodDay(QStringView expiry, QStringView produced, int shelfLifeMonths) {
    const QDate own = lastGoodDay(expiry);
    if (own.isValid() || shelfLifeMonths <= 0)
        return own;
    const QDate made = dayOf(produced, false);
    return made.isValid() ? made.addMonths(shelfLifeMonths) : QDate();
}

std::optional<qint64> daysLeft(QStringView expiry, QDate today) {
    const QDate last = lastGoodDay(expiry);
    return last.isValid() ? std::optional<qint64>(today.daysTo(last)) : std::nullopt;
}

QString expiryAfter(QStringView produced, int shelfLifeMonths) {
    return toDateText(lastGoodDay({}, produced, shelfLifeMonths));
}

} // namespace jxc
