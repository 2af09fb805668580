#include "db/layout.h"

#include "db/creation.h"
#include "db/ddl.h"

#include <stdexcept>

namespace jxc {

const QSet<QString> &Layout::columns(const QString &table) {
    auto found = m_columns.find(table);
    if (found == m_columns.end()) {
        const QStringList names = m_db.columnNames(table);
        found = m_columns.insert(table, QSet<QString>(names.begin(), names.end()));
    }
    return *found;
}

bool Layout::has(const QString &table, const QString &column) {
    return columns(table).contains(column);
}

void Layout::insertWhole(const QString &tableName, const std::vector<Assignments> &rows) {
    QStringList names;
    Values nothing;
    for (const Column &column : table(tableName).columns) {
        if (!has(tableName, column.name))
            continue;
        names << column.name;
        nothing.push_back(column.isText() ? Value(u"") : Value(0));
    }
    std::vector<Values> whole;
    whole.reserve(rows.size());
    for (const Assignments &assignments : rows) {
        Values &values = whole.emplace_back(nothing);
        for (const Assignment &a : assignments) {
            const auto position = names.indexOf(a.column);
            if (position < 0)
                throw std::logic_error("no such column: " + a.column.toStdString());
            values[static_cast<size_t>(position)] = a.value;
        }
    }
    m_db.insertRows(tableName, names, whole);
}

void Layout::createMissingTables(QDate today) {
    const QStringList existing = m_db.tableNames();
    for (const Table &table : schema().tables())
        if (!existing.contains(table.name))
            createTable(m_db, table.name, today);
}

void Layout::add(const QString &table, const std::vector<AddedColumn> &additions) {
    QStringList settings;
    for (const AddedColumn &addition : additions) {
        const Column &column = addition.column;
        if (has(table, column.name))
            continue;
        m_db.execute(addColumnSql(table, column, m_db.engine()));
        m_columns[table].insert(column.name);
        m_added.insert(table + u'.' + column.name);
        const QString nothing = column.isText() ? QStringLiteral("''") : QStringLiteral("0");
        settings << column.name + u'=' + (addition.fill.isEmpty() ? nothing : addition.fill);
    }
    if (!settings.isEmpty())
        m_db.execute(QStringLiteral("update %1 set %2").arg(table, settings.join(u',')));
}

void Layout::addMissingIndexes() {
    for (const Table &table : schema().tables())
        for (const Index &index : table.indexes)
            m_db.execute(addIndexSql(table, index));
}

} // namespace jxc
