#pragma once

#include "db/dialect.h"
#include "db/errors.h"
#include "db/location.h"
#include "db/row.h"
#include "db/value.h"

#include <QSqlDatabase>
#include <QStringList>
#include <functional>
#include <memory>

namespace jxc {

/// The connection to one account set, and the only owner of a QSqlDatabase.
///
/// Values are bound, never written into a statement. Every statement is prepared once and kept.
/// Failures are DatabaseError and its kinds.
class Database {
public:
    enum class Opening {
        existing, ///< refuses what is no account set of ours, and changes nothing in it
        empty     ///< a place for a new account set: a file is made when missing
    };

    explicit Database(Location location, Opening opening = Opening::existing);
    ~Database();
    Database(const Database &) = delete;
    Database &operator=(const Database &) = delete;

    [[nodiscard]] const Location &location() const { return m_location; }
    [[nodiscard]] Engine engine() const { return m_dialect->engine(); }
    [[nodiscard]] const Dialect &dialect() const { return *m_dialect; }
    /// What the user should know about the place of the data, for example that a network drive
    /// does not keep it as safe as a server would.
    [[nodiscard]] const QStringList &warnings() const { return m_warnings; }

    /// The first field of the first row as text, empty when there is no row.
    QString scalar(const QString &sql, const Values &values = {});
    Rows rows(const QString &sql, const Values &values = {});
    std::optional<Row> row(const QString &sql, const Values &values = {});
    [[nodiscard]] bool exists(const QString &sql, const Values &values = {});
    /// Answers the number of rows changed.
    int execute(const QString &sql, const Values &values = {});

    /// Texts longer than their column are refused (TextTooLong) before they reach the engine.
    qint64 insertRow(const QString &table, const Assignments &assignments);
    std::vector<qint64> insertRows(const QString &table, const QStringList &columns,
                                   const std::vector<Values> &rows);
    int updateRows(const QString &table, const Assignments &assignments, const QString &where,
                   const Values &whereValues);
    /// One statement for many rows; each row is its id followed by the values of the columns.
    void updateById(const QString &table, const QStringList &columns,
                    const std::vector<Values> &rows);

    void dropTableIfExists(const QString &table);
    [[nodiscard]] QStringList tableNames() { return m_dialect->tableNames(*this); }
    [[nodiscard]] QStringList columnNames(const QString &table) {
        return m_dialect->columnNames(*this, table);
    }

    [[nodiscard]] bool inTransaction() const { return m_depth > 0; }

    /// Opens the connection anew after the server went away; does nothing while it is alive.
    void reconnectIfLost();

    /// Called with every statement and its values before it runs; what it throws the statement
    /// throws. Tests make the n-th statement fail with it, benchmarks replay what it saw.
    void setStatementObserver(std::function<void(const QString &, const Values &)> observer) {
        m_observer = std::move(observer);
    }

    /// The driver's own handle, for the room's calls of an engine's interface (backup, bulk copy).
    [[nodiscard]] QVariant driverHandle() const;

private:
    friend class Transaction;
    friend class ReadSnapshot;
    friend class SqliteDialect;
    friend class PostgresDialect;

    void open();
    void close();
    void refuseForeign();
    void makeExecutor();
    StatementResult run(const QString &sql, const Values &values);
    /// Runs text that cannot be prepared: pragmas, several statements in one.
    void runDirect(const QString &sql);
    void observe(const QString &sql, const Values &values = {}) {
        if (m_observer)
            m_observer(sql, values);
    }
    [[noreturn]] void fail(const QSqlError &error, const QString &sql);

    void begin();
    void beginReading();
    void commit();
    void rollback() noexcept;

    Location m_location;
    std::unique_ptr<Dialect> m_dialect;
    QString m_connectionName;
    QSqlDatabase m_connection;
    std::unique_ptr<Executor> m_executor;
    QStringList m_warnings;
    std::function<void(const QString &, const Values &)> m_observer;
    int m_depth = 0;
    bool m_doomed = false; ///< an inner part of the transaction failed: nothing may be committed
    bool m_lost = false;
};

} // namespace jxc
