#pragma once

#include "core/parameters.h"
#include "money/partner_ledger.h"

namespace jxc {

class Session;

/// What the approval of a stock document does to the money ledgers. Amounts are signed as they are
/// booked: negative for returns on the partner's account, and in cash positive for money that comes
/// in.
struct DocumentMoney {
    Partner partner;
    QString partnerName;
    QString number, date, note;
    QString kindCode, kindText; ///< "CJ", "采购进货单"
    Decimal due;                ///< owed, less the discount granted on settlement
    Decimal settled;            ///< paid at once
    Decimal discount;           ///< for information
    QString account;            ///< of the payment
    QString cashKind;           ///< "采购进货"
    Decimal cash;
    QString invoiceNo;
    Decimal invoiced;
    Decimal freight, packing; ///< paid by the shop, 0 for none
    QString feeDocument;      ///< "采购单": how a fee's note calls the document
    QString clerkNo, clerkName, warehouseName, operatorName;
};

/// Writes the partner's row always, the cash row for an amount other than 0, the invoice row while
/// the register is used, and the fees.
void postDocumentMoney(Session &session, const Parameters &parameters, const DocumentMoney &money);

/// Removes what postDocumentMoney wrote for the number, and settlement documents of that number,
/// and brings every balance that lost a row up to date.
void removeDocumentMoney(Session &session, const QString &number, const QString &feeDocument);

} // namespace jxc
