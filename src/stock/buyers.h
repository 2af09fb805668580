#pragma once

#include <QString>
#include <optional>

namespace jxc {

class Session;

/// Who buys restricted goods, as the law wants it registered.
struct BuyerRecord {
    QString name, identityNo, mobile, address;
    QString use;          ///< t_cfsm
    QString prescription; ///< t_cfhm
};

/// The buyer on this customer's last sale with one; never for the walk-in customer "100001".
[[nodiscard]] std::optional<BuyerRecord> lastBuyerOf(Session &session, const QString &customer);

/// The buyer last registered under a mobile phone or identity number.
[[nodiscard]] std::optional<BuyerRecord> findBuyer(Session &session,
                                                   const QString &phoneOrIdentity);

} // namespace jxc
