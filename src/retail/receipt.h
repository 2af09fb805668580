#pragma once

#include "retail/counter_settings.h"
#include "stock/batches.h"

#include <optional>
#include <vector>

namespace jxc {

/// The mark of a gift behind the name of a goods.
inline const QString giftMark = QStringLiteral("(赠品)");

/// A line of a receipt while it is rung up.
struct ReceiptLine {
    QString goods, name, specification{}, unit, barcode{};
    Decimal factor = 1; ///< base units per unit
    Decimal quantity = 1;
    Decimal price{}; ///< tax included
    Decimal discount = 1;
    Decimal retailPrice{};
    std::optional<Decimal> labelAmount{}; ///< the scale printed what the whole costs
    bool isGift = false;
    bool restricted = false;                                   ///< the buyer is to be registered
    QString buyer{}, identityNo{}, mobile{}, address{}, use{}; ///< of restricted goods
    QString authorisedBy{}; ///< who allowed a discount below the lowest

    /// price × discount × quantity, or what the label says; nothing for a gift.
    [[nodiscard]] Decimal total(int decimals) const;
};

/// A receipt that is being rung up.
struct Receipt {
    QString number{}; ///< drawn when it was held; empty: drawn when it is paid
    QString warehouse, clerk;
    QString customer = walkInCustomer;
    QString member{}; ///< hy_sn
    std::vector<ReceiptLine> lines{};

    [[nodiscard]] Decimal total(int decimals) const;
    [[nodiscard]] Decimal atRetail() const; ///< Σ retail price × quantity
    [[nodiscard]] Decimal pieces() const;   ///< Σ quantity
};

} // namespace jxc
