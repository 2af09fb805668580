#pragma once

#include <QByteArray>
#include <QNetworkAccessManager>
#include <functional>

class QNetworkReply;

namespace jxc {

/// What became of a request.
struct GatewayReply {
    enum class Fate {
        answered, ///< the body is the other side's answer
        notSent,  ///< nobody was reached: surely nothing happened there
        unknown   ///< it may have been carried out or not
    };
    Fate fate = Fate::unknown;
    QByteArray body;
    QString error; ///< for the user; empty when answered
};

/// How long and how much a gateway may answer.
struct GatewayLimits {
    int silence = 20'000;         ///< milliseconds without a byte
    int total = 60'000;           ///< milliseconds for all of it
    qsizetype bytes = 256 * 1024; ///< of the answer
};

/// Posts to a gateway without keeping anybody waiting. A request leaves once and once only:
/// nothing is sent again by itself, and no redirection is followed, since what is posted here costs
/// money.
class GatewayHttp : public QObject {
    Q_OBJECT
public:
    using Done = std::function<void(const GatewayReply &)>;

    explicit GatewayHttp(QObject *parent = nullptr);

    void setLimits(const GatewayLimits &limits) { m_limits = limits; }
    /// `done` is called once, later, unless this object is gone by then.
    void post(const QUrl &url, const QByteArray &contentType, const QByteArray &body, Done done);

private:
    void guard(QNetworkReply *reply);
    [[nodiscard]] GatewayReply take(QNetworkReply *reply) const;

    QNetworkAccessManager m_manager;
    GatewayLimits m_limits;
};

} // namespace jxc
