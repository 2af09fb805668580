#include "db/old_release.h"

#include "db/ddl.h"
#include "db/transaction.h"
#include "db/upgrade_steps.h"

#include <algorithm>
#include <map>

namespace jxc::test {

namespace {

/// Makes the table anew with fewer columns; dropping them one by one takes seconds.
void dropColumns(Database &db, const Table &table, const QStringList &dropped) {
    Table narrow = table;
    const auto gone = std::remove_if(narrow.columns.begin(), narrow.columns.end(),
                                     [&](const Column &c) { return dropped.contains(c.name); });
    narrow.columns.erase(gone, narrow.columns.end());
    QStringList kept;
    for (const Column &c : narrow.columns)
        kept << c.name;
    const QString columns = kept.join(u',');
    db.execute(
        QStringLiteral("create table kept as select id,%1 from %2").arg(columns, table.name));
    db.execute(QStringLiteral("drop table ") + table.name);
    db.execute(createTableSql(narrow, db.engine()));
    db.execute(QStringLiteral("insert into %2 (%1) select %1 from kept order by id")
                   .arg(columns, table.name));
    db.execute(QStringLiteral("drop table kept"));
}

} // namespace

void makeOldRelease(Database &db) {
    std::map<QString, QStringList> added;
    for (const UpgradeStep &step : upgradeSteps())
        for (const auto &addition : step.additions)
            for (const AddedColumn &one : addition.columns)
                added[addition.table] << one.column.name;

    Transaction transaction(db);
    for (const Table &t : schema().tables())
        for (const Index &index : t.indexes)
            db.execute(QStringLiteral("drop index ") + index.name);
    for (const auto &[name, columns] : added)
        dropColumns(db, table(name), columns);
    db.execute(QStringLiteral("update jxc_xtcs set cs_employdate=''"));
    transaction.commit();
}

} // namespace jxc::test
