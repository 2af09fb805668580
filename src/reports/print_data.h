#pragma once

#include "base/decimal.h"
#include "core/session.h"
#include "core/value_kind.h"

#include <QHash>
#include <QString>
#include <vector>

namespace jxc {

/// A value on its way to the printer: a text, or a figure that is formatted only when it is set.
struct PrintValue {
    ValueKind kind = ValueKind::text;
    QString text{};   ///< of the kinds that are no numbers
    Decimal figure{}; ///< of those that are

    PrintValue() = default;
    PrintValue(
        QString words) // NOLINT(google-explicit-constructor): a row of values reads naturally
        : text(std::move(words)) {}
    PrintValue(ValueKind what, Decimal value)
        : kind(what)
        , figure(value) {}
};

using PrintFields = QHash<QString, PrintValue>;

/// What a template is filled with.
struct PrintData {
    PrintFields head;
    std::vector<PrintFields> lines;
    PrintFields vars; ///< what is neither of the document nor of its lines
    Company company;
    int quantityDecimals = 2, priceDecimals = 2, amountDecimals = 2;

    /// The decimals of the figures, and the company, from the session.
    static PrintData of(const Session &session);

    /// As it stands on paper; `format` is a display pattern, empty for that of the value's kind.
    [[nodiscard]] QString shown(const PrintValue &value, const QString &format = {}) const;
    /// The sum of a field over lines [from, to); nothing to print when no line has the field.
    [[nodiscard]] PrintValue sum(const QString &field, size_t from, size_t to) const;
};

} // namespace jxc
