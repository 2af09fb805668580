#pragma once

#include "model/reference.h"

namespace jxc {
class Database;
}

namespace jxc::test {

/// Takes over every table that the books touch as the account set holds it now.
void loadTables(Database &db, ReferenceBooks &books);

/// Holds every figure of the account set against the books; says the first difference, with both
/// rows, or nothing. Rows are told apart by their order, or by their key where the order in which
/// they are made is free.
[[nodiscard]] QString firstDifference(Database &db, ReferenceBooks &books);

} // namespace jxc::test
