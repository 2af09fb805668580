#include "db/schema.h"

#include "db/schema_reader.h"

#include <algorithm>
#include <stdexcept>

namespace jxc {

const Column *Table::column(QStringView columnName) const {
    const auto found = std::find_if(columns.begin(), columns.end(),
                                    [&](const Column &c) { return c.name == columnName; });
    return found == columns.end() ? nullptr : &*found;
}

Schema::Schema()
    : m_tables(readTables()) {
    for (const Table &table : m_tables)
        m_byName.insert(table.name, &table);
}

const Table *Schema::find(QStringView tableName) const {
    return m_byName.value(tableName);
}

const Schema &schema() {
    static const Schema instance;
    return instance;
}

const QStringList &identifyingTables() {
    static const QStringList tables = {QStringLiteral("jxc_goods"), QStringLiteral("jxc_xtcs"),
                                       QStringLiteral("jxc_admin"),
                                       QStringLiteral("jxc_goodslist")};
    return tables;
}

const Table &table(QStringView tableName) {
    const Table *found = schema().find(tableName);
    if (found == nullptr)
        throw std::logic_error("no such table: " + tableName.toString().toStdString());
    return *found;
}

const Column *column(QStringView tableName, QStringView columnName) {
    return table(tableName).column(columnName);
}

} // namespace jxc
