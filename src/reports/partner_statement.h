#pragma once

#include "money/partner_ledger.h"
#include "reports/pages.h"

namespace jxc {

class Session;

/// The statement of a partner's account over a period, as it is handed to him: what he owed before,
/// every document and payment, what he owes now. Laid out with wlzw.fr3 of report/ under `home`.
/// Throws Refusal when the partner is gone, and TemplateError.
[[nodiscard]] Pages statementPages(const Session &session, const QString &home,
                                   const Partner &partner, const QString &from, const QString &to);

} // namespace jxc
