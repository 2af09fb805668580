#pragma once

#include <QString>
#include <array>
#include <cstdlib>

namespace jxc::test {

using Fen = long long; ///< hundredths of a yuan

/// A receipt as the reference sees it; amounts of returns are positive here.
struct ReferenceReceipt {
    bool isReturn = false;
    int day = 0; ///< of March 2026
    Fen due = 0, fromCard = 0;
    Fen ordinary = 0; ///< of the lines at ordinary prices
    bool hasOrdinary = false;
    long long points = 0; ///< as booked: negative on a return
    Fen rebate = 0;
};

/// The rules of points, written down a second time in whole numbers, sharing nothing with the
/// program.
struct ReferenceRules {
    bool cardEarns = true, carries = false, specialsEarn = true;
    Fen perPoint = 0;                         ///< 0: none
    int birthdayTimes = 0, birthdayDays = -1; ///< -1: that day alone
    int promotionTimes = 0, promotionFrom = 0, promotionTo = 0;
    Fen every = 0, gives = 0; ///< of the member's offer
    int born = 0;             ///< day of March
    bool follows = true;      ///< the level follows the points
};

struct ReferenceMember {
    long long points = 0, all = 0, visits = 0;
    Fen spent = 0, value = 0;
    long long remainder = 0; ///< yuan
    int level = 1;

    void post(const ReferenceRules &r, ReferenceReceipt &x);
    void undo(const ReferenceRules &r, const ReferenceReceipt &x);
    void recharge(const ReferenceRules &r, Fen amount);
    void correct(long long change);
    /// As MemberShop::now() shows it.
    [[nodiscard]] QString text() const;

private:
    void settle(const ReferenceRules &r);
    /// 0 when no level holds these points.
    static int levelOf(long long points) {
        return points < 0 || points > 299 ? 0 : static_cast<int>(points / 100) + 1;
    }
};

} // namespace jxc::test
