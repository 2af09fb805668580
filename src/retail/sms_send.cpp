#include "retail/sms_send.h"

#include "base/pairs.h"
#include "core/session.h"
#include "retail/gateway_settings.h"
#include "retail/sms_book.h"
#include "retail/sms_settings.h"

#include <QUrl>

namespace jxc {

namespace {

/// After so many messages that reached nobody the rest need not be tried.
constexpr int enoughMissed = 3;

QByteArray formBody(const QList<NameValue> &fields) {
    QByteArray body;
    for (const auto &[name, value] : fields) {
        if (!body.isEmpty())
            body += '&';
        // A blank as "%20" and a plus as "%2B" are read the same everywhere.
        body += name.toLatin1() + '=' + QUrl::toPercentEncoding(value);
    }
    return body;
}

QByteArray smsBody(const SmsSettings &settings, const QString &text, const QString &mobile) {
    return formBody({{QStringLiteral("username"), settings.user},
                     {QStringLiteral("passwd"), settings.password},
                     {QStringLiteral("phone"), mobile},
                     {QStringLiteral("msg"), text},
                     {QStringLiteral("needstatus"), QStringLiteral("true")},
                     {QStringLiteral("port"), QString()},
                     {QStringLiteral("sendtime"), QString()}});
}

} // namespace

TF_Sms_Send::TF_Sms_Send(Session &session, Prompter &prompter, QString home, QObject *parent)
    : QObject(parent)
    , m_session(session)
    , m_prompter(prompter)
    , m_home(std::move(home)) {}

bool TF_Sms_Send::sendSms(const QString &text, const QString &mobile,
                          const GatewayHttp::Done &done) {
    const SmsSettings settings = loadSmsSettings(m_session.db());
    if (mobile.isEmpty() || !settings.isComplete() || !isSmsOn(m_session.db()))
        return false;
    m_http.post(smsUrl(loadGatewaySettings(m_home)),
                QByteArrayLiteral("application/x-www-form-urlencoded"),
                smsBody(settings, text, mobile), [done](const GatewayReply &reply) {
                    if (done)
                        done(reply);
                });
    return true;
}

void TF_Sms_Send::sendWaiting(const QList<qint64> &ids) {
    if (m_isBusy)
        return;
    m_isBusy = true;
    m_ids = ids;
    m_total = static_cast<int>(ids.size());
    m_missed = 0;
    m_report = {};
    QMetaObject::invokeMethod(this, &TF_Sms_Send::next, Qt::QueuedConnection);
}

void TF_Sms_Send::stop() {
    m_report.waiting += static_cast<int>(m_ids.size());
    m_ids.clear();
}

void TF_Sms_Send::next() {
    Q_EMIT progressed(m_total - static_cast<int>(m_ids.size()), m_total);
    if (m_ids.isEmpty()) {
        endWith({});
        return;
    }
    const qint64 id = m_ids.takeFirst();
    const auto message = takeWaiting(m_session, m_prompter, id);
    if (!message || message->mobile.isEmpty()) {
        QMetaObject::invokeMethod(this, &TF_Sms_Send::next, Qt::QueuedConnection);
        return;
    }
    const auto settled = [this, id, message = *message](const GatewayReply &reply) {
        settle(id, message, reply);
    };
    try {
        if (sendSms(message->text, message->mobile, settled))
            return;
        throw Refusal(QStringLiteral("短信通知没有启用，或短信参数不完整"));
    } catch (const std::exception &fault) { // no address, or the server of the data went away
        putBack(m_session, m_prompter, id, *message);
        ++m_report.waiting;
        stop();
        endWith(QString::fromUtf8(fault.what()));
    }
}

void TF_Sms_Send::settle(qint64 id, const SmsMessage &message, const GatewayReply &reply) {
    switch (reply.fate) {
    case GatewayReply::Fate::answered:
        ++m_report.sent;
        m_missed = 0;
        break;
    case GatewayReply::Fate::unknown: // twice on a telephone is worse than once too few
        ++m_report.unsure;
        ++m_missed;
        break;
    case GatewayReply::Fate::notSent:
        putBack(m_session, m_prompter, id, message);
        ++m_report.waiting;
        ++m_missed;
        break;
    }
    if (m_report.error.isEmpty())
        m_report.error = reply.error;
    if (m_missed >= enoughMissed)
        stop();
    next();
}

void TF_Sms_Send::endWith(const QString &error) {
    if (m_report.error.isEmpty())
        m_report.error = error;
    m_isBusy = false;
    Q_EMIT finished(m_report);
}

bool canSendSms(Session &session, const QString &home) {
    return !loadGatewaySettings(home).smsHost.isEmpty() && isSmsOn(session.db()) &&
           loadSmsSettings(session.db()).isComplete();
}

void sendSoon(Session &session, Prompter &prompter, const QString &home, qint64 id,
              QObject *owner) {
    try {
        if (id == 0 || !canSendSms(session, home))
            return;
    } catch (const std::exception &fault) { // the server of the data went away
        qWarning("%s", fault.what());
        return;
    }
    auto *sender = new TF_Sms_Send(session, prompter, home, owner);
    QObject::connect(sender, &TF_Sms_Send::finished, sender, &QObject::deleteLater);
    sender->sendWaiting({id});
}

} // namespace jxc
