#pragma once

#include "db/schema.h"

namespace jxc {

/// One line of a description text, without its comment; blank and comment lines are skipped.
struct SchemaLine {
    QString file;
    int number = 0;
    bool indented = false;
    QString text; ///< trimmed

    /// Stops the program: the description is part of it, so a mistake in it is a mistake in the
    /// code.
    [[noreturn]] void fail(const char *why) const;
};

/// The lines of a text below src/db/schema/.
std::vector<SchemaLine> readSchemaLines(const QString &fileName);

/// All tables of all files, in the order of creation.order.
std::vector<Table> readTables();

} // namespace jxc
