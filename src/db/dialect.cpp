#include "db/dialect.h"

#include "db/dialect_postgres.h"
#include "db/dialect_sqlite.h"

namespace jxc {

std::unique_ptr<Dialect> Dialect::create(Engine engine) {
    if (engine == Engine::Postgres)
        return std::make_unique<PostgresDialect>();
    return std::make_unique<SqliteDialect>();
}

} // namespace jxc
