#pragma once

#include "retail/gateway_http.h"
#include "retail/wallet_book.h"

#include <QStringList>

namespace jxc {

/// Takes payments by the code on a customer's telephone, one request after the other. Whatever
/// becomes of the program between a request and its answer, the payment stands in the books as open
/// and is asked for later.
class WalletGateway : public QObject {
    Q_OBJECT
public:
    /// `home` holds data/gateway.ini, and tmp/ with the last request of each document.
    WalletGateway(Session &session, Prompter &prompter, QString home, QObject *parent = nullptr);

    void setLimits(const GatewayLimits &limits) { m_http.setLimits(limits); }
    /// A request waits for its answer; a further one is not taken.
    [[nodiscard]] bool isBusy() const { return m_isBusy; }

    /// finished() tells how it went, once. False while another request waits: nothing was done.
    bool pay(const WalletOrder &order);
    /// Asks how the payment of a document stands.
    bool query(const QString &number);
    /// Asks for every open payment; allResolved() tells what was settled so.
    void resolveOpen();

Q_SIGNALS:
    void finished(const jxc::WalletResult &result);
    /// The results that changed something; those that stay open are not among them.
    void allResolved(const QList<jxc::WalletResult> &settled);

private:
    using Judge = WalletVerdict (*)(const WalletAnswer &, const WalletAsked &);
    using Recorder = Outcome (*)(Session &, Prompter &, const WalletAttempt &,
                                 const WalletVerdict &, const WalletAnswer *, WalletResult *);

    /// Nothing, once the reason was told, while the gateway has no address.
    [[nodiscard]] QUrl address(const QString &number);
    void send(const QUrl &url, const WalletAttempt &attempt, const QList<NameValue> &fields,
              Judge judge, Recorder record);
    void receive(const WalletAttempt &attempt, const GatewayReply &reply, Judge judge,
                 Recorder record);
    void refuse(const QString &number, const QString &text);
    void keepCopy(const QString &number, const QByteArray &xml) const;
    void resolveNext();

    Session &m_session;
    Prompter &m_prompter;
    QString m_home;
    GatewayHttp m_http;
    QStringList m_toResolve;
    QList<WalletResult> m_settled;
    bool m_isBusy = false, m_isResolving = false;
};

} // namespace jxc
