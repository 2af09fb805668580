#pragma once

#include <QString>

namespace jxc {

class Session;
struct Document;

/// How a goods-in (goods-out) document hangs on the lines of receipts (sales).
struct SourceLines {
    QString headerTable, lineTable, numberColumn, statusColumn;
    QString quantity;         ///< ordered, in the unit of entry
    QString done;             ///< taken in or issued so far
    QString cancelled;        ///< never to come or go
    QString numberInFollower; ///< the column of the goods-in line that names the receipt
    QString tooMuch;          ///< refusal; %1 the source's number, %2 the goods
    int physicalSign = 1;     ///< goods-in raises the stock, goods-out lowers it
};

/// Refuses a document that would take in (issue) more of a line than is open, the sum of its own
/// lines counted, or whose source is not approved or stands in another warehouse.
void checkOpenQuantities(Session &session, const Document &document, const SourceLines &source);

/// Moves the physical stock, the batches, the goods' totals and what the source lines have done by
/// now; `direction` 1 at approval, -1 at cancelling. Book stock and cost were the source's matter.
void moveAgainstSourceLines(Session &session, const Document &document, const SourceLines &source,
                            int direction);

} // namespace jxc
