#include "services/import_writer.h"

#include "core/session.h"
#include "db/database.h"
#include "master/barcodes.h"
#include "master/record_checks.h"
#include "master/record_values.h"
#include "money/partner_opening.h"
#include "services/import_check.h"

namespace jxc {

namespace {

const QString barcode = QStringLiteral("g_sptm");

bool isTypedField(const MasterField &field) {
    return !field.readOnly && !field.keptByLedger;
}

/// The next number of the same width: "28000009" to "28000010".
QString successor(const QString &code) {
    return QString::number(code.toLongLong() + 1).rightJustified(code.size(), u'0');
}

} // namespace

ImportWriter::ImportWriter(Session &session, const ImportTarget &target)
    : m_session(session)
    , m_kind(masterKind(target.table))
    , m_proposed(newRecord(session, m_kind)) {
    for (const MasterField &field : m_kind.fields)
        if (field.keptByLedger)
            m_opening = &field;
    Database &db = session.db();
    m_drawsBarcodes = m_kind.field(barcode) != nullptr && BarcodeRules::load(db).automatic;
    for (const Row &row :
         db.rows(QStringLiteral("select %1 from %2").arg(m_kind.codeColumn, m_kind.table)))
        m_usedCodes.insert(row.text(size_t{0}));
}

void ImportWriter::add(const ImportRow &row) {
    Record record = m_proposed;
    record.set(m_kind.codeColumn, {});
    fill(record, row);
    if (record.text(m_kind.codeColumn).isEmpty())
        record.set(m_kind.codeColumn, nextCode());
    m_usedCodes.insert(record.text(m_kind.codeColumn));
    if (!m_kind.numberColumn.isEmpty() && !row.values.contains(m_kind.numberColumn))
        record.set(m_kind.numberColumn, nextNumber());
    if (m_drawsBarcodes && record.text(barcode).isEmpty())
        record.set(barcode, drawBarcode(m_session.db()));
    prepareRecord(m_session, m_kind, record);
    if (m_kind.check)
        m_kind.check(m_session, record);
    m_added.push_back(std::move(record));
}

void ImportWriter::update(const ImportRow &row) {
    auto record = loadRecord(m_session, m_kind, row.known);
    if (!record)
        throw recordChangedMeanwhile();
    fill(*record, row);
    prepareRecord(m_session, m_kind, *record);
    if (m_kind.check)
        m_kind.check(m_session, *record);
    Assignments changes;
    for (const MasterField &field : m_kind.fields)
        for (const QString &column : writtenColumns(m_kind, field))
            if (isTypedField(field) && !field.fixedOnceStored && record->isChanged(column))
                changes.push_back({column, fieldValue(m_kind.table, column, record->text(column))});
    if (!changes.empty())
        m_session.db().updateRows(m_kind.table, changes, QStringLiteral("id=?"), {row.known});
    if (m_opening == nullptr || !row.values.contains(m_opening->column))
        return;
    const Partner partner = openingPartner(m_kind, *record);
    if (openingIsOpen(m_session.db(), partner))
        replaceOpening(m_session, partner, Decimal::fromText(row.values.value(m_opening->column)));
}

void ImportWriter::finish() {
    if (m_added.empty())
        return;
    QStringList columns;
    std::vector<Values> rows;
    for (const Record &record : m_added) {
        Values values;
        columns.clear();
        for (const Assignment &assignment : newRow(m_kind, record)) {
            columns << assignment.column;
            values.push_back(assignment.value);
        }
        rows.push_back(std::move(values));
    }
    m_session.db().insertRows(m_kind.table, columns, rows);
    openBalances(std::exchange(m_added, {}));
}

void ImportWriter::openBalances(const std::vector<Record> &records) {
    if (m_opening == nullptr)
        return;
    for (const Record &record : records)
        if (const Decimal amount = record.decimal(m_opening->column); !amount.isZero())
            replaceOpening(m_session, openingPartner(m_kind, record), amount);
}

/// The values of the file, and what follows from them.
void ImportWriter::fill(Record &record, const ImportRow &row) {
    for (auto it = row.values.begin(); it != row.values.end(); ++it) {
        const MasterField &field = importedField(m_kind, it.key());
        if (field.pick.table.isEmpty())
            record.set(field.column, it.value());
        else
            fillPicked(record, field, it.value());
    }
}

void ImportWriter::fillPicked(Record &record, const MasterField &field, const QString &name) {
    const QString key = field.column + u'\n' + name;
    auto known = m_followed.find(key);
    if (known == m_followed.end()) {
        Record follows;
        follows.set(field.column, listed(field, name));
        if (!followPick(m_session.db(), field, follows))
            refuseField(field, QStringLiteral("不存在！"));
        known = m_followed.insert(key, follows);
    }
    for (const QString &column : writtenColumns(m_kind, field))
        record.set(column, known->text(column));
}

/// What the field stores for a name; a name that its list lacks is added there.
QString ImportWriter::listed(const MasterField &field, const QString &name) {
    const Pick &pick = field.pick;
    Database &db = m_session.db();
    const auto stored = [&] {
        return db.row(QStringLiteral("select %1 from %2 where %3=? order by id limit 1")
                          .arg(pick.valueColumn, pick.table, pick.nameColumn),
                      {name});
    };
    if (const auto row = stored())
        return row->text(size_t{0});
    const MasterKind &list = masterKind(pick.table);
    Record entry = newRecord(m_session, list);
    entry.set(list.nameColumn, name);
    saveRecordInTransaction(m_session, list, entry);
    return entry.text(pick.valueColumn);
}

/// Numbers that the file gives must not be drawn for rows without one.
QString ImportWriter::nextNumber() {
    const auto isTaken = [&](const QString &number) {
        return m_givenNumbers.contains(number) ||
               m_session.db().exists(QStringLiteral("select id from %1 where %2=?")
                                         .arg(m_kind.table, m_kind.numberColumn),
                                     {number});
    };
    do {
        m_lastNumber =
            m_lastNumber.isEmpty() ? m_proposed.text(m_kind.numberColumn) : successor(m_lastNumber);
    } while (isTaken(m_lastNumber));
    return m_lastNumber;
}

void ImportWriter::expectNumbers(const std::vector<ImportRow> &rows) {
    for (const ImportRow &row : rows)
        if (const auto given = row.values.constFind(m_kind.numberColumn);
            given != row.values.constEnd())
            m_givenNumbers.insert(*given);
}

/// The codes of the rows that are still to be written are not drawn again. Imported goods are all
/// of the proposed class, so one row of numbers does.
QString ImportWriter::nextCode() {
    m_lastCode = m_lastCode.isEmpty() ? m_proposed.text(m_kind.codeColumn) : successor(m_lastCode);
    while (m_usedCodes.contains(m_lastCode))
        m_lastCode = successor(m_lastCode);
    return m_lastCode;
}

} // namespace jxc
