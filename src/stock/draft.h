#pragma once

#include "core/action.h"
#include "stock/batches.h"

#include <optional>
#include <vector>

namespace jxc {

class Session;

/// A line as it is typed.
struct DraftLine {
    QString goods;
    QString unit{};     ///< empty: the base unit
    Decimal factor = 1; ///< base units per unit
    Decimal quantity{};
    Decimal price{}; ///< with tax while prices include tax
    Decimal discount = 1;
    Batch batch{};
    QString note{};
    QString gift{};                                 ///< "(赠品)"
    QString buyer{}, identityNo{}, mobile{}, use{}; ///< of restricted goods
};

/// A receipt, purchase return, sale or sales return as it is typed.
struct Draft {
    QString code; ///< CJ, CT, XS or XT
    QString date, partner, warehouse, clerk;
    QString note{};
    std::vector<DraftLine> lines{};
    std::optional<Decimal> paid{}; ///< nothing: all that is due
    bool restForgiven = false;     ///< what is not paid is a discount, not a debt
    QString account = QStringLiteral("现金");
    QString supplierNumber{}; ///< the supplier's own number of a receipt
    QString invoiceNo{};
    Decimal invoiced{}, freight{}, packing{};
    QString freightTerms{};
    bool laterInOut = false; ///< goods come or go by separate documents
};

/// Checks a draft and stores it unapproved, header and lines in one transaction; the number is
/// drawn in it. Refusals name the first thing that is missing or wrong. `number` gets the number.
Outcome saveDraft(Session &session, Prompter &prompter, const Draft &draft, QString *number);

/// The same inside a transaction that is open.
[[nodiscard]] QString saveDraftInTransaction(Session &session, const Draft &draft);

} // namespace jxc
