#include "money/partner_opening.h"

#include "core/session.h"
#include "master/master_kind.h"

#include <stdexcept>

namespace jxc {

namespace {

const QString openingCode = QStringLiteral("QC");

Partner partnerOf(const MasterKind &kind, const Record &record) {
    return {kind.table == QLatin1String("jxc_khxx") ? Partner::Kind::customer
                                                    : Partner::Kind::supplier,
            record.text(kind.codeColumn)};
}

const MasterField &openingField(const MasterKind &kind) {
    for (const MasterField &field : kind.fields)
        if (field.keptByLedger)
            return field;
    throw std::logic_error("no opening balance: " + kind.table.toStdString());
}

std::optional<Row> openingRow(Database &db, const Partner &partner) {
    return db.row(QStringLiteral("select k_rq,k_qcje from jxc_ysyfk where k_type=? and k_ghskh=? "
                                 "and k_djlx=? order by id"),
                  {partner.type(), partner.number, openingCode});
}

void replaceOpening(Session &session, const Partner &partner, Decimal amount) {
    Database &db = session.db();
    const auto before = openingRow(db, partner);
    const QString day = before ? before->text(u"k_rq") : session.today();
    db.execute(QStringLiteral("delete from jxc_ysyfk where k_type=? and k_ghskh=? and k_djlx=?"),
               {partner.type(), partner.number, openingCode});
    if (amount.isZero()) {
        RecomputePartnerBalance(db, partner, day);
        return;
    }
    PartnerEntry entry;
    entry.partner = partner;
    entry.date = day;
    entry.opening = amount;
    entry.kindCode = openingCode;
    entry.kindText = QStringLiteral("期初数");
    entry.operatorName = session.currentOperatorName;
    addPartnerEntry(db, entry);
}

} // namespace

bool openingIsOpen(Database &db, const Partner &partner) {
    return !db.exists(QStringLiteral("select id from jxc_ysyfk where k_type=? and k_ghskh=? and "
                                     "coalesce(k_djlx,'')<>? limit 1"),
                      {partner.type(), partner.number, openingCode});
}

std::optional<Record> loadPartner(const Session &session, const MasterKind &kind, qint64 id) {
    auto record = loadRecord(session, kind, id);
    if (!record)
        return record;
    const Partner partner = partnerOf(kind, *record);
    // A debt of older books that stands in the partner's own row alone is its opening too.
    const auto opening = openingRow(session.db(), partner);
    const QString column = openingField(kind).column;
    if (opening)
        record->set(column, opening->decimal(u"k_qcje").toText());
    else if (!openingIsOpen(session.db(), partner))
        record->set(column, QStringLiteral("0"));
    record->settle();
    return record;
}

void savePartnerInTransaction(Session &session, const MasterKind &kind, Record &record) {
    Record work = record;
    const MasterField &field = openingField(kind);
    const bool wasNew = work.isNew();
    const QString before = work.stored(field.column);
    saveRecordInTransaction(session, kind, work);
    const Partner partner = partnerOf(kind, work);
    const Decimal amount = work.decimal(field.column);
    if (wasNew ? !amount.isZero() : amount != Decimal::fromText(before)) {
        if (!openingIsOpen(session.db(), partner))
            throw FieldRefusal(
                field.column,
                QStringLiteral("该%1已有业务发生，不能修改%2！").arg(kind.noun, field.caption));
        replaceOpening(session, partner, amount);
    }
    record = work;
}

Outcome savePartner(Session &session, Prompter &prompter, const MasterKind &kind, Record &record,
                    QString *field) {
    Record saved;
    Outcome outcome = runFieldAction(session.db(), prompter, field, [&](Answers &) {
        saved = record; // the action may run more than once
        savePartnerInTransaction(session, kind, saved);
    });
    if (outcome.isDone())
        record = saved;
    return outcome;
}

} // namespace jxc
