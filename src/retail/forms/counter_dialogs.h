#pragma once

#include "base/decimal.h"
#include "core/value_kind.h"
#include "ui/form.h"

#include <optional>

namespace jxc {

// What the counter asks in small windows of its own.

/// Asks for a figure; nothing when the cashier leaves.
[[nodiscard]] std::optional<Decimal> askFigure(const FormContext &context, const QString &caption,
                                               ValueKind kind, Decimal now, QWidget *parent);

/// Asks for a line of text; empty when the cashier leaves.
[[nodiscard]] QString askText(const QString &caption, const QString &note, QWidget *parent);

/// Asks a second operator, who holds the right, to allow something with his password. His name;
/// empty when nobody does.
[[nodiscard]] QString askSecondOperator(const FormContext &context, const QString &what, int right,
                                        QWidget *parent);

/// Who allows something that needs a right (xsgl): the cashier himself if he has it, else who gives
/// his password now. Empty when nobody does.
[[nodiscard]] QString allowedBy(const FormContext &context, int right, const QString &what,
                                QWidget *parent);

/// Hides the counter until the cashier's password is given.
void lockCounter(const FormContext &context, QWidget *parent);

} // namespace jxc
