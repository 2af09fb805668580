#pragma once

#include "db/row.h"
#include "db/value.h"

#include <QSqlError>
#include <functional>

namespace jxc {

/// What a statement gave.
struct StatementResult {
    Rows rows;
    int changed = 0;
    qint64 insertedId = 0;
};

/// Runs statements on an open connection, prepared once each and kept. A result is read to its end
/// before it is handed over: an open read would hold up writers.
class Executor {
public:
    /// Told of a failure; does not return.
    using Failure = std::function<void(const QSqlError &, const QString &sql)>;

    virtual ~Executor() = default;
    virtual StatementResult run(const QString &sql, const Values &values) = 0;
    /// Forgets the prepared statements, whose layout may have changed.
    virtual void forget() = 0;
};

} // namespace jxc
