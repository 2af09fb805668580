#include "retail/gateway_http.h"

#include <QNetworkReply>
#include <QTimer>

namespace jxc {

namespace {

/// A body that can be read once. The network layer sends a request again when a connection closes
/// under it; it cannot do so with what it cannot read again.
class OnceBody : public QIODevice {
public:
    OnceBody(QByteArray bytes, QObject *parent)
        : QIODevice(parent)
        , m_bytes(std::move(bytes)) {
        open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    }
    [[nodiscard]] bool isSequential() const override { return true; }
    bool seek(qint64) override { return false; }
    [[nodiscard]] qint64 bytesAvailable() const override { return m_bytes.size() - m_read; }
    [[nodiscard]] bool atEnd() const override { return m_read == m_bytes.size(); }

protected:
    qint64 readData(char *data, qint64 most) override {
        const qint64 count = qMin(most, m_bytes.size() - m_read);
        if (count == 0)
            return -1;
        std::copy_n(m_bytes.constData() + m_read, count, data);
        m_read += count;
        return count;
    }
    qint64 writeData(const char *, qint64) override { return -1; }

private:
    QByteArray m_bytes;
    qint64 m_read = 0;
};

const char *tooLongProperty = "answerTooLong";
const char *tooLateProperty = "answerTooLate";

/// Errors after which nothing can have reached the gateway.
bool isNeverSent(QNetworkReply::NetworkError error) {
    switch (error) {
    case QNetworkReply::ConnectionRefusedError:
    case QNetworkReply::HostNotFoundError:
    case QNetworkReply::SslHandshakeFailedError:
    case QNetworkReply::ProxyConnectionRefusedError:
    case QNetworkReply::ProxyNotFoundError:
    case QNetworkReply::ProtocolUnknownError:
        return true;
    default:
        return false;
    }
}

QString errorText(const QNetworkReply &reply) {
    if (reply.property(tooLongProperty).toBool())
        return QStringLiteral("平台的应答太长，不能识别");
    if (reply.property(tooLateProperty).toBool())
        return QStringLiteral("平台没有及时应答");
    switch (reply.error()) {
    case QNetworkReply::ConnectionRefusedError:
        return QStringLiteral("连接被平台拒绝");
    case QNetworkReply::HostNotFoundError:
        return QStringLiteral("找不到平台的地址，请检查网络");
    case QNetworkReply::SslHandshakeFailedError:
        return QStringLiteral("不能与平台建立安全连接");
    case QNetworkReply::OperationCanceledError:
    case QNetworkReply::TimeoutError:
        return QStringLiteral("平台没有及时应答");
    case QNetworkReply::RemoteHostClosedError:
    case QNetworkReply::ContentReSendError:
        return QStringLiteral("平台中断了连接，没有应答");
    default:
        return reply.errorString();
    }
}

} // namespace

GatewayHttp::GatewayHttp(QObject *parent)
    : QObject(parent) {
    m_manager.setRedirectPolicy(QNetworkRequest::ManualRedirectPolicy);
}

void GatewayHttp::post(const QUrl &url, const QByteArray &contentType, const QByteArray &body,
                       Done done) {
    // An idle connection may be closed already on the other side, which would look as if a request
    // had been lost there.
    m_manager.clearConnectionCache();
    QNetworkRequest request(url);
    request.setHeader(QNetworkRequest::ContentTypeHeader, contentType);
    request.setHeader(QNetworkRequest::ContentLengthHeader, body.size());
    request.setAttribute(QNetworkRequest::DoNotBufferUploadDataAttribute, true);
    request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    request.setRawHeader("Connection", "close");
    request.setTransferTimeout(m_limits.silence);
    auto *once = new OnceBody(body, this);
    QNetworkReply *reply = m_manager.post(request, once);
    once->setParent(reply);
    guard(reply);
    connect(reply, &QNetworkReply::finished, this, [this, reply, done = std::move(done)] {
        reply->deleteLater();
        done(take(reply));
    });
}

/// Ends an answer that takes too long in all, however busily it drips, and one that never ends.
void GatewayHttp::guard(QNetworkReply *reply) {
    auto *deadline = new QTimer(reply);
    deadline->setSingleShot(true);
    connect(deadline, &QTimer::timeout, reply, [reply] {
        reply->setProperty(tooLateProperty, true);
        reply->abort();
    });
    deadline->start(m_limits.total);
    reply->setReadBufferSize(m_limits.bytes + 1);
    connect(reply, &QNetworkReply::readyRead, this, [this, reply] {
        if (reply->bytesAvailable() <= m_limits.bytes)
            return;
        reply->setProperty(tooLongProperty, true);
        reply->abort();
    });
}

GatewayReply GatewayHttp::take(QNetworkReply *reply) const {
    using Fate = GatewayReply::Fate;
    if (reply->error() != QNetworkReply::NoError)
        return {isNeverSent(reply->error()) ? Fate::notSent : Fate::unknown, {}, errorText(*reply)};
    const int status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    if (status < 200 || status > 299)
        return {Fate::unknown, {}, QStringLiteral("平台要求转到另一个地址，没有执行")};
    const QByteArray body = reply->readAll();
    if (body.size() > m_limits.bytes)
        return {Fate::unknown, {}, QStringLiteral("平台的应答太长，不能识别")};
    return {Fate::answered, body, {}};
}

} // namespace jxc
