#pragma once

#include "db/engine.h"
#include "db/executor.h"
#include "db/location.h"
#include "db/value.h"

#include <QSqlError>
#include <QStringList>
#include <memory>

class QSqlDatabase;

namespace jxc {

class Database;
struct Column;

/// What the engines do differently, one small class per engine; no other file asks which one it is.
class Dialect {
public:
    virtual ~Dialect() = default;
    static std::unique_ptr<Dialect> create(Engine engine);

    [[nodiscard]] virtual Engine engine() const = 0;
    [[nodiscard]] virtual QString driverName() const = 0;

    /// Sets address and options of a connection that is not open yet.
    virtual void configure(QSqlDatabase &connection, const Location &location) const = 0;
    /// Sets what every connection needs and reads it back. What the user should know about the
    /// place is appended to `warnings`.
    virtual void prepare(Database &db, QStringList &warnings) const = 0;

    /// What runs the statements of an open connection.
    [[nodiscard]] virtual std::unique_ptr<Executor>
    createExecutor(const QSqlDatabase &connection, Executor::Failure failure) const = 0;

    /// Begins a transaction that holds the account set's write lock from its first statement.
    virtual void beginWriting(Database &db) const = 0;

    /// Begins a transaction that only reads, and always the same state.
    virtual void beginReading(Database &db) const = 0;

    /// Commits the open transaction.
    virtual void commit(Database &db) const = 0;

    /// Throws the error of ours that stands for the driver's.
    [[noreturn]] virtual void raise(const QSqlError &error, const QString &statement) const = 0;

    /// SQL for the exact sum of a numeric column over a group, and of the products of two. The
    /// embedded engine's own sum adds doubles.
    [[nodiscard]] virtual QString exactSum(const QString &column) const = 0;
    [[nodiscard]] virtual QString exactSumOfProducts(const QString &a, const QString &b) const = 0;

    /// Inserts rows in order, answers their ids in that order.
    virtual std::vector<qint64> insertRows(Database &db, const QString &table,
                                           const QStringList &columns,
                                           const std::vector<Values> &rows) const = 0;
    /// Updates the given columns of rows named by id. Rows: id first, then the values.
    virtual void updateById(Database &db, const QString &table, const QStringList &columns,
                            const std::vector<Values> &rows) const = 0;

    /// The largest id that the table ever gave out, also to rows that are gone; 0 for none.
    [[nodiscard]] virtual qint64 lastId(Database &db, const QString &table) const = 0;
    /// New rows get ids above this one.
    virtual void setLastId(Database &db, const QString &table, qint64 id) const = 0;

    /// Writes the account set at the location, complete and as of one moment while others go on
    /// working in it, into a new file of the embedded engine.
    virtual void copyToFile(const Location &from, const QString &file) const = 0;
    /// Puts the content of such a file, of the current layout, in place of the open account set,
    /// wholly or not at all. What is replaced is first written to `keepAs`; nothing that others
    /// commit is missing there. No transaction may be open.
    virtual void replaceFromFile(Database &db, const QString &file,
                                 const QString &keepAs) const = 0;

    /// Names of the tables of the account set.
    [[nodiscard]] virtual QStringList tableNames(Database &db) const = 0;
    /// Names of a table's columns; empty when there is no such table.
    [[nodiscard]] virtual QStringList columnNames(Database &db, const QString &table) const = 0;

    /// Makes an existing column a text at least as wide as described; one that is wide enough stays
    /// as it is.
    virtual void widenText(Database &db, const QString &table, const Column &column) const = 0;
};

} // namespace jxc
