#pragma once

#include "stock/buyers.h"
#include "ui/form.h"

#include <optional>

namespace jxc {

/// Registers who buys restricted goods: name and a right identity number at least. Nothing when the
/// user leaves.
[[nodiscard]] std::optional<BuyerRecord> askBuyer(const FormContext &context,
                                                  const QString &goodsName,
                                                  const BuyerRecord &proposed, QWidget *parent);

} // namespace jxc
