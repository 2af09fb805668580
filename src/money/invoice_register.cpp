#include "money/invoice_register.h"

#include "db/database.h"
#include "db/fitted.h"

namespace jxc {

void addInvoiceEntry(Database &db, const InvoiceEntry &entry) {
    const QString table = QStringLiteral("jxc_fpdjb");
    const bool written = !entry.invoiceNo.isEmpty() || !entry.invoiced.isZero();
    db.insertRow(table, {{QStringLiteral("gl_djh"), entry.number},
                         {QStringLiteral("fp_rq"), entry.date},
                         {QStringLiteral("fp_no"), entry.invoiceNo},
                         {QStringLiteral("fp_yfje"), entry.due},
                         {QStringLiteral("fp_sfje"), Decimal()},
                         {QStringLiteral("fp_kpje"), entry.invoiced},
                         {QStringLiteral("fp_qcje"), Decimal()},
                         {QStringLiteral("fp_ljje"), Decimal()},
                         {QStringLiteral("fp_flag"), 0},
                         {QStringLiteral("fp_type"), entry.partner.type()},
                         {QStringLiteral("fp_djlx"), entry.kindCode},
                         {QStringLiteral("fp_djtxt"), entry.kindText},
                         {QStringLiteral("fp_note"), fitted(table, u"fp_note", entry.note)},
                         {QStringLiteral("fp_ghskh"), entry.partner.number},
                         {QStringLiteral("fp_check"), true},
                         {QStringLiteral("fp_checker"), entry.checker},
                         {QStringLiteral("fp_chkrq"), entry.checkDate},
                         {QStringLiteral("fp_kprq"), written ? entry.date : QString()},
                         {QStringLiteral("u_sn"), entry.clerkNo},
                         {QStringLiteral("a_name"), entry.operatorName}});
    recomputeInvoiceBalance(db, entry.partner, entry.date);
}

void recomputeInvoiceBalance(Database &db, const Partner &partner, const QString &fromDate) {
    const QString ofPartner =
        QStringLiteral(" from jxc_fpdjb where fp_type=? and fp_ghskh=? and fp_check<>0 and fp_rq");
    const auto before = db.row(QStringLiteral("select fp_ljje") + ofPartner +
                                   QStringLiteral("<? order by fp_rq desc,id desc limit 1"),
                               {partner.type(), partner.number, fromDate});
    Decimal balance = before ? before->decimal(u"fp_ljje") : Decimal();
    std::vector<Values> changed;
    for (const Row &row : db.rows(QStringLiteral("select id,fp_qcje,fp_yfje,fp_kpje,fp_ljje") +
                                      ofPartner + QStringLiteral(">=? order by fp_rq,id"),
                                  {partner.type(), partner.number, fromDate})) {
        balance += row.decimal(u"fp_qcje") + row.decimal(u"fp_yfje") - row.decimal(u"fp_kpje");
        if (row.isNull(u"fp_ljje") || row.decimal(u"fp_ljje") != balance)
            changed.push_back({row.integer(u"id"), balance});
    }
    db.updateById(QStringLiteral("jxc_fpdjb"), {QStringLiteral("fp_ljje")}, changed);
}

void removeInvoiceEntries(Database &db, const QString &number) {
    const Rows lost =
        db.rows(QStringLiteral("select fp_type,fp_ghskh,min(fp_rq) as fp_rq from jxc_fpdjb "
                               "where gl_djh=? group by fp_type,fp_ghskh"),
                {number});
    if (lost.empty())
        return;
    db.execute(QStringLiteral("delete from jxc_fpdjb where gl_djh=?"), {number});
    for (const Row &row : lost)
        recomputeInvoiceBalance(db, partnerOf(row.text(u"fp_type"), row.text(u"fp_ghskh")),
                                row.text(u"fp_rq"));
}

} // namespace jxc
