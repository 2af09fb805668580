#include "app/gateway_watch.h"

#include "core/session.h"
#include "retail/gateway_settings.h"
#include "retail/sms_book.h"
#include "ui/form.h"

namespace jxc {

namespace {

constexpr int paymentInterval = 5 * 60'000;
constexpr int messageInterval = 60'000;

/// Nobody waits for what is done here: a server that went away is told by the next thing that
/// somebody does.
template<class Action>
void quietly(const Action &action) {
    try {
        action();
    } catch (const std::exception &fault) {
        qWarning("%s", fault.what());
    }
}

} // namespace

GatewayWatch::GatewayWatch(const FormContext &context, QObject *parent)
    : QObject(parent)
    , m_session(context.session)
    , m_prompter(context.prompter)
    , m_home(context.home)
    , m_wallet(context.session, context.prompter, context.home)
    , m_sms(context.session, context.prompter, context.home) {
    m_payments.setInterval(paymentInterval);
    m_messages.setInterval(messageInterval);
    connect(&m_payments, &QTimer::timeout, this, [this] { quietly([this] { askForPayments(); }); });
    connect(&m_messages, &QTimer::timeout, this, [this] { quietly([this] { sendMessages(); }); });
    connect(&m_wallet, &WalletGateway::allResolved, this, &GatewayWatch::tell);
}

void GatewayWatch::start() {
    m_payments.start();
    m_messages.start();
    quietly([this] { askForPayments(); });
    quietly([this] { sendMessages(); });
}

void GatewayWatch::askForPayments() {
    if (!loadGatewaySettings(m_home).paymentAddress.isEmpty())
        m_wallet.resolveOpen();
}

void GatewayWatch::sendMessages() {
    if (m_sms.isBusy() || !canSendSms(m_session, m_home))
        return;
    if (const QList<qint64> waiting = waitingMessages(m_session); !waiting.isEmpty())
        m_sms.sendWaiting(waiting);
}

/// Only of money: what came late, and what surely did not come.
void GatewayWatch::tell(const QList<WalletResult> &settled) {
    QStringList lines;
    for (const WalletResult &result : settled)
        lines << (result.isTakenTwice
                      ? result.words
                      : QStringLiteral("单据%1，金额%2：%3")
                            .arg(result.number, result.amount.toText(2),
                                 result.words.section(QStringLiteral("\r\n"), 0, 0)));
    if (!lines.isEmpty())
        m_prompter.inform(QStringLiteral("结果未知的移动支付已经查明：\r\n\r\n") +
                              lines.join(QStringLiteral("\r\n")),
                          informCaption);
}

} // namespace jxc
