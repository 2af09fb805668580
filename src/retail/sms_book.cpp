#include "retail/sms_book.h"

#include "base/dates.h"
#include "core/numbering.h"
#include "core/operation_log.h"
#include "core/session.h"
#include "db/like.h"
#include "db/schema.h"
#include "db/where.h"
#include "retail/sms_settings.h"
#include "retail/sms_text.h"

namespace jxc {

namespace {

const QString messages = QStringLiteral("jxc_smshy");
const QString isWaiting = QStringLiteral("coalesce(sms_rq,'')=''");
/// So many members are read with one statement.
constexpr qsizetype batchOfMembers = 500;

QString nextNumber(const Session &session) {
    return newDocNumber(session, messages, QStringLiteral("gl_djh"), QStringLiteral("SM"));
}

SmsSettings demandSettings(Database &db) {
    SmsSettings settings = loadSmsSettings(db);
    if (!settings.isComplete())
        throw Refusal(QStringLiteral("您还没有定义短信参数，\r\n\r\n"
                                     "请在“已发短信”界面定义短信参数！"));
    if (!isSmsOn(db))
        throw Refusal(QStringLiteral("短信通知没有启用，请在系统设置中启用！"));
    return settings;
}

Rows membersOf(Database &db, const QStringList &members) {
    Rows all;
    for (qsizetype i = 0; i < members.size(); i += batchOfMembers) {
        Where where;
        where.addOneOf(QStringLiteral("hy_sn"), members.mid(i, batchOfMembers));
        Rows some =
            db.rows(QStringLiteral("select hy_sn,hy_bh,hy_name,hy_sr,hy_mobile,hy_zhje,hy_jf from "
                                   "jxc_hyxx where %1 order by id")
                        .arg(where.text()),
                    where.values());
        std::move(some.begin(), some.end(), std::back_inserter(all));
    }
    return all;
}

/// The message for a member, if it fits the column that keeps it.
QString messageFor(const Row &member, const QString &text, const QString &sign) {
    const QString message = withSmsSign(fillSmsTemplate(text, smsPlaceholders(member)), sign);
    const int width = column(messages, QStringLiteral("sms_note"))->length;
    if (message.size() > width)
        throw Refusal(QStringLiteral("会员“%1”的短信有%2个字，最多%3个字！")
                          .arg(member.text(u"hy_name"))
                          .arg(message.size())
                          .arg(width));
    return message;
}

} // namespace

Outcome recordSmsBatch(Session &session, Prompter &prompter, const QString &text,
                       const QStringList &members, SmsBatch *batch) {
    return runAction(session.db(), prompter, [&](Answers &) {
        *batch = {};
        const SmsSettings settings = demandSettings(session.db());
        if (text.trimmed().isEmpty())
            throw Refusal(QStringLiteral("短信内容必须填写！"));
        if (members.isEmpty())
            throw Refusal(QStringLiteral("请先选择会员！"));
        batch->number = nextNumber(session);
        std::vector<Values> rows;
        for (const Row &member : membersOf(session.db(), members)) {
            if (member.text(u"hy_mobile").trimmed().isEmpty()) {
                ++batch->withoutMobile;
                continue;
            }
            rows.push_back({batch->number, member.text(u"hy_sn"),
                            member.text(u"hy_mobile").trimmed(), QString(),
                            messageFor(member, text, settings.sign), session.currentOperatorName});
        }
        if (rows.empty())
            throw Refusal(QStringLiteral("选中的会员都没有手机号码！"));
        session.db().insertRow(QStringLiteral("jxc_sms"),
                               {{QStringLiteral("gl_djh"), batch->number},
                                {QStringLiteral("sms_rq"), session.today()},
                                {QStringLiteral("sms_note"), text},
                                {QStringLiteral("a_name"), session.currentOperatorName}});
        for (const qint64 id : session.db().insertRows(
                 messages,
                 {QStringLiteral("gl_djh"), QStringLiteral("hy_sn"), QStringLiteral("hy_mobile"),
                  QStringLiteral("sms_rq"), QStringLiteral("sms_note"), QStringLiteral("a_name")},
                 rows))
            batch->ids << id;
        writeLog(
            session,
            QStringLiteral("增加短信单%1，共%2个会员").arg(batch->number).arg(batch->ids.size()));
    });
}

Outcome recordResend(Session &session, Prompter &prompter, qint64 id, qint64 *copy) {
    return runAction(session.db(), prompter, [&](Answers &answers) {
        demandSettings(session.db());
        const auto row = session.db().row(
            QStringLiteral("select s.sms_rq,s.hy_mobile,h.hy_name from jxc_smshy s left join "
                           "jxc_hyxx h on h.hy_sn=s.hy_sn where s.id=?"),
            {id});
        if (!row)
            throw Refusal(QStringLiteral("该短信已被删除！"));
        const QString name = row->text(u"hy_name");
        answers.require(QStringLiteral("您的操作将重新发送会员：‘%1’短信信息，确认吗？")
                            .arg(name.isEmpty() ? row->text(u"hy_mobile") : name));
        *copy = id;
        if (row->text(u"sms_rq").isEmpty())
            return;
        session.db().execute(
            QStringLiteral("insert into jxc_smshy (gl_djh,hy_sn,hy_mobile,sms_rq,sms_note,a_name) "
                           "select ?,hy_sn,hy_mobile,'',sms_note,? from jxc_smshy where id=?"),
            {nextNumber(session), session.currentOperatorName, id});
        *copy = session.db().scalar(QStringLiteral("select max(id) from jxc_smshy")).toLongLong();
    });
}

Rows sentMessages(const Session &session, const QString &from, const QString &to,
                  const QString &search) {
    Where where;
    where.add(QStringLiteral("((s.sms_rq>=? and s.sms_rq<=?) or coalesce(s.sms_rq,'')='')"),
              {from, to + QStringLiteral(" 23:59:59")});
    if (!search.isEmpty()) {
        QStringList parts;
        for (const char *name : {"s.gl_djh", "h.hy_bh", "h.hy_name", "s.hy_mobile", "s.sms_note"})
            parts << contains(QString::fromLatin1(name));
        where.add(u'(' + parts.join(QStringLiteral(" or ")) + u')',
                  Values(static_cast<size_t>(parts.size()), containsPattern(search)));
    }
    return session.db().rows(
        QStringLiteral("select s.id,coalesce(s.sms_rq,'') as sms_rq,s.gl_djh,h.hy_bh,h.hy_name,"
                       "s.hy_mobile,s.sms_note,s.a_name from jxc_smshy s left join jxc_hyxx h on "
                       "h.hy_sn=s.hy_sn where %1 order by s.id desc")
            .arg(where.text()),
        where.values());
}

QList<qint64> waitingMessages(const Session &session) {
    const QString yesterday = dateDigits(toDateText(session.now().date().addDays(-1)));
    QList<qint64> ids;
    for (const Row &row : session.db().rows(
             QStringLiteral("select id from jxc_smshy where %1 and substr(gl_djh,3,6)>=? "
                            "order by id")
                 .arg(isWaiting),
             {yesterday}))
        ids << row.integer(u"id");
    return ids;
}

std::optional<SmsMessage> takeWaiting(Session &session, Prompter &prompter, qint64 id) {
    std::optional<SmsMessage> message;
    const Outcome outcome = runAction(session.db(), prompter, [&](Answers &) {
        message.reset();
        const QString stamp = session.timeStamp();
        const auto row = session.db().row(
            QStringLiteral("select hy_mobile,sms_note from jxc_smshy where id=? and %1")
                .arg(isWaiting),
            {id});
        if (!row)
            return;
        session.db().execute(QStringLiteral("update jxc_smshy set sms_rq=? where id=?"),
                             {stamp, id});
        message = SmsMessage{row->text(u"hy_mobile"), row->text(u"sms_note"), stamp};
    });
    return outcome.isDone() ? message : std::nullopt;
}

void putBack(Session &session, Prompter &prompter, qint64 id, const SmsMessage &message) {
    runAction(session.db(), prompter, [&](Answers &) {
        session.db().execute(
            QStringLiteral("update jxc_smshy set sms_rq='' where id=? and sms_rq=?"),
            {id, message.stamp});
    });
}

} // namespace jxc
