#pragma once

#include "base/pairs.h"

#include <QTcpServer>
#include <functional>

class QTcpSocket;

namespace jxc::test {

/// A request as it arrived.
struct Arrived {
    QByteArray head, body;
    /// A field of a form or of an XML body.
    [[nodiscard]] QString field(const QString &name) const;
};

/// What the other side does about a request.
struct Answer {
    enum class Way {
        whole,     ///< status and body
        cut,       ///< announces more than it sends, and closes
        closeMute, ///< closes without a byte
        hang,      ///< keeps the connection open and says nothing
        drip,      ///< a byte now and then, without an end
        flood      ///< never stops
    };
    Way way = Way::whole;
    QByteArray body;
    QByteArray status = "200 OK";
    QByteArray headers{}; ///< further lines, each with its "\r\n"
};

/// A gateway on this machine that answers as it is told.
class GatewayServer : public QTcpServer {
public:
    GatewayServer();

    std::function<Answer(const Arrived &)> answer;
    std::vector<Arrived> arrived;
    [[nodiscard]] QString host() const;

private:
    void receive(QTcpSocket *socket, QByteArray &buffer);
    static void reply(QTcpSocket *socket, const Answer &answer);
};

/// An answer of the payment gateway; with a key it is signed.
[[nodiscard]] QByteArray walletAnswer(QList<NameValue> fields, const QString &key = {});

} // namespace jxc::test
