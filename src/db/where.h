#pragma once

#include "db/value.h"

#include <QStringList>

namespace jxc {

/// The conditions of a statement that is put together from filters, with the values they bind in
/// the order of their marks.
class Where {
public:
    void add(const QString &condition, const Values &bound = {}) {
        m_conditions << condition;
        m_values.insert(m_values.end(), bound.begin(), bound.end());
    }
    /// The column has the value; no condition while the value is empty.
    void addEqual(const QString &column, const QString &value) {
        if (!value.isEmpty())
            add(column + QStringLiteral("=?"), {value});
    }
    /// The column is one of the values; no condition while there are none.
    void addOneOf(const QString &column, const QStringList &choices) {
        if (choices.isEmpty())
            return;
        const QStringList marks(choices.size(), QStringLiteral("?"));
        add(QStringLiteral("%1 in (%2)").arg(column, marks.join(u',')),
            Values(choices.begin(), choices.end()));
    }

    /// "a and b"; "1=1" without any.
    [[nodiscard]] QString text() const {
        return m_conditions.isEmpty() ? QStringLiteral("1=1")
                                      : m_conditions.join(QStringLiteral(" and "));
    }
    [[nodiscard]] const Values &values() const { return m_values; }

private:
    QStringList m_conditions;
    Values m_values;
};

} // namespace jxc
