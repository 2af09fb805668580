#include "stock/expiry.h"

#include "base/dates.h"

namespace jxc {

std::optional<qint64> daysLeft(const QString &expiry, QDate today) {
    QDate last = parseDate(expiry);
    if (!last.isValid() && expiry.size() == 7) {
        last = parseDate(expiry + QStringLiteral("-01"));
        if (last.isValid())
            last = last.addMonths(1).addDays(-1);
    }
    if (!last.isValid())
        return std::nullopt;
    return today.daysTo(last);
}

} // namespace jxc
