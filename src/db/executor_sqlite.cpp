#include "db/executor_sqlite.h"

#include <sqlite3.h>

namespace jxc {

struct SqliteExecutor::Statement {
    Statement() = default;
    ~Statement() { sqlite3_finalize(handle); }
    Statement(const Statement &) = delete;
    Statement &operator=(const Statement &) = delete;

    sqlite3_stmt *handle = nullptr;
    std::shared_ptr<const Columns> columns;
};

namespace {

/// The largest whole number of which a double holds every smaller one too.
constexpr qint64 exactInDouble = qint64{1} << 53;

void bindFigure(sqlite3_stmt *statement, int place, Decimal figure) {
    if (figure.isWhole() && figure.abs() < Decimal::fromInteger(exactInDouble))
        sqlite3_bind_int64(statement, place, static_cast<qint64>(figure.micros() / 1'000'000));
    else
        sqlite3_bind_double(statement, place, figure.toDouble());
}

void bind(sqlite3_stmt *statement, int place, const Value &value) {
    if (const QString *text = value.text()) {
        const QByteArray bytes = text->toUtf8();
        sqlite3_bind_text(statement, place, bytes.constData(), static_cast<int>(bytes.size()),
                          SQLITE_TRANSIENT);
    } else if (const qint64 *number = value.number()) {
        sqlite3_bind_int64(statement, place, *number);
    } else if (const Decimal *figure = value.figure()) {
        bindFigure(statement, place, *figure);
    } else {
        sqlite3_bind_null(statement, place);
    }
}

Cell readCell(sqlite3_stmt *statement, int column) {
    switch (sqlite3_column_type(statement, column)) {
    case SQLITE_INTEGER:
        return qint64{sqlite3_column_int64(statement, column)};
    case SQLITE_FLOAT:
        return sqlite3_column_double(statement, column);
    case SQLITE_NULL:
        return {};
    default: {
        const auto *text = reinterpret_cast<const char *>(sqlite3_column_text(statement, column));
        return QString::fromUtf8(text, sqlite3_column_bytes(statement, column));
    }
    }
}

std::shared_ptr<const Columns> columnsOf(sqlite3_stmt *statement) {
    std::vector<QString> names;
    names.reserve(static_cast<size_t>(sqlite3_column_count(statement)));
    for (int i = 0; i < sqlite3_column_count(statement); ++i)
        names.push_back(QString::fromUtf8(sqlite3_column_name(statement, i)));
    return std::make_shared<const Columns>(std::move(names));
}

} // namespace

SqliteExecutor::SqliteExecutor(sqlite3 *engine, Failure failure)
    : m_engine(engine)
    , m_failure(std::move(failure)) {
    sqlite3_extended_result_codes(engine, 1);
}

SqliteExecutor::~SqliteExecutor() = default;

void SqliteExecutor::forget() {
    m_statements.clear();
}

void SqliteExecutor::fail(const QString &sql) {
    m_failure(QSqlError(QString::fromUtf8(sqlite3_errmsg(m_engine)), {}, QSqlError::StatementError,
                        QString::number(sqlite3_extended_errcode(m_engine))),
              sql);
    Q_UNREACHABLE();
}

SqliteExecutor::Statement &SqliteExecutor::prepared(const QString &sql) {
    auto &statement = m_statements[sql];
    if (!statement) {
        auto fresh = std::make_shared<Statement>();
        if (sqlite3_prepare_v3(m_engine, sql.toUtf8().constData(), -1, SQLITE_PREPARE_PERSISTENT,
                               &fresh->handle, nullptr) != SQLITE_OK) {
            m_statements.remove(sql);
            fail(sql);
        }
        statement = std::move(fresh);
    }
    return *statement;
}

StatementResult SqliteExecutor::run(const QString &sql, const Values &values) {
    Statement &statement = prepared(sql);
    if (sqlite3_bind_parameter_count(statement.handle) != static_cast<int>(values.size()))
        throw std::logic_error("values do not match the statement: " + sql.toStdString());
    for (size_t i = 0; i < values.size(); ++i)
        bind(statement.handle, static_cast<int>(i) + 1, values[i]);

    StatementResult result;
    int state = SQLITE_ROW;
    while ((state = sqlite3_step(statement.handle)) == SQLITE_ROW) {
        const int count = sqlite3_column_count(statement.handle);
        // Another workstation may have added a column since the statement was prepared.
        if (!statement.columns || statement.columns->names().size() != static_cast<size_t>(count))
            statement.columns = columnsOf(statement.handle);
        std::vector<Cell> cells;
        cells.reserve(static_cast<size_t>(count));
        for (int i = 0; i < count; ++i)
            cells.push_back(readCell(statement.handle, i));
        result.rows.emplace_back(statement.columns, std::move(cells));
    }
    if (state != SQLITE_DONE) {
        try {
            fail(sql);
        } catch (...) {
            sqlite3_reset(statement.handle);
            throw;
        }
    }
    sqlite3_reset(statement.handle);
    result.changed = sqlite3_changes(m_engine);
    result.insertedId = sqlite3_last_insert_rowid(m_engine);
    return result;
}

} // namespace jxc
