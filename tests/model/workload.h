#pragma once

#include "core/action.h"
#include "core/session.h"
#include "model/drafts.h"

#include <QStringList>

namespace jxc::test {

/// A shop in which everything happens at random: documents of every kind are typed, approved, taken
/// back and approved again, goods come and go later, rests are closed, partners pay. Every action
/// runs through the program and through the reference.
class Workload {
public:
    /// Sets up goods, partners, parameters and opening stock in the account set.
    Workload(quint32 seed, Database &db);

    /// One action. What differed between program and reference, or nothing.
    [[nodiscard]] QString step();
    /// What the program's own verification finds wrong; nothing, or it cries wolf.
    [[nodiscard]] QString verify();
    /// Takes back every document that can be, so that the books end as they began.
    [[nodiscard]] QString takeAllBack();

    /// The actions so far, the last ones of which explain a difference.
    [[nodiscard]] const QStringList &trail() const { return m_trail; }
    [[nodiscard]] QString parametersText() const;

private:
    using Action = std::function<Outcome(Session &, Prompter &)>;

    void chooseParameters();
    void setUpShop();
    void addOpeningStock(const QString &goods, const QString &warehouse);

    [[nodiscard]] QString compare(const QString &what, const Action &program,
                                  const std::function<Verdict()> &reference);
    [[nodiscard]] QString approve(const QString &number);
    [[nodiscard]] QString cancel(const QString &number);
    [[nodiscard]] QString closeRest();
    [[nodiscard]] QString approveOrCancelAny();
    [[nodiscard]] QString askForCosts();
    [[nodiscard]] QString removeDraft();

    Database &m_db;
    FixedClock m_clock;
    Session m_session;
    ReferenceBooks m_books;
    Chance m_chance;
    Drafts m_drafts;
    Decimal m_openingStock;
    QStringList m_trail;
};

} // namespace jxc::test
