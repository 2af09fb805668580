#pragma once

#include "db/database.h"
#include "db/upgrade_steps.h"

#include <QSet>

namespace jxc {

/// The tables of an open account set as they are, and their changes towards the layout that the
/// schema describes. Nothing here drops a column or a row.
class Layout {
public:
    explicit Layout(Database &db)
        : m_db(db) {}

    [[nodiscard]] bool has(const QString &table, const QString &column);
    /// Whether the column was missing and has been added by this object.
    [[nodiscard]] bool wasAdded(const QString &table, const QString &column) const {
        return m_added.contains(table + u'.' + column);
    }
    /// Inserts rows of which no column stays null: what is not assigned is 0 or empty.
    void insertWhole(const QString &table, const std::vector<Assignments> &rows);

    /// Creates the tables that are missing, with their starting rows.
    void createMissingTables(QDate today);
    /// Adds those of the columns that are missing and fills the rows; none is left null.
    void add(const QString &table, const std::vector<AddedColumn> &columns);
    void addMissingIndexes();

private:
    const QSet<QString> &columns(const QString &table);

    Database &m_db;
    QHash<QString, QSet<QString>> m_columns;
    QSet<QString> m_added; ///< "table.column"
};

} // namespace jxc
