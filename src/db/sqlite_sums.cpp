#include "db/sqlite_sums.h"

#include "base/decimal.h"
#include "db/database.h"

#include <QVariant>
#include <cstring>
#include <new>
#include <sqlite3.h>
#include <type_traits>

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

/// A sum that the engine keeps between two rows. Its memory starts zeroed, which is a sum of
/// nothing, and is aligned for less than a sum needs, so the sum is copied out and back.
template<class Sum>
class KeptSum {
public:
    explicit KeptSum(sqlite3_context *context)
        : m_place(sqlite3_aggregate_context(context, sizeof(Sum))) {
        if (m_place == nullptr)
            throw std::bad_alloc();
        std::memcpy(&m_sum, m_place, sizeof(Sum));
    }

    void add(const Sum &value) {
        m_sum += value;
        std::memcpy(m_place, &m_sum, sizeof(Sum));
    }
    [[nodiscard]] const Sum &sum() const { return m_sum; }

private:
    static_assert(std::is_trivially_copyable_v<Sum>);
    void *m_place;
    Sum m_sum;
};

template<class Work>
void guarded(sqlite3_context *context, const Work &work) {
    try {
        work();
    } catch (const std::exception &error) {
        sqlite3_result_error(context, error.what(), -1);
    }
}

void answer(sqlite3_context *context, const QByteArray &text) {
    sqlite3_result_text(context, text.constData(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
}

void addFigure(sqlite3_context *context, int, sqlite3_value **values) {
    guarded(context, [&] { KeptSum<Decimal>(context).add(argument(values[0])); });
}

void answerSum(sqlite3_context *context) {
    guarded(context, [&] { answer(context, KeptSum<Decimal>(context).sum().toText().toUtf8()); });
}

void addProduct(sqlite3_context *context, int, sqlite3_value **values) {
    guarded(context,
            [&] { KeptSum<Product>(context).add(argument(values[0]) * argument(values[1])); });
}

void answerProducts(sqlite3_context *context) {
    guarded(context,
            [&] { answer(context, KeptSum<Product>(context).sum().rounded(6).toText().toUtf8()); });
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
