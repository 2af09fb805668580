#pragma once

#include "core/action.h"

#include <vector>

namespace jxc {

class Session;

/// Whom a reminder is for when it is for everybody.
inline const QString everybody = QStringLiteral("全体人员");

/// When a reminder is due.
enum class ReminderWay { atStart = 1, onDate = 2, weekly = 3, monthly = 4 };

/// "程序启动时", "指定日期", "每周", "每月".
[[nodiscard]] QString wordOf(ReminderWay way);

struct Reminder {
    qint64 id = 0;
    QString audience; ///< an operator's name, or everybody
    ReminderWay way = ReminderWay::atStart;
    /// By the way: the words "程序启动时"; a date; weekdays 1 (Sunday) to 7; days "01" to "31".
    /// Several of them are parted by commas.
    QString when;
    QString note;
    QString author;
    QString enteredAt;
    bool done = false; ///< of those on a date
};

/// What the current operator is reminded of today: at every start, once on a date, on weekdays, on
/// days of the month. The days are looked for as a part of the text, deliberately.
[[nodiscard]] std::vector<Reminder> dueReminders(const Session &session);
/// Notes that the due reminders have been shown; those on a date are not shown again.
Outcome markDueReminders(const Session &session, Prompter &prompter);

/// The operator's own reminders, newest first; the administrator's role sees all.
[[nodiscard]] std::vector<Reminder> listReminders(const Session &session);
/// Adds (id 0) or changes one. Refuses what cannot come due.
Outcome saveReminder(const Session &session, Prompter &prompter, const Reminder &reminder);
/// Asks first.
Outcome deleteReminder(const Session &session, Prompter &prompter, qint64 id);

/// Whether the window of reminders and that of tips open at the start. The two switches mean the
/// opposite of each other where they are kept, deliberately: "0" shows the one, "1" the other.
[[nodiscard]] bool showsRemindersAtStart(const Session &session);
[[nodiscard]] bool showsTipsAtStart(const Session &session);
Outcome setRemindersAtStart(const Session &session, Prompter &prompter, bool shown);
Outcome setTipsAtStart(const Session &session, Prompter &prompter, bool shown);

} // namespace jxc
