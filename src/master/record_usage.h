#pragma once

namespace jxc {

class Database;
struct MasterKind;
class Record;

/// Whether the books speak of a row: its code stands in a column of that name of any table but its
/// own, its satellites and the work tables, or in one that the kind names; or its name stands in a
/// table that holds the name itself.
[[nodiscard]] bool isUsed(Database &db, const MasterKind &kind, const Record &record);

/// Deletes what goes along with a row that is not in use.
void deleteSatellites(Database &db, const MasterKind &kind, const Record &record);

} // namespace jxc
