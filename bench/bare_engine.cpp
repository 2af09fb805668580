#include "bare_engine.h"

#include <QHash>
#include <libpq-fe.h>
#include <sqlite3.h>

namespace jxc::bench {

namespace {

[[noreturn]] void stop(const char *what, const QString &sql) {
    qFatal("bare engine: %s in %s", what, qPrintable(sql));
}

class BareSqlite : public BareEngine {
public:
    explicit BareSqlite(const Location &location) {
        if (sqlite3_open(location.file.toUtf8().constData(), &m_db) != SQLITE_OK)
            stop("open", location.file);
        for (const char *pragma :
             {"pragma synchronous=full", "pragma cache_size=-32768", "pragma temp_store=memory"})
            sqlite3_exec(m_db, pragma, nullptr, nullptr, nullptr);
    }
    ~BareSqlite() override {
        for (sqlite3_stmt *statement : m_statements)
            sqlite3_finalize(statement);
        sqlite3_close(m_db);
    }

    void run(const Recorded &recorded) override {
        sqlite3_stmt *statement = prepared(recorded.sql);
        for (size_t i = 0; i < recorded.values.size(); ++i)
            bind(statement, static_cast<int>(i) + 1, recorded.values[i]);
        int state = SQLITE_ROW;
        while ((state = sqlite3_step(statement)) == SQLITE_ROW)
            readRow(statement);
        if (state != SQLITE_DONE)
            stop(sqlite3_errmsg(m_db), recorded.sql);
        sqlite3_reset(statement);
    }

private:
    sqlite3_stmt *prepared(const QString &sql) {
        sqlite3_stmt *&statement = m_statements[sql];
        if (statement == nullptr) {
            QString own = sql; // the engine's own sums
            own.replace(QLatin1String("exact_sum_of_products(kc_sl,kc_cbj)"),
                        QLatin1String("sum(kc_sl*kc_cbj)"))
                .replace(QLatin1String("exact_sum("), QLatin1String("sum("));
            if (sqlite3_prepare_v3(m_db, own.toUtf8().constData(), -1, SQLITE_PREPARE_PERSISTENT,
                                   &statement, nullptr) != SQLITE_OK)
                stop(sqlite3_errmsg(m_db), sql);
        }
        return statement;
    }

    static void bind(sqlite3_stmt *statement, int place, const Value &value) {
        if (const QString *text = value.text()) {
            const QByteArray bytes = text->toUtf8();
            sqlite3_bind_text(statement, place, bytes.constData(), static_cast<int>(bytes.size()),
                              SQLITE_TRANSIENT);
        } else if (const qint64 *number = value.number()) {
            sqlite3_bind_int64(statement, place, *number);
        } else if (const Decimal *figure = value.figure()) {
            if (figure->isWhole())
                sqlite3_bind_int64(statement, place,
                                   static_cast<qint64>(figure->micros() / 1'000'000));
            else
                sqlite3_bind_double(statement, place, figure->toDouble());
        } else {
            sqlite3_bind_null(statement, place);
        }
    }

    void readRow(sqlite3_stmt *statement) {
        for (int i = 0; i < sqlite3_column_count(statement); ++i) {
            switch (sqlite3_column_type(statement, i)) {
            case SQLITE_INTEGER:
                m_sink += sqlite3_column_int64(statement, i);
                break;
            case SQLITE_FLOAT:
                m_sink += static_cast<qint64>(sqlite3_column_double(statement, i));
                break;
            case SQLITE_TEXT:
                m_sink += *sqlite3_column_text(statement, i);
                break;
            default:
                break;
            }
        }
    }

    sqlite3 *m_db = nullptr;
    QHash<QString, sqlite3_stmt *> m_statements;
    qint64 m_sink = 0;
};

class BarePostgres : public BareEngine {
public:
    explicit BarePostgres(const Location &l)
        : m_db(PQsetdbLogin(l.host.toUtf8().constData(), QByteArray::number(l.port).constData(),
                            nullptr, nullptr, l.databaseName.toUtf8().constData(),
                            l.userName.toUtf8().constData(), nullptr)) {
        if (PQstatus(m_db) != CONNECTION_OK)
            stop(PQerrorMessage(m_db), l.display());
        PQclear(PQexec(m_db, "set jit=off"));
    }
    ~BarePostgres() override { PQfinish(m_db); }

    void run(const Recorded &recorded) override {
        if (recorded.values.empty() && !recorded.sql.startsWith(QLatin1String("select"))) {
            check(PQexec(m_db, recorded.sql.toUtf8().constData()), recorded.sql);
            return;
        }
        const QByteArray name = prepared(recorded.sql);
        std::vector<QByteArray> texts;
        for (const Value &value : recorded.values)
            texts.push_back(textOf(value));
        std::vector<const char *> pointers;
        for (const QByteArray &text : texts)
            pointers.push_back(text.constData());
        check(PQexecPrepared(m_db, name.constData(), static_cast<int>(pointers.size()),
                             pointers.data(), nullptr, nullptr, 0),
              recorded.sql);
    }

private:
    QByteArray prepared(const QString &sql) {
        QByteArray &name = m_names[sql];
        if (name.isEmpty()) {
            name = "s" + QByteArray::number(m_names.size());
            QString numbered;
            int place = 0;
            for (const QChar c : sql)
                if (c == u'?')
                    numbered += QStringLiteral("$%1").arg(++place);
                else
                    numbered += c;
            check(PQprepare(m_db, name.constData(), numbered.toUtf8().constData(), 0, nullptr),
                  sql);
        }
        return name;
    }

    static QByteArray textOf(const Value &value) {
        if (const QString *text = value.text())
            return text->toUtf8();
        if (const qint64 *number = value.number())
            return QByteArray::number(*number);
        if (const Decimal *figure = value.figure())
            return figure->toText().toUtf8();
        return {};
    }

    void check(PGresult *result, const QString &sql) {
        const ExecStatusType status = PQresultStatus(result);
        if (status != PGRES_COMMAND_OK && status != PGRES_TUPLES_OK)
            stop(PQerrorMessage(m_db), sql);
        for (int row = 0; row < PQntuples(result); ++row)
            for (int column = 0; column < PQnfields(result); ++column)
                m_sink += *PQgetvalue(result, row, column);
        PQclear(result);
    }

    PGconn *m_db;
    QHash<QString, QByteArray> m_names;
    qint64 m_sink = 0;
};

} // namespace

std::unique_ptr<BareEngine> BareEngine::open(const Location &location) {
    if (location.engine == Engine::Postgres)
        return std::make_unique<BarePostgres>(location);
    return std::make_unique<BareSqlite>(location);
}

} // namespace jxc::bench
