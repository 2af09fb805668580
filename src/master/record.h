#pragma once

#include "base/decimal.h"
#include "core/action.h"

#include <QHash>
#include <QString>

namespace jxc {

struct MasterKind;
class Session;

/// One row of master data while it is edited: a text per column, as the editor's fields hold it.
/// Numbers are plain ("12.5"), flags "1" or "0", dates "yyyy-MM-dd". Empty numbers count as 0.
class Record {
public:
    qint64 id = 0; ///< 0: not stored yet

    [[nodiscard]] bool isNew() const { return id == 0; }
    [[nodiscard]] QString text(QStringView column) const {
        return m_values.value(column.toString());
    }
    /// Throws NumberError when the text is no number.
    [[nodiscard]] Decimal decimal(QStringView column) const {
        return Decimal::fromText(text(column));
    }
    [[nodiscard]] bool flag(QStringView column) const { return text(column) == u"1"; }
    void set(const QString &column, const QString &text) { m_values.insert(column, text); }

    /// As it was when it was loaded or last saved; empty for a new row.
    [[nodiscard]] QString stored(QStringView column) const {
        return m_stored.value(column.toString());
    }
    /// Whether anything was changed since then; of a new row: since it was proposed.
    [[nodiscard]] bool isChanged() const { return m_values != m_proposed; }
    [[nodiscard]] bool isChanged(QStringView column) const {
        return isNew() || text(column) != stored(column);
    }

    /// What stands there now is what is stored (or, for a new row, proposed).
    void settle();

private:
    QHash<QString, QString> m_values;
    QHash<QString, QString> m_stored;
    QHash<QString, QString> m_proposed;
};

/// A refusal that belongs to a field of the editor, which then gets the focus.
class FieldRefusal : public Refusal {
public:
    FieldRefusal(QString column, const QString &text)
        : Refusal(text)
        , m_column(std::move(column)) {}
    [[nodiscard]] const QString &column() const { return m_column; }

private:
    QString m_column;
};

/// What happened to the row meanwhile: "该记录已被其他操作员修改，请刷新后重试！".
[[nodiscard]] Refusal recordChangedMeanwhile();

/// A new row with the proposals of its fields and the code that it would get now.
[[nodiscard]] Record newRecord(const Session &session, const MasterKind &kind);
/// A new row with the values of a stored one, but its own code and no balances.
[[nodiscard]] Record copiedRecord(const Session &session, const MasterKind &kind,
                                  const Record &from);
/// The stored row with the names behind its codes; none when it is gone.
[[nodiscard]] std::optional<Record> loadRecord(const Session &session, const MasterKind &kind,
                                               qint64 id);
[[nodiscard]] std::optional<Record> loadRecordByCode(const Session &session, const MasterKind &kind,
                                                     const QString &code);

/// Saves a new or changed row as one action: sanitises, fills the mnemonic code, checks the fields
/// in their order, writes, clears the default flag of the other rows, keeps copies of the name up
/// to date, and logs. Done, the record holds what was stored. Refused by a field, `field` names its
/// column.
Outcome saveRecord(Session &session, Prompter &prompter, const MasterKind &kind, Record &record,
                   QString *field = nullptr);
/// The same inside a transaction that is already open. Throws FieldRefusal, Refusal.
void saveRecordInTransaction(Session &session, const MasterKind &kind, Record &record);

/// Runs an action whose body may throw FieldRefusal and tells which field refused.
Outcome runFieldAction(Database &db, Prompter &prompter, QString *field,
                       const std::function<void(Answers &)> &body);

/// Deletes a row with its satellites, after asking. Refuses protected rows and those that are in
/// use.
Outcome deleteRecord(Session &session, Prompter &prompter, const MasterKind &kind, qint64 id);
void deleteRecordInTransaction(Session &session, Answers &answers, const MasterKind &kind,
                               qint64 id);

} // namespace jxc
