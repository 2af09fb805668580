#pragma once

#include "core/session.h"
#include "stock/draft.h"
#include "support/recording_prompter.h"
#include "support/test_database.h"

#include <QMap>

namespace jxc::test {

/// The content of every table, as one hash each. What a connection sees that has not committed is
/// in its own digest only.
using Digest = QMap<QString, QByteArray>;
[[nodiscard]] Digest digestOf(Database &db);
/// The tables whose content differs, for the message of a check that fails.
[[nodiscard]] QString differing(const Digest &a, const Digest &b);
/// The differences that the books' check finds, one a line; empty when the books are right.
[[nodiscard]] QString faultsOf(Database &db);

/// A small shop whose documents are made to fail: three goods, one supplier, customer and
/// warehouse, and a day of trade before.
class FaultShop {
public:
    explicit FaultShop(Engine engine);

    [[nodiscard]] Database &db() { return m_place.db(); }
    /// Another workstation's connection: sees only what was committed.
    [[nodiscard]] Database &witness() { return *m_witness; }
    [[nodiscard]] Session &session() { return m_session; }
    [[nodiscard]] Prompter &yes() { return m_yes; }
    [[nodiscard]] QString url() const { return m_place.url(); }
    [[nodiscard]] TestDatabase &place() { return m_place; }

    /// A draft of three lines in two batches; part of it is paid, the rest owed.
    [[nodiscard]] Draft draft(const QString &code) const;
    /// Stores a draft and answers its number.
    QString save(const Draft &draft);
    QString save(const QString &code) { return save(draft(code)); }
    QString post(const Draft &draft);
    /// A receipt (SK) or payment (FK) of a part of the debts, as a draft.
    QString saveSettlement(const QString &code);
    /// A draft of any stock kind, ready to be approved; goods in and out get their source.
    QString prepare(const QString &code);

    /// Of documents with and without goods.
    Outcome approve(const QString &number);
    Outcome cancel(const QString &number);
    [[nodiscard]] bool isApproved(const QString &number);

    static void demand(const Outcome &outcome);

private:
    TestDatabase m_place;
    std::unique_ptr<Database> m_witness;
    FixedClock m_clock;
    Session m_session;
    RecordingPrompter m_yes{true};
};

} // namespace jxc::test
