#include "services/reminders.h"

#include "base/dates.h"
#include "base/sanitize.h"
#include "core/session.h"

#include <algorithm>

namespace jxc {

namespace {

const QString changedElsewhere = QStringLiteral("该记录已被其他操作员修改，请刷新后重试！");
const QString everyStart = QStringLiteral("程序启动时");

QString dueCondition() {
    return QStringLiteral("(tx_dx='全体人员' or tx_dx=?) and (tx_sj='程序启动时' or (tx_sj=? and "
                          "tx_zt='0') or (tx_sj like ? and tx_fs=4) or (tx_sj like ? and "
                          "tx_fs=3))");
}

Values dueValues(const Session &session) {
    const QDate today = session.now().date();
    const int weekday = today.dayOfWeek() % 7 + 1; // Sunday is 1
    return {session.currentOperatorName, session.today(),
            QString(u'%' + session.today().right(2) + u'%'),
            QString(u'%' + QString::number(weekday) + u'%')};
}

Reminder reminderOf(const Row &row) {
    return {row.integer(u"id"),
            row.text(u"tx_dx"),
            static_cast<ReminderWay>(std::clamp<qint64>(row.integer(u"tx_fs"), 1, 4)),
            row.text(u"tx_sj"),
            row.text(u"tx_note"),
            row.text(u"a_name"),
            row.text(u"tx_tjsj"),
            row.text(u"tx_zt") == u"1"};
}

std::vector<Reminder> select(const Session &session, const QString &where, const Values &values) {
    std::vector<Reminder> found;
    for (const Row &row : session.db().rows(
             QStringLiteral("select * from jxc_tx where %1 order by id desc").arg(where), values))
        found.push_back(reminderOf(row));
    return found;
}

/// Every part of "1,3" a number of that range, written with so many digits.
bool areNumbers(const QString &text, int digits, int highest) {
    const QStringList parts = text.split(u',');
    return std::ranges::all_of(parts, [&](const QString &part) {
        bool isNumber = false;
        const int number = part.toInt(&isNumber);
        return isNumber && part.size() == digits && number >= 1 && number <= highest;
    });
}

QString checkedTime(const Reminder &reminder) {
    QString when = reminder.when.simplified().remove(u' ');
    when.replace(u'，', u',');
    switch (reminder.way) {
    case ReminderWay::atStart:
        return everyStart;
    case ReminderWay::onDate:
        if (isDate(when))
            return when;
        break;
    case ReminderWay::weekly:
        if (areNumbers(when, 1, 7))
            return when;
        break;
    case ReminderWay::monthly:
        if (areNumbers(when, 2, 31))
            return when;
        break;
    }
    throw Refusal(when.isEmpty() ? QStringLiteral("提醒时间必须填写！")
                                 : QStringLiteral("提醒时间格式不正确！"));
}

Assignments assignments(const Reminder &reminder) {
    if (reminder.audience.isEmpty())
        throw Refusal(QStringLiteral("提醒对象必须填写！"));
    const QString when = checkedTime(reminder);
    const QString note = sanitizeSqlText(reminder.note.trimmed());
    if (note.isEmpty())
        throw Refusal(QStringLiteral("备注必须填写！"));
    return {{QStringLiteral("tx_dx"), reminder.audience},
            {QStringLiteral("tx_fs"), static_cast<int>(reminder.way)},
            {QStringLiteral("tx_fstxt"), wordOf(reminder.way)},
            {QStringLiteral("tx_sj"), when},
            {QStringLiteral("tx_note"), note},
            {QStringLiteral("tx_zt"), QStringLiteral("0")}};
}

/// The administrator's role changes all reminders, another one his own.
QString ownCondition(const Session &session) {
    return session.currentRoleNo == administratorNo ? QStringLiteral("1=1 or a_name=?")
                                                    : QStringLiteral("a_name=?");
}

Outcome setSwitch(const Session &session, Prompter &prompter, const QString &column,
                  const QString &value) {
    Database &db = session.db();
    return runAction(db, prompter, [&](Answers &) {
        if (db.execute(QStringLiteral("update jxc_txdisp set %1=?").arg(column), {value}) > 0)
            return;
        db.insertRow(QStringLiteral("jxc_txdisp"),
                     {{QStringLiteral("t_mryt"), u"0"}, {QStringLiteral("t_sjtx"), u"1"}});
        db.execute(QStringLiteral("update jxc_txdisp set %1=?").arg(column), {value});
    });
}

} // namespace

QString wordOf(ReminderWay way) {
    switch (way) {
    case ReminderWay::atStart:
        return everyStart;
    case ReminderWay::onDate:
        return QStringLiteral("指定日期");
    case ReminderWay::weekly:
        return QStringLiteral("每周");
    case ReminderWay::monthly:
        return QStringLiteral("每月");
    }
    return {};
}

std::vector<Reminder> dueReminders(const Session &session) {
    return select(session, dueCondition(), dueValues(session));
}

Outcome markDueReminders(const Session &session, Prompter &prompter) {
    return runAction(session.db(), prompter, [&](Answers &) {
        session.db().execute(QStringLiteral("update jxc_tx set tx_zt='1' where ") + dueCondition(),
                             dueValues(session));
    });
}

std::vector<Reminder> listReminders(const Session &session) {
    return select(session, ownCondition(session), {session.currentOperatorName});
}

Outcome saveReminder(const Session &session, Prompter &prompter, const Reminder &reminder) {
    Database &db = session.db();
    return runAction(db, prompter, [&](Answers &) {
        Assignments row = assignments(reminder);
        if (reminder.id == 0) {
            row.push_back({QStringLiteral("tx_tjsj"), session.timeStamp()});
            row.push_back({QStringLiteral("a_name"), session.currentOperatorName});
            db.insertRow(QStringLiteral("jxc_tx"), row);
            return;
        }
        if (db.updateRows(QStringLiteral("jxc_tx"), row,
                          QStringLiteral("id=? and (%1)").arg(ownCondition(session)),
                          {reminder.id, session.currentOperatorName}) == 0)
            throw Refusal(changedElsewhere);
    });
}

Outcome deleteReminder(const Session &session, Prompter &prompter, qint64 id) {
    Database &db = session.db();
    return runAction(db, prompter, [&](Answers &answers) {
        const auto row = db.row(QStringLiteral("select tx_note from jxc_tx where id=? and (%1)")
                                    .arg(ownCondition(session)),
                                {id, session.currentOperatorName});
        if (!row)
            throw Refusal(changedElsewhere);
        answers.require(
            QStringLiteral("您的操作将删除提醒：%1，确认吗？").arg(row->text(u"tx_note")));
        db.execute(QStringLiteral("delete from jxc_tx where id=?"), {id});
    });
}

bool showsRemindersAtStart(const Session &session) {
    return session.db().exists(QStringLiteral("select t_sjtx from jxc_txdisp where t_sjtx='0'"));
}

bool showsTipsAtStart(const Session &session) {
    return session.db().exists(QStringLiteral("select t_mryt from jxc_txdisp where t_mryt='1'"));
}

Outcome setRemindersAtStart(const Session &session, Prompter &prompter, bool shown) {
    return setSwitch(session, prompter, QStringLiteral("t_sjtx"), shown ? u"0"_qs : u"1"_qs);
}

Outcome setTipsAtStart(const Session &session, Prompter &prompter, bool shown) {
    return setSwitch(session, prompter, QStringLiteral("t_mryt"), shown ? u"1"_qs : u"0"_qs);
}

} // namespace jxc
