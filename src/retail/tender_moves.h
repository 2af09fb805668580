#pragma once

#include "money/cash_journal.h"

namespace jxc {

/// What was not paid in cash: each amount as it was tendered, negative when it is paid back.
struct OtherTenders {
    Decimal bankCard{}, storedValue{}, voucher{}, weChat{}, aliPay{};

    [[nodiscard]] Decimal sum() const { return bankCard + storedValue + voucher + weChat + aliPay; }
};

/// Moves what was not paid in cash out of the account that the whole payment was booked on, and
/// what came by card or wallet into the account that holds such money. Without such an account it
/// stays where it was booked. `entry` is the payment's own row; kind and amount of it do not count.
void moveTenders(Database &db, const CashEntry &entry, const OtherTenders &tenders);

} // namespace jxc
