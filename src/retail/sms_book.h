#pragma once

#include "core/action.h"

namespace jxc {

class Session;

/// A hand-made batch as it was written down.
struct SmsBatch {
    QString number;
    QList<qint64> ids;     ///< rows of jxc_smshy, waiting to be sent
    int withoutMobile = 0; ///< members left out because they have no number
};

/// Writes down a batch to members (their hy_sn), every message of it waiting (no sms_rq yet). Logs
/// it. Refused without the provider's parameters, while messages are switched off, without members
/// or text, and for a text that does not fit.
Outcome recordSmsBatch(Session &session, Prompter &prompter, const QString &text,
                       const QStringList &members, SmsBatch *batch);
/// Asks, and copies a sent message under a new number, waiting; one that still waits is its own
/// copy. `copy` is the row to send.
Outcome recordResend(Session &session, Prompter &prompter, qint64 id, qint64 *copy);

/// Messages of a span of days ("yyyy-MM-dd"), the newest first; those that still wait always.
[[nodiscard]] Rows sentMessages(const Session &session, const QString &from, const QString &to,
                                const QString &search);
/// Messages that still wait, of today's and yesterday's numbers: older news is none.
[[nodiscard]] QList<qint64> waitingMessages(const Session &session);

/// A message as it is sent.
struct SmsMessage {
    QString mobile, text;
    QString stamp; ///< sms_rq of the one who took it
};

/// Takes a waiting message for sending, so that no other workstation sends it too. Nothing when it
/// has been taken.
[[nodiscard]] std::optional<SmsMessage> takeWaiting(Session &session, Prompter &prompter,
                                                    qint64 id);
/// Lets a message that surely did not leave wait again.
void putBack(Session &session, Prompter &prompter, qint64 id, const SmsMessage &message);

} // namespace jxc
