#include "retail/member_reference.h"

#include <algorithm>

namespace jxc::test {

namespace {

QString yuan(Fen amount) {
    QString text = QString::number(std::llabs(amount) / 100);
    if (const Fen rest = std::llabs(amount) % 100; rest != 0) {
        text += u'.' + QString::number(rest).rightJustified(2, u'0');
        if (text.endsWith(u'0'))
            text.chop(1);
    }
    return amount < 0 ? u'-' + text : text;
}

} // namespace

void ReferenceMember::post(const ReferenceRules &r, ReferenceReceipt &x) {
    const int sign = x.isReturn ? -1 : 1;
    Fen base = x.due;
    long long earned = 0;
    bool isBirthday = false;
    if (r.perPoint != 0) {
        if (!r.cardEarns)
            base -= x.fromCard;
        if (!r.specialsEarn)
            base = !x.hasOrdinary ? 0 : x.ordinary != 0 ? std::min(base, x.ordinary) : base;
        if (!x.isReturn && r.carries)
            base += remainder * 100;
        base -= base % 100;
        if (base == 0) {
            if (x.fromCard != 0) {
                visits += sign;
                spent += sign * x.fromCard;
                value -= x.isReturn ? 0 : x.fromCard;
            }
            value += x.isReturn ? x.fromCard : 0;
            return;
        }
        earned = x.isReturn ? (2 * base + r.perPoint) / (2 * r.perPoint) : base / r.perPoint;
        const int apart = std::abs(x.day - r.born);
        isBirthday =
            r.birthdayTimes != 0 && (r.birthdayDays < 0 ? apart == 0 : apart <= r.birthdayDays);
        if (isBirthday)
            earned *= r.birthdayTimes;
    }
    const Fen rebate = r.every != 0 && r.gives != 0 ? base / r.every * r.gives : 0;
    if (r.promotionTimes != 0 && !isBirthday && r.promotionFrom <= x.day && x.day <= r.promotionTo)
        earned *= r.promotionTimes;
    x.points = sign * earned;
    x.rebate = sign * rebate;
    points += x.points;
    all += x.points;
    if (r.follows && levelOf(all) != 0)
        level = levelOf(all);
    spent += sign * x.due;
    visits += sign;
    value += x.rebate - sign * x.fromCard;
    settle(r);
}

void ReferenceMember::undo(const ReferenceRules &r, const ReferenceReceipt &x) {
    const int sign = x.isReturn ? -1 : 1;
    points -= x.points;
    all -= x.points;
    spent -= sign * x.due;
    visits -= sign;
    value += sign * x.fromCard - x.rebate;
    if (all != 0)
        level = std::max(levelOf(all), 1);
    settle(r);
}

void ReferenceMember::recharge(const ReferenceRules &r, Fen amount) {
    value += amount;
    if (!r.cardEarns && r.perPoint != 0) {
        points += amount / r.perPoint;
        all += amount / r.perPoint;
    }
    if (r.follows)
        level = std::max(levelOf(all), 1);
}

void ReferenceMember::correct(long long change) {
    points += change;
    all += change;
    level = std::max(levelOf(all), 1);
}

void ReferenceMember::settle(const ReferenceRules &r) {
    if (r.carries && r.perPoint != 0)
        remainder = spent / 100 % (r.perPoint / 100);
}

QString ReferenceMember::text() const {
    return QStringLiteral("%1 %2 %3 %4 %5 %6 10000%7")
        .arg(points)
        .arg(all)
        .arg(yuan(spent))
        .arg(visits)
        .arg(yuan(value))
        .arg(remainder)
        .arg(level);
}

} // namespace jxc::test
