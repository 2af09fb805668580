#pragma once

#include "base/decimal.h"
#include "db/row.h"

#include <QString>
#include <optional>

namespace jxc {

class Session;

/// Which members a list shows; what is empty narrows nothing.
struct MemberFilter {
    QString search{};         ///< part of card number, name, mnemonic code, telephones, papers
    QString level{}, offer{}; ///< hl_sn, hh_sn
    /// Figures from and to, both included.
    std::optional<Decimal> valueFrom{}, valueTo{}, pointsFrom{}, pointsTo{}, spentFrom{}, spentTo{};
    QString joinedFrom{}, joinedTo{}; ///< "yyyy-MM-dd", both included
    int birthMonth = 0;               ///< 1 to 12
    /// No purchase for so many days, and a member for at least as long.
    int idleDays = 0;

    /// Whether anything but the search narrows the list.
    [[nodiscard]] bool isActive() const;
    friend bool operator==(const MemberFilter &, const MemberFilter &) = default;
};

/// The members in the order of entry, read by one statement: id hy_sn, the columns of the members'
/// list by name, hy_sr, and "disabled" (always 0). `cardsOnly` leaves out the row for customers
/// without a card.
[[nodiscard]] Rows listMembers(const Session &session, const MemberFilter &filter,
                               bool cardsOnly = false);

/// The conditions in words ("卡内金额 100 以上"), without the search; empty when none is set.
[[nodiscard]] QStringList filterWords(const Session &session, const MemberFilter &filter);

} // namespace jxc
