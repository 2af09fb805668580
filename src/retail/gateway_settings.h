#pragma once

#include <QString>
#include <QUrl>

namespace jxc {

/// Where the providers of short messages and wallet payments are reached. The addresses belong to
/// the workstation's data folder, not to the account set: a restored backup must not send a shop's
/// messages or money elsewhere.
struct GatewaySettings {
    QString smsHost;        ///< "sms.example.cn", or with a port of its own
    QString paymentAddress; ///< the whole address, "https://pay.example.cn/gateway"

    friend bool operator==(const GatewaySettings &, const GatewaySettings &) = default;
};

/// Reads data/gateway.ini below home; empty addresses when there is none.
[[nodiscard]] GatewaySettings loadGatewaySettings(const QString &home);
/// Writes data/gateway.ini, readable by its owner alone. Throws Refusal for an address that cannot
/// be one, or when the file cannot be written; what stood there stays then.
void saveGatewaySettings(const QString &home, const GatewaySettings &settings);

/// The address that messages are posted to. Throws Refusal while there is none.
[[nodiscard]] QUrl smsUrl(const GatewaySettings &settings);
/// The address that payments are posted to. Throws Refusal while there is none.
[[nodiscard]] QUrl paymentUrl(const GatewaySettings &settings);

} // namespace jxc
