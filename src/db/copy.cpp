#include "db/copy.h"

#include "db/ddl.h"
#include "db/read_snapshot.h"
#include "db/schema.h"
#include "db/transaction.h"
#include "db/upgrade_steps.h"

#include <QSet>
#include <algorithm>
#include <limits>

namespace jxc {

namespace {

constexpr int rowsPerChunk = 2000;

/// Columns that an upgrade adds to a table though no layout has them: they are carried where they
/// are.
std::vector<Column> carriedColumns(const Table &table, const QSet<QString> &existing) {
    std::vector<Column> carried;
    for (const UpgradeStep &step : upgradeSteps())
        for (const UpgradeStep::Addition &addition : step.additions)
            for (const AddedColumn &added : addition.columns)
                if (addition.table == table.name && table.column(added.column.name) == nullptr &&
                    existing.contains(added.column.name))
                    carried.push_back(added.column);
    return carried;
}

/// The columns to copy, without id. Throws for a table of an older layout.
std::vector<Column> columnsOf(Database &db, const Table &table) {
    const QStringList names = db.columnNames(table.name);
    const QSet<QString> existing(names.begin(), names.end());
    for (const Column &column : table.columns)
        if (!existing.contains(column.name))
            throw DatabaseError(QStringLiteral("帐套的版本较旧，请先升级后再复制！"), table.name,
                                {});
    std::vector<Column> columns = table.columns;
    for (Column &column : carriedColumns(table, existing))
        columns.push_back(std::move(column));
    return columns;
}

Value valueOf(const Row &row, size_t index, const Column &column) {
    if (row.isNull(index))
        return {};
    if (column.isText())
        return row.text(index);
    if (column.type == ColumnType::Numeric)
        return row.decimal(index);
    return row.integer(index);
}

class TableCopy {
public:
    TableCopy(Database &from, Database &to, const Table &table)
        : m_from(from)
        , m_to(to)
        , m_table(table)
        , m_columns(columnsOf(from, table))
        , m_names{QStringLiteral("id")} {
        for (const Column &column : m_columns)
            m_names << column.name;
    }

    void run() {
        create();
        qint64 last = 0;
        if (m_table.hasPrimaryKey)
            last = copyInChunks();
        else
            last = copyWhole();
        m_to.dialect().setLastId(m_to, m_table.name,
                                 std::max(last, m_from.dialect().lastId(m_from, m_table.name)));
        for (const Index &index : m_table.indexes) // quicker than to keep them while rows come in
            m_to.execute(createIndexSql(m_table, index));
    }

private:
    void create() {
        m_to.execute(createTableSql(m_table, m_to.engine()));
        for (const Column &column : m_columns)
            if (m_table.column(column.name) == nullptr)
                m_to.execute(addColumnSql(m_table.name, column, m_to.engine()));
    }

    [[nodiscard]] QString select() const {
        return QStringLiteral("select %1 from %2").arg(m_names.join(u','), m_table.name);
    }

    [[nodiscard]] Values valuesOf(const Row &row, qint64 id) const {
        Values values;
        values.reserve(m_columns.size() + 1);
        values.emplace_back(id);
        for (size_t i = 0; i < m_columns.size(); ++i)
            values.push_back(valueOf(row, i + 1, m_columns[i]));
        return values;
    }

    /// Answers the largest id.
    qint64 copyInChunks() {
        const QString sql =
            select() + QStringLiteral(" where id>? order by id limit %1").arg(rowsPerChunk);
        qint64 last = std::numeric_limits<qint64>::min();
        for (;;) {
            const Rows rows = m_from.rows(sql, {last});
            if (rows.empty())
                return std::max<qint64>(last, 0);
            std::vector<Values> chunk;
            chunk.reserve(rows.size());
            for (const Row &row : rows) {
                last = row.integer(size_t{0});
                chunk.push_back(valuesOf(row, last));
            }
            m_to.insertRows(m_table.name, m_names, chunk);
        }
    }

