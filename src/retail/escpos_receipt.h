#pragma once

#include "retail/print_settings.h"
#include "retail/receipt_paper.h"
#include "retail/recharge_paper.h"

#include <QByteArray>

namespace jxc {

/// One copy of a receipt for a receipt printer. `again` marks a reprint.
[[nodiscard]] QByteArray escPosReceipt(const PrintSettings &settings, const ReceiptPaper &paper,
                                       bool again);

/// The same for a recharge of a member's card.
[[nodiscard]] QByteArray escPosRecharge(const PrintSettings &settings, const RechargePaper &paper,
                                        bool again);

/// The lights of a customer display.
enum class DisplayLight { price = 1, total = 2, received = 3, change = 4 };
/// Shows an amount on a customer display under one of its lights.
[[nodiscard]] QByteArray displayBytes(Decimal amount, DisplayLight light);

} // namespace jxc
