#include "db/creation.h"

#include "db/ddl.h"
#include "db/defaults.h"
#include "db/transaction.h"

namespace jxc {

namespace {

/// The text of a starting row as the column stores it.
Value storedValue(const Column &column, const QString &text) {
    if (column.isText())
        return text;
    if (column.type == ColumnType::Numeric)
        return Decimal::fromText(text);
    return text.toLongLong();
}

void insertDefaultRows(Database &db, const Table &table, QDate today) {
    QStringList columns;
    for (const Column &column : table.columns)
        columns << column.name;
    std::vector<Values> rows;
    for (const DefaultRow &texts : defaultRows(table, today)) {
        Values values;
        values.reserve(table.columns.size());
        for (const Column &column : table.columns)
            values.push_back(storedValue(column, texts[static_cast<qsizetype>(values.size())]));
        rows.push_back(std::move(values));
    }
    db.insertRows(table.name, columns, rows);
}

void recreate(Database &db, const Table &table, QDate today) {
    db.dropTableIfExists(table.name);
    for (const QString &statement : createStatements(table, db.engine()))
        db.execute(statement);
    insertDefaultRows(db, table, today);
}

} // namespace

void createTable(Database &db, QStringView name, QDate today) {
    Transaction transaction(db);
    recreate(db, table(name), today);
    transaction.commit();
}

void resetAllTables(Database &db, QDate today) {
    Transaction transaction(db);
    for (const Table &table : schema().tables())
        recreate(db, table, today);
    transaction.commit();
}

void resetBusinessTables(Database &db, QDate today) {
    Transaction transaction(db);
    db.execute(QStringLiteral("update jxc_goods set g_kc=0,ghs_sn='100001'"));
    for (const Table &table : schema().tables())
        if (!table.isMasterData)
            recreate(db, table, today);
    transaction.commit();
}

} // namespace jxc
