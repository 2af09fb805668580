#pragma once

#include "master/master_kind.h"
#include "master/record.h"
#include "services/import.h"

#include <QHash>
#include <QSet>

namespace jxc {

/// Writes the rows of an import, inside its transaction: new ones all together at the end, changes
/// one by one.
class ImportWriter {
public:
    ImportWriter(Session &session, const ImportTarget &target);

    /// Tells which numbers the file gives, before any row is added.
    void expectNumbers(const std::vector<ImportRow> &rows);
    /// Throws Refusal when the row cannot be taken; nothing of it is written then.
    void add(const ImportRow &row);
    void update(const ImportRow &row);
    /// Writes what was added.
    void finish();

private:
    void fill(Record &record, const ImportRow &row);
    void fillPicked(Record &record, const MasterField &field, const QString &name);
    [[nodiscard]] QString listed(const MasterField &field, const QString &name);
    [[nodiscard]] QString nextCode();
    [[nodiscard]] QString nextNumber();
    void openBalances(const std::vector<Record> &records);

    Session &m_session;
    const MasterKind &m_kind;
    const MasterField *m_opening = nullptr; ///< kept by the ledger; null for goods
    Record m_proposed;                      ///< a new row as the editor begins it
    bool m_drawsBarcodes = false;
    QString m_lastCode, m_lastNumber;
    QSet<QString> m_usedCodes, m_givenNumbers;
    QHash<QString, Record> m_followed; ///< what follows from a picked name, by field and name
    std::vector<Record> m_added;
};

} // namespace jxc
