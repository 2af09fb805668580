#pragma once

#include "money/partner_ledger.h"

class QWidget;

namespace jxc {

struct FormContext;

/// Shows the statement that is handed to a partner, and prints it.
void previewStatement(const FormContext &context, const Partner &partner, const QString &from,
                      const QString &to, QWidget *parent);

} // namespace jxc
