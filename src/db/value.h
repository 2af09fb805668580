#pragma once

#include "base/decimal.h"

#include <QString>
#include <variant>
#include <vector>

namespace jxc {

/// A value on its way into the database: text, figure, whole number or null. Statements bind
/// values; nothing typed by a user ever becomes part of a statement's text.
class Value {
public:
    Value() = default; ///< null
    // NOLINTBEGIN(google-explicit-constructor): a list of values reads like a row
    Value(int number)
        : m_data(static_cast<qint64>(number)) {}
    Value(qint64 number)
        : m_data(number) {}
    Value(bool flag)
        : m_data(static_cast<qint64>(flag ? 1 : 0)) {}
    Value(Decimal figure)
        : m_data(figure) {}
    Value(QString text)
        : m_data(std::move(text)) {}
    Value(QStringView text)
        : m_data(text.toString()) {}
    Value(const char16_t *text)
        : m_data(QString::fromUtf16(text)) {}
    Value(const char *) = delete;
    // NOLINTEND(google-explicit-constructor)

    [[nodiscard]] bool isNull() const { return std::holds_alternative<std::monostate>(m_data); }
    [[nodiscard]] const QString *text() const { return std::get_if<QString>(&m_data); }
    [[nodiscard]] const Decimal *figure() const { return std::get_if<Decimal>(&m_data); }
    [[nodiscard]] const qint64 *number() const { return std::get_if<qint64>(&m_data); }

private:
    std::variant<std::monostate, qint64, Decimal, QString> m_data;
};

using Values = std::vector<Value>;

/// A column and the value that it gets.
struct Assignment {
    QString column;
    Value value;
};
using Assignments = std::vector<Assignment>;

} // namespace jxc
