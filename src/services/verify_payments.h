#pragma once

#include "services/verify_paging.h"

namespace jxc::verify {

/// What an approved document books in money, signed as it is booked: amounts of returns negative,
/// cash positive for money that comes in.
struct DuePayment {
    QString type, partner; ///< of the partner ledger, "kh" or "ghs"
    Decimal opening{}, due{}, settled{};
    QString account;
    Decimal cash{};
    Decimal invoiced{};
    Decimal freight{}, packing{}; ///< paid by the shop
};

/// A kind of document that books money, and the rule of its payments.
struct PayingKind {
    QString code;
    HeaderTable table; ///< with the document's date as "posted"
    bool inLedger;     ///< has its row in the partner ledger
    QString feeDocument;
    DuePayment (*payment)(const Row &header);
};

[[nodiscard]] const std::vector<PayingKind> &payingKinds();

// How partners and accounts are named in differences.
[[nodiscard]] QString partnerText(const QString &type, const QString &number);
[[nodiscard]] QString accountText(const QString &account);

/// Whether a row of the partner ledger (its document as "number") is an opening balance, which
/// belongs to no document.
[[nodiscard]] bool isOpeningRow(const Row &row);

} // namespace jxc::verify
