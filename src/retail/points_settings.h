#pragma once

#include "base/decimal.h"
#include "core/action.h"

#include <QString>

namespace jxc {

class Database;
class Session;

/// When members get a discount of their own (jf_hyr).
enum class MemberDay { none, weekly, monthly, period };

/// How members earn points: the one row of jxc_jfsz, and the system parameter that says whether
/// goods at a special price count.
struct PointsSettings {
    bool storedValueEarns = true;  ///< jf_jfgz 1; with 0 points come when money goes onto the card
    Decimal amountPerPoint;        ///< jf_mfje; 0: no points at all
    bool carriesRemainder = false; ///< jf_yelj
    int birthdayFactor = 0;        ///< jf_srjfbs; 0: none
    bool birthdayWindow = false;   ///< jf_srjflx: some days around the birthday, not only that day
    int birthdayDays = 0;          ///< jf_srjfts: on either side
    int promotionFactor = 0;       ///< jf_dbjf; 0: none
    QString promotionFrom, promotionTo; ///< "yyyy-MM-dd", both included
    bool specialPricesEarn = true;      ///< cs_tjcyjf; kept with the system parameters
    MemberDay memberDay = MemberDay::none;
    QString memberDayFrom, memberDayTo; ///< weekdays 1 (Monday) to 7, or days of the month
    QString periodFrom, periodTo;       ///< "yyyy-MM-dd" of MemberDay::period
    Decimal memberDayDiscount;          ///< jf_hyrzk, a factor; 0 or 1: none

    static PointsSettings load(Database &db);

    /// Whether points are earned at all.
    [[nodiscard]] bool earnsPoints() const { return !amountPerPoint.isZero(); }
    /// The factor on members' prices of a day ("yyyy-MM-dd"); 1 when it is no members' day.
    [[nodiscard]] Decimal discountOn(QStringView day) const;
};

/// Keeps the settings, but for `specialPricesEarn`, after checking them: figures are not negative,
/// dates are dates, a range ends after it begins. Refused, `field` names the column at fault.
Outcome savePointsSettings(Session &session, Prompter &prompter, const PointsSettings &settings,
                           QString *field = nullptr);

} // namespace jxc
