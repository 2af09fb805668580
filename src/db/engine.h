#pragma once

namespace jxc {

/// The database engines that an account set can live on.
enum class Engine { Sqlite, Postgres };

} // namespace jxc
