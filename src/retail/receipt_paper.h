#pragma once

#include "base/decimal.h"

#include <QString>
#include <optional>
#include <vector>

namespace jxc {

class Session;

/// A posted receipt or return as it is handed to the customer.
struct ReceiptPaper {
    struct Line {
        QString name, unit;
        Decimal price, discount = 1, quantity, total;
    };
    struct Member {
        QString number, name, mobile;
        Decimal balance, points; ///< all that were ever earned
    };
    bool isReturn = false;
    QString number, time, cashier, note;
    std::vector<Line> lines;
    Decimal due, tendered, change, discount, rounding;
    Decimal cash, bankCard, storedValue, voucher, weChat, aliPay;
    Decimal pointsEarned;
    std::optional<Member> member{};

    [[nodiscard]] QString title() const {
        return isReturn ? QStringLiteral("POS退货单") : QStringLiteral("POS销售单");
    }
};

/// Reads it by its number. Throws Refusal for an unknown one.
[[nodiscard]] ReceiptPaper readReceiptPaper(Session &session, const QString &number);

/// The number of the cashier's last receipt of today; empty when he has none. Older ones are
/// reprinted from the journal.
[[nodiscard]] QString lastReceiptOf(Session &session, const QString &operatorName);

} // namespace jxc
