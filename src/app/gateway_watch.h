#pragma once

#include "retail/sms_send.h"
#include "retail/wallet_gateway.h"

#include <QTimer>

namespace jxc {

struct FormContext;

/// Finishes what was left between this shop and its gateways: payments that nobody knows the end
/// of are asked for, messages that wait are sent. At the start, and then from time to time.
class GatewayWatch : public QObject {
    Q_OBJECT
public:
    explicit GatewayWatch(const FormContext &context, QObject *parent = nullptr);

    /// After a login; does nothing while a gateway has no address or no account.
    void start();
    [[nodiscard]] WalletGateway &wallet() { return m_wallet; }
    [[nodiscard]] TF_Sms_Send &sms() { return m_sms; }

private:
    void askForPayments();
    void sendMessages();
    void tell(const QList<WalletResult> &settled);

    Session &m_session;
    Prompter &m_prompter;
    QString m_home;
    WalletGateway m_wallet;
    TF_Sms_Send m_sms;
    QTimer m_payments, m_messages;
};

} // namespace jxc
