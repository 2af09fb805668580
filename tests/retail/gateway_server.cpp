#include "retail/gateway_server.h"

#include "retail/wallet_request.h"

#include <QTcpSocket>
#include <QTimer>
#include <QUrl>
#include <QXmlStreamReader>

namespace jxc::test {

QString Arrived::field(const QString &name) const {
    if (!body.startsWith('<')) {
        for (const QByteArray &part : body.split('&'))
            if (const qsizetype sign = part.indexOf('='); part.left(sign) == name.toLatin1())
                return QUrl::fromPercentEncoding(part.mid(sign + 1));
        return {};
    }
    QXmlStreamReader reader(body);
    while (!reader.atEnd())
        if (reader.readNext() == QXmlStreamReader::StartElement && reader.name() == name)
            return reader.readElementText();
    return {};
}

GatewayServer::GatewayServer() {
    if (!listen(QHostAddress::LocalHost))
        qFatal("no port to listen on");
    connect(this, &QTcpServer::newConnection, this, [this] {
        while (QTcpSocket *socket = nextPendingConnection()) {
            connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
            connect(socket, &QTcpSocket::readyRead, this,
                    [this, socket, buffer = QByteArray()]() mutable { receive(socket, buffer); });
        }
    });
}

QString GatewayServer::host() const {
    return QStringLiteral("127.0.0.1:%1").arg(serverPort());
}

void GatewayServer::receive(QTcpSocket *socket, QByteArray &buffer) {
    buffer += socket->readAll();
    const qsizetype end = buffer.indexOf("\r\n\r\n");
    if (end < 0)
        return;
    Arrived request{buffer.left(end), buffer.mid(end + 4)};
    const QByteArray small = request.head.toLower();
    const qsizetype length = small.indexOf("content-length: ");
    const qsizetype line = small.indexOf('\r', length);
    if (length >= 0 &&
        request.body.size() < small.mid(length + 16, line < 0 ? -1 : line - length - 16).toInt())
        return;
    buffer.clear();
    arrived.push_back(request);
    reply(socket, answer ? answer(request) : Answer{});
}

void GatewayServer::reply(QTcpSocket *socket, const Answer &answer) {
    const auto head = [&](qsizetype length) {
        return "HTTP/1.1 " + answer.status + "\r\n" + answer.headers +
               "Content-Length: " + QByteArray::number(length) + "\r\n\r\n";
    };
    const auto dribble = [socket](const QByteArray &bytes) {
        auto *timer = new QTimer(socket);
        QObject::connect(timer, &QTimer::timeout, socket,
                         [socket, bytes] { socket->write(bytes); });
        timer->start(20);
    };
    switch (answer.way) {
    case Answer::Way::whole:
        socket->write(head(answer.body.size()) + answer.body);
        socket->disconnectFromHost();
        break;
    case Answer::Way::cut:
        socket->write(head(answer.body.size() + 100) + answer.body);
        socket->disconnectFromHost();
        break;
    case Answer::Way::closeMute:
        socket->disconnectFromHost();
        break;
    case Answer::Way::hang:
        break;
    case Answer::Way::drip:
        socket->write(head(1'000'000));
        dribble(" ");
        break;
    case Answer::Way::flood:
        socket->write(head(1'000'000'000));
        dribble(QByteArray(200'000, ' '));
        break;
    }
}

QByteArray walletAnswer(QList<NameValue> fields, const QString &key) {
    return key.isEmpty() ? buildXmlPairs(fields).toUtf8() : walletXml(std::move(fields), key);
}

} // namespace jxc::test
