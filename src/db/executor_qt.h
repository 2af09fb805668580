#pragma once

#include "db/executor.h"

#include <QHash>
#include <QSqlDatabase>
#include <memory>

class QSqlQuery;

namespace jxc {

/// Statements through Qt's driver, figures as text, which a server takes exactly.
class QtExecutor : public Executor {
public:
    QtExecutor(const QSqlDatabase &connection, Failure failure);
    StatementResult run(const QString &sql, const Values &values) override;
    void forget() override { m_statements.clear(); }

private:
    struct Statement;
    Statement &prepared(const QString &sql);

    QSqlDatabase m_connection;
    Failure m_failure;
    QHash<QString, std::shared_ptr<Statement>> m_statements;
};

} // namespace jxc
