#include "retail/counter_members.h"

namespace jxc {

std::optional<CounterMember> CounterMembers::find(Session &, const QString &) const {
    return std::nullopt;
}

bool CounterMembers::isPassword(Session &, const CounterMember &, const QString &) const {
    return false;
}

void CounterMembers::returnWritten(Session &, const QString &) const {}

const CounterMembers &noCounterMembers() {
    static const CounterMembers none;
    return none;
}

} // namespace jxc
