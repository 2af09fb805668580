#pragma once

#include "base/decimal.h"

#include <QString>
#include <optional>

namespace jxc {

class Database;

/// A partner of the account ledger jxc_ysyfk. Amounts are owed by a customer ("kh", receivable) or
/// owed to a supplier ("ghs", payable); returns and payments lower them.
struct Partner {
    enum class Kind { customer, supplier };
    Kind kind = Kind::customer;
    QString number;

    [[nodiscard]] QString type() const {
        return kind == Kind::customer ? QStringLiteral("kh") : QStringLiteral("ghs");
    }
    friend bool operator==(const Partner &, const Partner &) = default;
};

/// A partner's type as the ledger stores it ("kh" or "ghs").
[[nodiscard]] Partner partnerOf(const QString &type, const QString &number);
/// The partner's name, nothing when there is no such partner.
[[nodiscard]] std::optional<QString> partnerName(Database &db, const Partner &partner);

/// One row for the ledger. Each row carries the partner's running balance after itself.
struct PartnerEntry {
    Partner partner;
    QString number;       ///< gl_djh, the document that causes it
    QString linkedNumber; ///< gl_djh2
    QString date;
    QString account;  ///< k_fkfs
    Decimal opening;  ///< k_qcje
    Decimal due;      ///< k_yfje, becomes owed
    Decimal settled;  ///< k_sfje
    Decimal discount; ///< k_yhje, granted on settlement; for information
    QString kindCode; ///< k_djlx
    QString kindText; ///< k_djtxt
    QString note;
    QString clerkNo;
    QString operatorName;
    qint64 flag = 0;
};

/// Appends the row and brings the partner's balances up to date from its date on.
void addPartnerEntry(Database &db, const PartnerEntry &entry);

/// The stored balance of the last row up to a date, of rows before an id when one is given; 0
/// without any.
[[nodiscard]] Decimal BalanceBefore(Database &db, const Partner &partner, const QString &date,
                                    std::optional<qint64> beforeId = {});
/// What the partner owes, or is owed, now; rounded to two decimals for the eye, the stored one is
/// not.
[[nodiscard]] Decimal CurrentBalance(Database &db, const Partner &partner);
/// Rebuilds the running balances of all rows from this day on, in order of date and entry, and
/// stores the last one in the partner's own row. Nothing is rounded.
void RecomputePartnerBalance(Database &db, const Partner &partner, const QString &fromDate);

/// Deletes the rows that a document caused, or is linked to, and recomputes every partner that lost
/// one.
void removePartnerEntries(Database &db, const QString &number);

} // namespace jxc
