#pragma once

#include "retail/print_settings.h"
#include "retail/receipt_paper.h"
#include "retail/recharge_paper.h"
#include "retail/shift_paper.h"
#include "ui/form.h"

namespace jxc {

/// Prints a receipt of the counter with its template (posxsd.fr3) on one of the system's printers,
/// after a preview where the shop wants one. What went wrong, for the user; empty when nothing did.
[[nodiscard]] QString printReceiptByTemplate(const FormContext &context,
                                             const PrintSettings &settings,
                                             const ReceiptPaper &paper, const QString &printer,
                                             bool again, QWidget *parent);
/// The same for a recharge of a member's card (hyxf.fr3).
[[nodiscard]] QString printRechargeByTemplate(const FormContext &context,
                                              const PrintSettings &settings,
                                              const RechargePaper &paper, const QString &printer,
                                              bool again, QWidget *parent);

/// The slip of a change of shift with its template (poshb.fr3), likewise.
[[nodiscard]] QString printShiftByTemplate(const FormContext &context,
                                           const PrintSettings &settings, const EndedShift &ended,
                                           const QString &printer, bool again, QWidget *parent);

} // namespace jxc