    /// The two small tables without a key may repeat an id, which the embedded engine does not
    /// take: the later row gets a new one there.
    qint64 copyWhole() {
        const Rows rows = m_from.rows(select() + QStringLiteral(" order by id"));
        qint64 last = rows.empty() ? 0 : std::max<qint64>(rows.back().integer(size_t{0}), 0);
        QSet<qint64> taken;
        std::vector<Values> all;
        all.reserve(rows.size());
        for (const Row &row : rows) {
            qint64 id = row.integer(size_t{0});
            if (m_to.engine() == Engine::Sqlite && taken.contains(id))
                id = ++last;
            taken.insert(id);
            all.push_back(valuesOf(row, id));
        }
        m_to.insertRows(m_table.name, m_names, all);
        return last;
    }

    Database &m_from;
    Database &m_to;
    const Table &m_table;
    std::vector<Column> m_columns;
    QStringList m_names;
};

/// Says in which table a value stands that the target cannot hold.
void copyTable(Database &from, Database &to, const Table &table) {
    const auto refuse = [&](const QString &text) {
        throw DatabaseError(QStringLiteral("%1（%2）：%3").arg(table.caption, table.name, text),
                            table.name, {});
    };
    try {
        TableCopy(from, to, table).run();
    } catch (const TextTooLong &error) {
        refuse(error.userText());
    } catch (const NumberError &error) {
        refuse(QString::fromUtf8(error.what()));
    } catch (const RangeError &error) {
        refuse(QString::fromUtf8(error.what()));
    }
}

/// What is compared of a column: a whole number or an exact sum on either engine.
QString figureSql(const Database &db, const Column &column) {
    if (column.isText())
        return QStringLiteral("coalesce(sum(length(%1)),0)").arg(column.name);
    if (column.type == ColumnType::Numeric)
        return db.dialect().exactSum(column.name);
    return QStringLiteral("coalesce(sum(%1),0)").arg(column.name);
}

std::optional<Row> figures(Database &db, const Table &table, const std::vector<Column> &columns) {
    QStringList selected{QStringLiteral("count(*)")};
    for (const Column &column : columns)
        selected << figureSql(db, column);
    return db.row(QStringLiteral("select %1 from %2").arg(selected.join(u','), table.name));
}

QStringList compareTable(Database &from, Database &to, const Table &table) {
    std::vector<Column> columns = columnsOf(from, table);
    if (table.hasPrimaryKey)
        columns.push_back({QStringLiteral("id"), ColumnType::Int, 0, {}});
    const QStringList present = to.columnNames(table.name);
    for (const Column &column : columns)
        if (!present.contains(column.name))
            return {QStringLiteral("%1.%2：缺少").arg(table.name, column.name)};
    const auto left = figures(from, table, columns);
    const auto right = figures(to, table, columns);
    const auto line = [&](const QString &what, size_t index) {
        return QStringLiteral("%1：%2，%3")
            .arg(what, left->decimal(index).toText(), right->decimal(index).toText());
    };
    QStringList differences;
    if (left->integer(size_t{0}) != right->integer(size_t{0}))
        differences << line(table.name + QStringLiteral(" 记录数"), 0);
    for (size_t i = 0; i < columns.size(); ++i)
        if (left->decimal(i + 1) != right->decimal(i + 1))
            differences << line(table.name + u'.' + columns[i].name, i + 1);
    return differences;
}

} // namespace

bool holdsAccountSet(Database &db) {
    const QStringList names = db.tableNames();
    return std::ranges::any_of(names,
                               [](const QString &name) { return schema().find(name) != nullptr; });
}

void copyAccountSet(Database &from, Database &to, const CopyProgress &progress) {
    const ReadSnapshot snapshot(from);
    Transaction transaction(to);
    for (const QString &name : to.tableNames())
        if (schema().find(name) != nullptr)
            to.execute(QStringLiteral("drop table ") + name);
    const auto &tables = schema().tables();
    for (size_t i = 0; i < tables.size(); ++i) {
        if (progress)
            progress(static_cast<int>(i), static_cast<int>(tables.size()), tables[i].caption);
        copyTable(from, to, tables[i]);
    }
    transaction.commit();
}

QStringList compareAccountSets(Database &from, Database &to) {
    const ReadSnapshot leftSnapshot(from);
    const ReadSnapshot rightSnapshot(to);
    QStringList differences;
    for (const Table &table : schema().tables())
        differences << compareTable(from, to, table);
    return differences;
}

} // namespace jxc
