#include "db/executor_qt.h"

#include <QSqlQuery>
#include <QSqlRecord>

namespace jxc {

struct QtExecutor::Statement {
    explicit Statement(const QSqlDatabase &connection)
        : query(connection) {}
    QSqlQuery query;
    std::shared_ptr<const Columns> columns;
};

namespace {

QVariant bindable(const Value &value) {
    // A null text would be stored as null; the books know empty texts only.
    if (const QString *text = value.text())
        return text->isNull() ? QStringLiteral("") : *text;
    if (const qint64 *number = value.number())
        return *number;
    if (const Decimal *figure = value.figure())
        return figure->toText();
    return {};
}

Cell cellOf(const QVariant &value) {
    if (value.isNull())
        return {};
    switch (value.typeId()) {
    case QMetaType::Double:
        return value.toDouble();
    case QMetaType::Int:
    case QMetaType::Short:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
        return value.toLongLong();
    case QMetaType::Bool:
        return qint64{value.toBool()};
    default:
        return value.toString();
    }
}

std::shared_ptr<const Columns> columnsOf(const QSqlQuery &query) {
    const QSqlRecord record = query.record();
    std::vector<QString> names;
    names.reserve(static_cast<size_t>(record.count()));
    for (int i = 0; i < record.count(); ++i)
        names.push_back(record.fieldName(i));
    return std::make_shared<const Columns>(std::move(names));
}

} // namespace

QtExecutor::QtExecutor(const QSqlDatabase &connection, Failure failure)
    : m_connection(connection)
    , m_failure(std::move(failure)) {}

QtExecutor::Statement &QtExecutor::prepared(const QString &sql) {
    auto &statement = m_statements[sql];
    if (!statement) {
        auto fresh = std::make_shared<Statement>(m_connection);
        fresh->query.setForwardOnly(true);
        if (!fresh->query.prepare(sql)) {
            m_statements.remove(sql);
            m_failure(fresh->query.lastError(), sql);
        }
        statement = std::move(fresh);
    }
    return *statement;
}

StatementResult QtExecutor::run(const QString &sql, const Values &values) {
    Statement &statement = prepared(sql);
    QSqlQuery &query = statement.query;
    for (size_t i = 0; i < values.size(); ++i)
        query.bindValue(static_cast<int>(i), bindable(values[i]));
    if (!query.exec()) {
        const QSqlError error = query.lastError();
        query.finish();
        m_failure(error, sql);
    }
    StatementResult result;
    if (query.isSelect()) {
        if (!statement.columns)
            statement.columns = columnsOf(query);
        const int count = static_cast<int>(statement.columns->names().size());
        while (query.next()) {
            std::vector<Cell> cells;
            cells.reserve(static_cast<size_t>(count));
            for (int i = 0; i < count; ++i)
                cells.push_back(cellOf(query.value(i)));
            result.rows.emplace_back(statement.columns, std::move(cells));
        }
    } else {
        result.changed = query.numRowsAffected();
    }
    const QSqlError error = query.lastError();
    query.finish();
    if (error.isValid())
        m_failure(error, sql);
    return result;
}

} // namespace jxc
