#pragma once

#include "base/decimal.h"

#include <QString>

namespace jxc {

class Database;

/// The kind of the cash row that pays a document's freight or packing.
inline const QString feePaymentKind = QStringLiteral("费用付款");
/// Freight and packing are booked only when the shop pays them.
inline const QString shopPaysFreight = QStringLiteral("我方付运费");

/// A fee that a document brought: an expense row and the cash row that pays it.
struct Fee {
    QString kind; ///< "运费" or "包装费"
    QString note; ///< names the document; cancelling finds the rows by it
    QString date;
    Decimal amount; ///< positive
    QString clerkNo, clerkName, partnerNo, partnerName, warehouseName, operatorName;
};

void addFee(Database &db, const Fee &fee);

/// Deletes the expense rows of these fee notes, exactly; never a row that a clerk typed.
void removeFees(Database &db, const QStringList &feeNotes);

} // namespace jxc
