#pragma once

#include "stock/batches.h"

#include <QString>
#include <vector>

namespace jxc {

class Session;

/// A receipt (sale) of which something is still to be taken in (issued).
struct OpenDocument {
    QString number, date, partner, partnerName, warehouse;
    Decimal ordered, done, cancelled, open; ///< in units of entry
};

/// A line of it.
struct OpenLineOfSource {
    QString number, date, partner, partnerName, warehouse;
    qint64 sourceLine = 0; ///< id2
    QString goods, name, specification, maker, unit, barcode;
    Decimal factor;
    Batch batch;
    Decimal ordered, done, cancelled, open; ///< in the unit
};

/// The receipts (code "RK") or sales ("CK") with open lines, oldest first; an empty warehouse: of
/// all.
[[nodiscard]] std::vector<OpenDocument> openDocuments(Session &session, const QString &code,
                                                      const QString &warehouse = {});
/// Their open lines; an empty number: of all documents of the warehouse.
[[nodiscard]] std::vector<OpenLineOfSource> openLinesOf(Session &session, const QString &code,
                                                        const QString &number,
                                                        const QString &warehouse = {});

/// A line of an approved receipt or sale that goods can be returned of. Lines of one document that
/// agree in goods, unit and batch count as one.
struct ReturnableLine {
    QString number, date;
    QString goods, name, specification, maker, unit;
    Decimal factor;
    Batch batch;
    Decimal traded;     ///< what came or went, in the unit; what never did is not in it
    Decimal returned;   ///< by all other returns that name the document, drafts too
    Decimal returnable; ///< the rest
    Decimal price;      ///< as typed, per unit; of a sale in proportion of what was really paid
    Decimal discount = 1;
    Decimal taxRate;
    Decimal cost; ///< of a sale, per unit
    QString member{};
};

/// The lines that a purchase return (code "CT") or sales return ("XT") of a partner and warehouse
/// can take, newest first; lines with nothing left are not among them. `exceptReturn` is the return
/// being edited, whose own lines do not count as returned. A goods and an earliest date narrow it.
[[nodiscard]] std::vector<ReturnableLine>
returnableLines(Session &session, const QString &code, const QString &partner,
                const QString &warehouse, const QString &exceptReturn = {},
                const QString &goods = {}, const QString &fromDate = {});

} // namespace jxc
