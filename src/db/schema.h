#pragma once

#include <QHash>
#include <QString>
#include <QStringList>
#include <vector>

namespace jxc {

enum class ColumnType {
    VarChar,  ///< codes, dates, flags; at most `length` characters
    NVarChar, ///< names and free text; at most `length` characters
    Text,     ///< a memo of any length
    Numeric,  ///< money, price, quantity: a Decimal
    Int,
    Bit, ///< 0 or 1
};

struct Column {
    QString name;
    ColumnType type = ColumnType::Text;
    int length = 0;  ///< characters, of VarChar and NVarChar; 0 for the others
    QString caption; ///< the label that forms show; empty where the column has none

    [[nodiscard]] bool isText() const {
        return type == ColumnType::VarChar || type == ColumnType::NVarChar ||
               type == ColumnType::Text;
    }
};

/// An index for look-ups. None is unique: forms guard uniqueness, and old data may repeat.
struct Index {
    QString name;
    QStringList columns; ///< may name `id`
};

struct Table {
    QString name;
    QString caption;             ///< what its rows are, in Chinese
    std::vector<Column> columns; ///< in their declared order, without `id`, which every table has
    std::vector<Index> indexes;
    bool hasPrimaryKey = true; ///< false: `id` is filled, but may repeat
    bool isMasterData = false; ///< kept when the business data is cleared

    /// Null when the table has no such column; `id` is not among them.
    [[nodiscard]] const Column *column(QStringView columnName) const;
};

/// The one description of an account set: creation, upgrade, verification and copying between
/// engines derive from it. It stands as text in src/db/schema/: a "table NAME CAPTION" line, then
/// indented its columns ("name type caption") and indexes ("index column column"). Numeric stands
/// for numeric(28,6).
class Schema {
public:
    /// In the order in which a reset rebuilds them.
    [[nodiscard]] const std::vector<Table> &tables() const { return m_tables; }
    /// Null when there is no such table.
    [[nodiscard]] const Table *find(QStringView tableName) const;

private:
    friend const Schema &schema();
    Schema();

    std::vector<Table> m_tables;
    QHash<QStringView, const Table *> m_byName; ///< views into m_tables
};

/// Read once, at the first call. A mistake in the description is ours: the program stops and names
/// file and line.
const Schema &schema();

/// The tables that every layout of the program has had; a database without them is not ours.
const QStringList &identifyingTables();

/// Throws std::logic_error for a name that the schema does not know.
const Table &table(QStringView tableName);

/// Null when the table has no such column. Throws std::logic_error for an unknown table.
const Column *column(QStringView tableName, QStringView columnName);

} // namespace jxc
