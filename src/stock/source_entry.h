#pragma once

#include "core/action.h"

#include <QString>

namespace jxc {

class Session;

/// The line that a scan found for a goods-in (goods-out) document.
struct ScannedLine {
    QString number; ///< the document, drawn by the first scan
    qint64 lineId = 0;
};

/// Fills a new goods-in document (of a receipt) or goods-out document (of a sale) with all its open
/// lines and saves it unapproved. What was cancelled before is not taken off here, deliberately:
/// the approval refuses too much. `made` gets the new number.
Outcome fillFromSource(Session &session, Prompter &prompter, const QString &source,
                       const QString &date, QString *made);

/// Adds one unit of the oldest open line of the scanned goods in a warehouse to a goods-in (code
/// "RK") or goods-out ("CK") document; an empty number draws a new one. Refused when nothing is
/// open for the barcode, or the document has the line already.
Outcome addScannedLine(Session &session, Prompter &prompter, const QString &code,
                       const QString &number, const QString &warehouse, const QString &barcode,
                       const QString &date, ScannedLine *added);

} // namespace jxc
