#include "money/fees.h"

#include "db/database.h"
#include "money/cash_journal.h"

namespace jxc {

void addFee(Database &db, const Fee &fee) {
    const QString account = QStringLiteral("现金");
    db.insertRow(QStringLiteral("jxc_yyfy"), {{QStringLiteral("fy_rq"), fee.date},
                                              {QStringLiteral("gl_djh"), u""},
                                              {QStringLiteral("fy_lx"), fee.kind},
                                              {QStringLiteral("fy_je"), fee.amount},
                                              {QStringLiteral("fy_flag"), u"0"},
                                              {QStringLiteral("u_sn"), fee.clerkNo},
                                              {QStringLiteral("de_sn"), u""},
                                              {QStringLiteral("fy_kmmc"), account},
                                              {QStringLiteral("fy_chk"), u"1"},
                                              {QStringLiteral("fy_note"), fee.note},
                                              {QStringLiteral("a_name"), fee.operatorName},
                                              {QStringLiteral("fy_sc"), u""}});
    addCashEntry(db, {account,
                      fee.date,
                      {},
                      feePaymentKind,
                      -fee.amount,
                      fee.partnerNo,
                      fee.partnerName,
                      fee.clerkName,
                      fee.warehouseName,
                      fee.note,
                      fee.operatorName});
}

void removeFees(Database &db, const QStringList &feeNotes) {
    for (const QString &note : feeNotes)
        db.execute(
            QStringLiteral("delete from jxc_yyfy where fy_lx in ('运费','包装费') and fy_note=?"),
            {note});
}

} // namespace jxc
