#include "money/document_money.h"

#include "core/session.h"
#include "db/database.h"
#include "money/cash_journal.h"
#include "money/fees.h"
#include "money/invoice_register.h"

namespace jxc {

namespace {

QString freightNote(const QString &document, const QString &number) {
    return document + number + QStringLiteral("产生的运费");
}

QString packingNote(const QString &document, const QString &number) {
    return document + number + QStringLiteral("产生的包装费");
}

void postFee(Session &session, const Parameters &parameters, const DocumentMoney &m,
             const QString &kind, const QString &note, Decimal amount) {
    if (amount.isZero())
        return;
    refuseShortAccount(session.db(), parameters, QStringLiteral("现金"), -amount);
    addFee(session.db(), {kind, note, m.date, amount, m.clerkNo, m.clerkName, m.partner.number,
                          m.partnerName, m.warehouseName, m.operatorName});
}

} // namespace

void postDocumentMoney(Session &session, const Parameters &parameters, const DocumentMoney &m) {
    Database &db = session.db();
    if (!m.cash.isZero()) {
        refuseShortAccount(db, parameters, m.account, m.cash);
        addCashEntry(db, {m.account, m.date, m.number, m.cashKind, m.cash, m.partner.number,
                          m.partnerName, m.clerkName, m.warehouseName, m.note, m.operatorName});
    }
    addPartnerEntry(db, {m.partner,
                         m.number,
                         {},
                         m.date,
                         m.account,
                         {},
                         m.due,
                         m.settled,
                         m.discount,
                         m.kindCode,
                         m.kindText,
                         m.note,
                         m.clerkNo,
                         m.operatorName,
                         0});
    if (parameters.invoiceRegister)
        addInvoiceEntry(db, {m.partner, m.number, m.date, m.kindCode, m.kindText, m.due, m.invoiced,
                             m.invoiceNo, m.note, m.clerkNo, m.operatorName,
                             session.currentOperatorName, session.today()});
    postFee(session, parameters, m, QStringLiteral("运费"), freightNote(m.feeDocument, m.number),
            m.freight);
    postFee(session, parameters, m, QStringLiteral("包装费"), packingNote(m.feeDocument, m.number),
            m.packing);
}

void removeDocumentMoney(Session &session, const QString &number, const QString &feeDocument) {
    Database &db = session.db();
    QStringList feeNotes;
    if (!feeDocument.isEmpty())
        feeNotes = {freightNote(feeDocument, number), packingNote(feeDocument, number)};
    removeCashEntries(db, number, feeNotes);
    removeFees(db, feeNotes);
    removePartnerEntries(db, number);
    db.execute(QStringLiteral("delete from jxc_ysyfk_dj where gl_djh=?"), {number});
    // What a receipt or payment had settled on the document becomes an advance.
    db.execute(QStringLiteral("delete from jxc_fkmx where gl_djh=?"), {number});
    removeInvoiceEntries(db, number);
}

} // namespace jxc
