#pragma once

#include "retail/till_cash.h"

class QWidget;

namespace jxc {

struct FormContext;

/// What was asked of the list of till cash.
struct TillCashAsked {
    QString from, to;
    QString cashier; ///< as the filter shows it
};

/// Shows the list of till cash as its template (poscrk.fr3) prints it, and prints it.
void previewTillCash(const FormContext &context, const std::vector<TillRow> &rows,
                     const TillCashAsked &asked, QWidget *parent);

} // namespace jxc
