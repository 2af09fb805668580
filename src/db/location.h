#pragma once

#include "db/engine.h"

#include <QString>

namespace jxc {

/// Where an account set lives: a file of the embedded engine, or a database of a server.
struct Location {
    Engine engine = Engine::Sqlite;
    QString file; ///< embedded engine only
    QString host, databaseName, userName;
    QString password; ///< usually empty: PGPASSWORD or .pgpass hold it
    int port = 5432;

    /// A file path, or postgresql://[user@]host[:port]/database (postgres:// too). Throws
    /// DatabaseError with a clear text for a URL of another kind.
    static Location parse(const QString &pathOrUrl);
    static Location ofFile(const QString &path);

    /// For messages; never holds a password.
    [[nodiscard]] QString display() const;
};

} // namespace jxc
