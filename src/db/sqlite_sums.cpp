#include "db/sqlite_sums.h"

#include "base/decimal.h"
#include "db/database.h"

#include <new>
#include <sqlite3.h>

namespace jxc {

namespace {

Decimal argument(sqlite3_value *value) {
    switch (sqlite3_value_type(value)) {
    case SQLITE_NULL:
        return {};
    case SQLITE_INTEGER:
        return Decimal::fromInteger(sqlite3_value_int64(value));
    case SQLITE_FLOAT:
        return Decimal::fromDouble(sqlite3_value_double(value));
    default:
        return Decimal::fromText(
            QString::fromUtf8(reinterpret_cast<const char *>(sqlite3_value_text(value))));
    }
}

// The engine hands out zeroed memory per group; all-zero bits are a valid state of both sums.
template<class Sum>
Sum *stateOf(sqlite3_context *context) {
    return static_cast<Sum *>(sqlite3_aggregate_context(context, sizeof(Sum)));
}

template<class Add>
void guarded(sqlite3_context *context, Add &&add) {
    try {
        add();
    } catch (const std::exception &error) {
        sqlite3_result_error(context, error.what(), -1);
    }
}

void answer(sqlite3_context *context, const QByteArray &text) {
    sqlite3_result_text(context, text.constData(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
}

void addFigure(sqlite3_context *context, int, sqlite3_value **values) {
    guarded(context, [&] { *stateOf<Decimal>(context) += argument(values[0]); });
}

void answerSum(sqlite3_context *context) {
    answer(context, stateOf<Decimal>(context)->toText().toUtf8());
}

void addProduct(sqlite3_context *context, int, sqlite3_value **values) {
    guarded(context,
            [&] { *stateOf<Product>(context) += argument(values[0]) * argument(values[1]); });
}

void answerProducts(sqlite3_context *context) {
    guarded(context,
            [&] { answer(context, stateOf<Product>(context)->rounded(6).toText().toUtf8()); });
}

} // namespace

void registerExactSums(Database &db) {
    const QVariant handle = db.driverHandle();
    auto *engine = *static_cast<sqlite3 *const *>(handle.constData());
    constexpr int flags = SQLITE_UTF8 | SQLITE_DETERMINISTIC;
    const int sums = sqlite3_create_function_v2(engine, "exact_sum", 1, flags, nullptr, nullptr,
                                                addFigure, answerSum, nullptr);
    const int products =
        sqlite3_create_function_v2(engine, "exact_sum_of_products", 2, flags, nullptr, nullptr,
                                   addProduct, answerProducts, nullptr);
    if (sums != SQLITE_OK || products != SQLITE_OK)
        throw DatabaseError(QStringLiteral("数据库不能装入精确求和函数！"), {}, {});
}

} // namespace jxc
