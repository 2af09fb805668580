#pragma once

#include <QString>

namespace jxc {

class Database;

/// The next number of a member's card: six digits from "100001"; numbers of any other form do not
/// count.
[[nodiscard]] QString NextMemberNumber(Database &db);

} // namespace jxc
