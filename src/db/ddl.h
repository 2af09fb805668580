#pragma once

#include "db/engine.h"
#include "db/schema.h"

#include <QStringList>

namespace jxc {

/// The column's type as the engine declares it. Texts compare byte by byte on both engines, so that
/// orders, ranges and prefixes mean the same.
QString columnTypeSql(const Column &column, Engine engine);

/// The statement that creates the table, without its indexes. Every column may be null but `id`,
/// which the engine fills and never uses again.
QString createTableSql(const Table &table, Engine engine);

/// The statement that adds the column to an existing table; its rows hold null there.
QString addColumnSql(const QString &table, const Column &column, Engine engine);

/// Creates the index unless there is one of its name.
QString addIndexSql(const Table &table, const Index &index);

QString createIndexSql(const Table &table, const Index &index);

/// The table and its indexes, one statement each.
QStringList createStatements(const Table &table, Engine engine);

} // namespace jxc
