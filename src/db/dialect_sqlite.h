#pragma once

#include "db/dialect.h"

namespace jxc {

class SqliteDialect : public Dialect {
public:
    [[nodiscard]] Engine engine() const override { return Engine::Sqlite; }
    [[nodiscard]] QString driverName() const override;
    void configure(QSqlDatabase &connection, const Location &location) const override;
    void prepare(Database &db, QStringList &warnings) const override;
    [[nodiscard]] std::unique_ptr<Executor>
    createExecutor(const QSqlDatabase &connection, Executor::Failure failure) const override;
    void beginWriting(Database &db) const override;
    void beginReading(Database &db) const override;
    void commit(Database &db) const override;
    [[noreturn]] void raise(const QSqlError &error, const QString &statement) const override;
    [[nodiscard]] QString exactSum(const QString &column) const override;
    [[nodiscard]] QString exactSumOfProducts(const QString &a, const QString &b) const override;
    std::vector<qint64> insertRows(Database &db, const QString &table, const QStringList &columns,
                                   const std::vector<Values> &rows) const override;
    void updateById(Database &db, const QString &table, const QStringList &columns,
                    const std::vector<Values> &rows) const override;
    [[nodiscard]] qint64 lastId(Database &db, const QString &table) const override;
    void setLastId(Database &db, const QString &table, qint64 id) const override;
    void copyToFile(const Location &from, const QString &file) const override;
    void replaceFromFile(Database &db, const QString &file, const QString &keepAs) const override;
    [[nodiscard]] QStringList tableNames(Database &db) const override;
    [[nodiscard]] QStringList columnNames(Database &db, const QString &table) const override;
    void widenText(Database &db, const QString &table, const Column &column) const override;
};

} // namespace jxc
