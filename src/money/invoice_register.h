#pragma once

#include "money/partner_ledger.h"

namespace jxc {

/// A document's row of the invoice register jxc_fpdjb: what is to be invoiced and what has been.
/// Amounts of returns are negative.
struct InvoiceEntry {
    Partner partner;
    QString number, date;
    QString kindCode, kindText;
    Decimal due;      ///< fp_yfje
    Decimal invoiced; ///< fp_kpje
    QString invoiceNo;
    QString note, clerkNo, operatorName;
    QString checker, checkDate; ///< rows of documents arrive approved
};

/// Appends the row and brings the partner's open invoice amounts up to date from its date on.
void addInvoiceEntry(Database &db, const InvoiceEntry &entry);
/// Rebuilds fp_ljje = earlier + fp_qcje + fp_yfje - fp_kpje over the approved rows from this day
/// on.
void recomputeInvoiceBalance(Database &db, const Partner &partner, const QString &fromDate);
void removeInvoiceEntries(Database &db, const QString &number);

} // namespace jxc
