#include "retail/counter_member.h"

#include "core/session.h"
#include "retail/member_card.h"
#include "retail/points_settings.h"

namespace jxc {

CounterMember counterMember(Session &session, const QString &key) {
    const Member member = loadMember(session.db(), key);
    memberUsable(session, member);
    CounterMember found{member.key,   member.number, member.name,   member.mobile,
                        member.level, member.value,  member.points, !member.password.isEmpty()};
    const Decimal factor = PointsSettings::load(session.db()).discountOn(session.today());
    if (factor != Decimal(1))
        found.dayFactor = factor;
    return found;
}

} // namespace jxc
