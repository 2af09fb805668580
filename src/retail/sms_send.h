#pragma once

#include "core/prompter.h"
#include "retail/gateway_http.h"

#include <QList>

namespace jxc {

class Session;
struct SmsMessage;

/// How the sending of several messages ended.
struct SmsReport {
    int sent = 0;    ///< the provider answered
    int waiting = 0; ///< surely not sent: they wait for the next time
    int unsure = 0;  ///< sent, but without an answer
    QString error;   ///< the first reason why not
};

/// Sends short messages, one request each, while work goes on.
class TF_Sms_Send : public QObject {
    Q_OBJECT
public:
    /// `home` holds data/gateway.ini.
    TF_Sms_Send(Session &session, Prompter &prompter, QString home, QObject *parent = nullptr);

    void setLimits(const GatewayLimits &limits) { m_http.setLimits(limits); }

    /// Sends one message. Does nothing, and answers false, unless there are a mobile number and the
    /// provider's account and messages are switched on. Throws Refusal while no address is known.
    bool sendSms(const QString &text, const QString &mobile, const GatewayHttp::Done &done = {});

    /// Sends waiting messages of jxc_smshy, one after the other; finished() tells how it ended. Not
    /// begun while others are being sent. One that another workstation has taken is left to it.
    void sendWaiting(const QList<qint64> &ids);
    /// What is on its way arrives; the rest waits.
    void stop();
    [[nodiscard]] bool isBusy() const { return m_isBusy; }

Q_SIGNALS:
    void progressed(int done, int total);
    void finished(const jxc::SmsReport &report);

private:
    void next();
    void settle(qint64 id, const SmsMessage &message, const GatewayReply &reply);
    void endWith(const QString &error);

    Session &m_session;
    Prompter &m_prompter;
    QString m_home;
    GatewayHttp m_http;
    QList<qint64> m_ids;
    SmsReport m_report;
    int m_total = 0;
    int m_missed = 0; ///< in a row: nobody is there
    bool m_isBusy = false;
};

/// Whether messages can leave now: there are an address, an account and the switch is on.
[[nodiscard]] bool canSendSms(Session &session, const QString &home);
/// Sends a waiting message at once, in the background and without a word; what cannot be sent goes
/// on waiting. `owner` lives at least until then. Does nothing for an id of 0.
void sendSoon(Session &session, Prompter &prompter, const QString &home, qint64 id, QObject *owner);

} // namespace jxc
