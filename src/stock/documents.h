#pragma once

#include "db/row.h"

#include <QString>
#include <vector>

namespace jxc {

class Session;

/// Which documents a list shows. Empty texts narrow nothing.
struct DocumentFilter {
    QString code;                                            ///< CJ, CT, RK, XS, XT or CK
    bool approved = false;                                   ///< 已审核 or 待审核
    QString fromDate{}, toDate{};                            ///< "yyyy-MM-dd", both included
    QString warehouse{}, partner{}, operatorName{}, goods{}; ///< numbers; the operator by name
    QString search{}; ///< part of number, partner's name or note

    // For long lists, that are read in pieces: at most so many rows (0: all), those that follow a
    // row of the piece before.
    int most = 0;
    QString afterDate{};
    qint64 afterId = 0;
};

/// A row of the upper grid.
struct DocumentRow {
    qint64 id = 0;
    QString number, date;
    QString partner, partnerName;
    QString warehouse, warehouseName;
    Decimal due, paid, off; ///< 0 for kinds without money
    Decimal rest;           ///< still unpaid, later settlements counted
    Decimal quantity;       ///< of goods-in and goods-out
    QString clerkName, operatorName, note, checker, checkDate;
};

/// The documents, newest first, in one statement.
[[nodiscard]] std::vector<DocumentRow> listDocuments(Session &session,
                                                     const DocumentFilter &filter);

/// A row of the lower grid.
struct DocumentLineRow {
    QString goods, name, commonName, dosageForm, specification, maker, licence, unit;
    Decimal quantity, baseQuantity;
    Decimal price, taxPrice, discount, taxRate;
    Decimal amount, taxAmount, total;
    Decimal retailPrice, cost, totalCost, profit; ///< of sales
    Decimal done, cancelled;                      ///< taken in or issued; never to be
    QString batch, produced, expiry, note, gift, barcode;
    QString sourceNumber;
    QString buyer, identityNo, mobile, address, use;
};

/// The lines of a document in the order of entry, the discount line among them, in one statement.
[[nodiscard]] std::vector<DocumentLineRow> documentLines(Session &session, const QString &number);

} // namespace jxc
