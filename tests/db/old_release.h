#pragma once

#include "db/database.h"

namespace jxc::test {

/// Turns a fresh account set into what the oldest release left: no column that a later one added,
/// no index, no version date.
void makeOldRelease(Database &db);

} // namespace jxc::test
