#pragma once

#include "retail/tender.h"

namespace jxc {

class Session;

/// A receipt or return of the counter, beside what its document holds.
struct ReceiptHead {
    QString number;
    QString note{};
    Tender tender{};
    TenderOutcome outcome{};
};

/// Writes the rows of jxc_posxsd and jxc_posxssp after the stored sale of that number.
void writeReceipt(Session &session, const ReceiptHead &head);

/// What a line of a return had been sold as, by its place in the return.
using SoldQuantities = std::vector<Decimal>;
/// Writes the rows of jxc_posthd and jxc_posthsp, all positive, after the stored sales return.
void writeReturn(Session &session, const ReceiptHead &head, const SoldQuantities &sold);

/// Moves the tenders that are no cash out of the cash account, where the approval of the document
/// booked all of it; `sign` is -1 for money that is paid back.
void moveReceiptTenders(Session &session, const QString &number, const OtherTenders &tenders,
                        int sign);

} // namespace jxc
