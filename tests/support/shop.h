#pragma once

#include "core/action.h"
#include "core/clock.h"
#include "core/session.h"
#include "stock/draft.h"
#include "support/test_database.h"

#include <QStringList>
#include <functional>

namespace jxc::test {

/// Figures as they are written on paper: 3.33_d.
inline Decimal operator""_d(const char *text) {
    return Decimal::fromText(QString::fromLatin1(text));
}

/// A day of the month that all tests play in, "2026-03-05".
[[nodiscard]] QString day(int number);

/// Answers from a list, Yes once the list is used up, and keeps what was said.
class ScriptedPrompter : public Prompter {
public:
    void inform(const QString &text, const QString &) override { told << text; }
    bool confirm(const QString &text, const QString &) override {
        asked << text;
        return answers.isEmpty() ? true : answers.takeFirst();
    }
    /// What was asked since the last call.
    QStringList takeTold() { return std::exchange(told, {}); }
    QStringList takeAsked() { return std::exchange(asked, {}); }

    QList<bool> answers;
    QStringList told, asked;
};

/// A small shop on the engine of the running row. On the last day of March the administrator sits
/// at the till; the default supplier, customer, warehouse and clerk all bear the number 100001, and
/// a second warehouse is 100002.
class Shop {
public:
    Shop();

    TestDatabase place{currentEngine()};
    Database &db = place.db();
    FixedClock clock{QDateTime(QDate(2026, 3, 31), QTime(9, 0))};
    Session session{db, clock};
    ScriptedPrompter user;

    /// A goods counted in bottles, of no stock, no cost and no prices but those given.
    void addGoods(const QString &goods, const Assignments &more = {});
    /// A further unit of a goods: so many base units.
    void addUnit(const QString &goods, const QString &unit, Decimal factor,
                 const Assignments &more = {});
    void addCustomer(const QString &number, const QString &name, const QString &type);
    /// A member with nothing on the card but what is given, at the first level, without a password.
    void addCard(const QString &key, const QString &number, const Assignments &more = {});
    /// Sets a system parameter; the session has it at once.
    void set(const QString &parameter, const Value &value);
    /// The clerk 小王 in a session of his own; he has these rights of a group, and no other.
    Session clerk(const QString &group, const QList<int> &rights);

    /// Saves a draft; all of it is paid at once unless `more` says otherwise.
    QString save(const QString &code, const QString &date, const std::vector<DraftLine> &lines,
                 const std::function<void(Draft &)> &more = {});
    /// Saves and approves.
    QString post(const QString &code, const QString &date, const std::vector<DraftLine> &lines,
                 const std::function<void(Draft &)> &more = {});
    Outcome tryApprove(const QString &number);
    Outcome tryCancel(const QString &number);
    void approve(const QString &number) { demand(tryApprove(number)); }
    void cancel(const QString &number) { demand(tryCancel(number)); }
    /// Fills a goods-in (goods-out) document with what is open of a receipt (sale), for one
    /// quantity of the first line unless that is 0, and leaves it unapproved.
    QString follow(const QString &source, Decimal quantity = {});

    /// The figures of the first row, "10 5 -2.5"; empty when there is no row.
    [[nodiscard]] QString figures(const QString &sql, const Values &values = {});
    /// The texts of all rows, the columns parted by a bar.
    [[nodiscard]] QStringList texts(const QString &sql, const Values &values = {});
    /// Physical, book and sold quantity and cost of a goods in the main warehouse.
    [[nodiscard]] QString stock(const QString &goods);
    /// The newest line of the operation log.
    [[nodiscard]] QString lastLog();
    /// Every row of every table: what a refusal must leave as it is.
    [[nodiscard]] QStringList everything();

    /// Stops the test with the outcome's text unless it is done.
    static void demand(const Outcome &outcome);
};

/// Credit and later delivery, for Shop::save.
inline const std::function<void(Draft &)> onAccount = [](Draft &d) { d.paid = Decimal(); };
inline const std::function<void(Draft &)> laterOnAccount = [](Draft &d) {
    d.paid = Decimal();
    d.laterInOut = true;
};

} // namespace jxc::test
