#pragma once

#include "ui/form.h"

#include <functional>
#include <optional>

namespace jxc {

/// Has a member type the password of his card, before value or points leave it. A wrong one is
/// told and asked again; nothing when he leaves.
[[nodiscard]] std::optional<QString>
askCardPassword(const FormContext &context, const QString &memberName,
                const std::function<bool(const QString &)> &isRight, QWidget *parent);

} // namespace jxc
