#include "retail/wallet_gateway.h"

#include "core/session.h"
#include "retail/gateway_settings.h"

#include <QDir>
#include <QSaveFile>

namespace jxc {

namespace {

const QByteArray xmlType = QByteArrayLiteral("text/xml; charset=UTF-8");

/// What is to be written down when no answer can be read.
WalletVerdict verdictWithoutAnswer(const GatewayReply &reply) {
    const bool isSent = reply.fate != GatewayReply::Fate::notSent;
    WalletVerdict verdict;
    verdict.state = isSent ? WalletState::open : WalletState::unpaid;
    verdict.code = isSent ? walletOpenCode : walletNotSentCode;
    verdict.note = reply.error.isEmpty() ? QStringLiteral("平台的应答不能识别") : reply.error;
    verdict.words = QStringLiteral("错误提示: ") + verdict.note;
    if (isSent)
        verdict.words += QStringLiteral("\r\n\r\n需要查询");
    return verdict;
}

} // namespace

WalletGateway::WalletGateway(Session &session, Prompter &prompter, QString home, QObject *parent)
    : QObject(parent)
    , m_session(session)
    , m_prompter(prompter)
    , m_home(std::move(home)) {
    connect(this, &WalletGateway::finished, this, [this](const WalletResult &result) {
        if (m_isResolving && result.isChanged)
            m_settled << result;
    });
}

bool WalletGateway::pay(const WalletOrder &order) {
    if (m_isBusy)
        return false;
    m_isBusy = true;
    const QUrl url = address(order.number);
    if (url.isEmpty())
        return true;
    WalletAttempt attempt;
    const Outcome outcome = beginPayment(m_session, m_prompter, order, &attempt);
    if (!outcome.isDone()) {
        refuse(order.number, outcome.text);
        return true;
    }
    send(url, attempt,
         payFields(attempt.merchant, order, m_session.company.name, m_session.currentLocalIp,
                   randomToken32()),
         judgePayment, recordPayment);
    return true;
}

bool WalletGateway::query(const QString &number) {
    if (m_isBusy)
        return false;
    m_isBusy = true;
    const QUrl url = address(number);
    if (url.isEmpty())
        return true;
    WalletAttempt attempt;
    const Outcome outcome = beginQuery(m_session, m_prompter, number, &attempt);
    if (!outcome.isDone()) {
        refuse(number, outcome.text);
        return true;
    }
    send(url, attempt, queryFields(attempt.merchant, number, randomToken32()), judgeQuery,
         recordQuery);
    return true;
}

QUrl WalletGateway::address(const QString &number) {
    try {
        return paymentUrl(loadGatewaySettings(m_home));
    } catch (const Refusal &refusal) {
        refuse(number, refusal.text());
        return {};
    }
}

void WalletGateway::send(const QUrl &url, const WalletAttempt &attempt,
                         const QList<NameValue> &fields, Judge judge, Recorder record) {
    const QByteArray xml = walletXml(fields, attempt.merchant.key);
    keepCopy(attempt.number, xml);
    m_http.post(url, xmlType, xml, [this, attempt, judge, record](const GatewayReply &reply) {
        receive(attempt, reply, judge, record);
    });
}

void WalletGateway::receive(const WalletAttempt &attempt, const GatewayReply &reply, Judge judge,
                            Recorder record) {
    std::optional<WalletAnswer> answer;
    if (reply.fate == GatewayReply::Fate::answered)
        answer = WalletAnswer::parse(reply.body);
    const WalletVerdict verdict = answer ? judge(*answer, {attempt.merchant.number, attempt.number,
                                                           attempt.merchant.key, attempt.amount})
                                         : verdictWithoutAnswer(reply);
    WalletResult result;
    const Outcome outcome =
        record(m_session, m_prompter, attempt, verdict, answer ? &*answer : nullptr, &result);
    if (!outcome.isDone()) { // the payment stays open in the books, and is asked for again
        result = {};
        result.number = attempt.number;
        result.amount = attempt.amount;
        result.words =
            verdict.words + QStringLiteral("\r\n\r\n结果没有记录，需要查询：") + outcome.text;
    }
    m_isBusy = false;
    Q_EMIT finished(result);
    if (m_isResolving)
        resolveNext();
}

/// Told later, as every answer is, so that who asks need not be ready for it yet.
void WalletGateway::refuse(const QString &number, const QString &text) {
    WalletResult result;
    result.state = WalletState::refused;
    result.number = number;
    result.words = text;
    const auto tell = [this, result] {
        m_isBusy = false;
        Q_EMIT finished(result);
        if (m_isResolving)
            resolveNext();
    };
    QMetaObject::invokeMethod(this, tell, Qt::QueuedConnection);
}

/// For a talk with the provider about a payment. The code in it has been used by then; nobody but
/// the owner reads it all the same.
void WalletGateway::keepCopy(const QString &number, const QByteArray &xml) const {
    const QDir folder(QDir(m_home).filePath(QStringLiteral("tmp")));
    QSaveFile file(folder.filePath(number + QStringLiteral(".xml")));
    const bool isKept = folder.mkpath(QStringLiteral(".")) && file.open(QIODevice::WriteOnly) &&
                        file.setPermissions(QFile::ReadOwner | QFile::WriteOwner) &&
                        file.write(xml) == xml.size() && file.commit();
    if (!isKept) // a full disk must not keep a customer waiting
        qWarning("%s cannot be written", qPrintable(file.fileName()));
}

void WalletGateway::resolveOpen() {
    if (m_isBusy || m_isResolving)
        return;
    m_toResolve = openPayments(m_session);
    m_settled.clear();
    m_isResolving = true;
    resolveNext();
}

void WalletGateway::resolveNext() {
    if (m_toResolve.isEmpty()) {
        m_isResolving = false;
        Q_EMIT allResolved(m_settled);
        return;
    }
    if (!query(m_toResolve.takeFirst()))
        m_isResolving = false; // somebody pays meanwhile; the next start asks again
}

} // namespace jxc
