#pragma once

#include "core/action.h"

namespace jxc {

class Session;

/// Closes what of an approved receipt has not been taken in (取消入库) or of an approved sale has
/// not been issued (取消出库): it will never come or go. The user is asked; then the open
/// quantities are marked, and an approved return dated as the document takes them off the books and
/// the partner's account. Its goods never came, so no physical stock and no batch moves.
/// `returnNumber` gets the return's number.
Outcome closeRest(Session &session, Prompter &prompter, const QString &number,
                  QString *returnNumber = nullptr);

} // namespace jxc
