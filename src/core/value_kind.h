#pragma once

namespace jxc {

/// What a value of a form is; how it is typed, checked, shown and aligned follows from it.
enum class ValueKind {
    text,
    date,     ///< "yyyy-MM-dd", fixed width
    quantity, ///< the configured quantity decimals
    price,    ///< the configured price decimals
    amount,   ///< the configured amount decimals
    integer,  ///< points, counts, days
    factor,   ///< discounts, conversion factors: two decimals at least
    percent,  ///< a number of percent, two decimals
    flag,     ///< 0 or 1, shown as a tick
    choice,   ///< one of fixed values
    status    ///< 0 未审核, 1 已审核
};

[[nodiscard]] constexpr bool isNumber(ValueKind kind) {
    return kind >= ValueKind::quantity && kind <= ValueKind::percent;
}

/// Who may see, export and print a value.
enum class Secrecy {
    open,
    cost,   ///< only with the right to see cost prices (qtcz 7)
    selling ///< only with the right to see selling prices (qtcz 9)
};

} // namespace jxc
