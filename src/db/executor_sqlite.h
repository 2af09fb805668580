#pragma once

#include "db/executor.h"

#include <QHash>
#include <memory>

struct sqlite3;
struct sqlite3_stmt;

namespace jxc {

/// Statements through the embedded engine's own interface, on the connection that Qt opened. A
/// document asks the engine hundreds of small things; through Qt's driver each costs as much again
/// as the engine itself.
class SqliteExecutor : public Executor {
public:
    SqliteExecutor(sqlite3 *engine, Failure failure);
    ~SqliteExecutor() override;
    SqliteExecutor(const SqliteExecutor &) = delete;
    SqliteExecutor &operator=(const SqliteExecutor &) = delete;

    StatementResult run(const QString &sql, const Values &values) override;
    void forget() override;

private:
    struct Statement;
    Statement &prepared(const QString &sql);
    [[noreturn]] void fail(const QString &sql);

    sqlite3 *m_engine;
    Failure m_failure;
    QHash<QString, std::shared_ptr<Statement>> m_statements;
};

} // namespace jxc
