#include "db/upgrade.h"

#include "db/layout.h"
#include "db/transaction.h"
#include "db/upgrade_conversions.h"
#include "db/upgrade_steps.h"

#include <algorithm>

namespace jxc {

namespace {

const QString parameterTable = QStringLiteral("jxc_xtcs");
const QString versionColumn = QStringLiteral("cs_employdate");

/// The release that made or last upgraded the set; empty for the oldest ones.
QString readVersion(Database &db) {
    const auto row = db.row(QStringLiteral("select cs_employdate from jxc_xtcs order by id"));
    // Without a date every step would run at every start, over documents of today.
    if (!row)
        throw DatabaseError(
            QStringLiteral("系统参数表没有数据，不能判断数据库的版本，请用备份恢复！"), {}, {});
    return row->text(size_t{0});
}

/// "table.column" of every column that some step adds.
QSet<QString> columnsOfSteps() {
    QSet<QString> names;
    for (const UpgradeStep &step : upgradeSteps())
        for (const UpgradeStep::Addition &addition : step.additions)
            for (const AddedColumn &added : addition.columns)
                names.insert(addition.table + u'.' + added.column.name);
    return names;
}

class Upgrade {
public:
    Upgrade(Database &db, QDate today, const UpgradeHooks &hooks)
        : m_db(db)
        , m_today(today)
        , m_hooks(hooks)
        , m_layout(db) {}

    QStringList run() {
        m_layout.createMissingTables(m_today);
        // The steps build on the columns that every release had.
        addMissingColumns(columnsOfSteps());
        runSteps();
        addMissingColumns({});
        m_layout.addMissingIndexes();
        return m_ran;
    }

private:
    void addMissingColumns(const QSet<QString> &except) {
        for (const Table &table : schema().tables()) {
            std::vector<AddedColumn> wanted;
            for (const Column &column : table.columns)
                if (!except.contains(table.name + u'.' + column.name))
                    wanted.push_back({column, {}});
            m_layout.add(table.name, wanted);
        }
    }

    void runSteps() {
        QString version;
        const auto &steps = upgradeSteps();
        for (size_t i = 0; i < steps.size(); ++i) {
            // The date is read before each of the first three steps and not again, deliberately:
            // one step stands after a newer one, and runs with it.
            if (i < 3)
                version = readVersion(m_db);
            if (version < steps[i].date)
                runStep(steps[i]);
        }
    }

    void runStep(const UpgradeStep &step) {
        m_db.execute(QStringLiteral("update jxc_xtcs set cs_employdate=?"), {step.date});
        for (const UpgradeStep::Addition &addition : step.additions)
            m_layout.add(addition.table, addition.columns);
        for (const UpgradeStep::Widening &widening : step.widenings)
            m_db.dialect().widenText(m_db, widening.table, *widening.column);
        convertRows(step.date, {m_db, m_layout, m_hooks, m_today});
        m_ran << step.date;
    }

    Database &m_db;
    QDate m_today;
    const UpgradeHooks &m_hooks;
    Layout m_layout;
    QStringList m_ran;
};

} // namespace

bool needsUpgrade(Database &db) {
    const QStringList existing = db.tableNames();
    for (const Table &table : schema().tables())
        if (!existing.contains(table.name))
            return true;
    if (!db.columnNames(parameterTable).contains(versionColumn))
        return true;
    const QString version = readVersion(db);
    const auto &steps = upgradeSteps();
    return std::any_of(steps.begin(), steps.end(),
                       [&](const UpgradeStep &step) { return version < step.date; });
}

QStringList upgradeDatabase(Database &db, QDate today, const UpgradeHooks &hooks) {
    // A current set is the rule; it must not wait for the write lock of another workstation.
    if (!needsUpgrade(db))
        return {};
    Transaction transaction(db);
    QStringList ran = Upgrade(db, today, hooks).run();
    transaction.commit();
    return ran;
}

} // namespace jxc
