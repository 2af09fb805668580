#include "retail/day_end.h"

#include "core/numbering.h"
#include "core/operation_log.h"
#include "core/rights.h"
#include "core/session.h"
#include "db/database.h"

#include <map>

namespace jxc {

namespace {

const QString unsettled = QStringLiteral("(b.pos_rjid='' or b.pos_rjid is null)");

struct DaySum {
    Decimal quantity, amount;
};
using DaySums = std::map<std::pair<QString, QString>, DaySum>; // day, goods

/// Adds the lines of one pair of tables. Returns are kept with positive figures: their amounts come
/// off, but their quantities are added, deliberately.
void addLines(Database &db, const QString &headers, const QString &lines, bool areReturns,
              DaySums &sums) {
    for (const Row &row :
         db.rows(QStringLiteral("select a.g_sn,a.pos_sl,a.pos_zje,b.pos_xsrq from %1 a,%2 b where "
                                "a.gl_djh=b.gl_djh and %3")
                     .arg(lines, headers, unsettled))) {
        DaySum &sum = sums[{row.text(u"pos_xsrq").left(10), row.text(u"g_sn")}];
        const Decimal amount = row.decimal(u"pos_zje");
        sum.quantity += row.decimal(u"pos_sl");
        sum.amount += areReturns ? -amount : amount;
    }
}

void writeSettlement(Session &session, const QString &number) {
    Database &db = session.db();
    DaySums sums;
    addLines(db, QStringLiteral("jxc_posxsd"), QStringLiteral("jxc_posxssp"), false, sums);
    addLines(db, QStringLiteral("jxc_posthd"), QStringLiteral("jxc_posthsp"), true, sums);
    DaySum total;
    std::vector<Values> lines;
    for (const auto &[key, sum] : sums) {
        lines.push_back(
            {number, session.currentOperatorName, key.second, key.first, sum.quantity, sum.amount});
        total.quantity += sum.quantity;
        total.amount += sum.amount;
    }
    db.insertRows(QStringLiteral("jxc_rjsp"),
                  QStringLiteral("gl_djh,a_name,g_sn,rj_xsrq,rj_sl,rj_je").split(u','), lines);
    db.insertRow(QStringLiteral("jxc_rjd"),
                 {{QStringLiteral("gl_djh"), number},
                  {QStringLiteral("rj_rq"), session.today()},
                  {QStringLiteral("rj_sl"), total.quantity},
                  {QStringLiteral("rj_je"), total.amount},
                  {QStringLiteral("a_name"), session.currentOperatorName}});
}

/// The documents first: they are found by the receipts that are still open.
void markSettled(Database &db, const QString &number) {
    const std::pair<QString, QString> documents[] = {
        {QStringLiteral("jxc_lsxsd"), QStringLiteral("jxc_posxsd")},
        {QStringLiteral("jxc_xsthd"), QStringLiteral("jxc_posthd")}};
    for (const auto &[document, receipt] : documents)
        db.execute(QStringLiteral("update %1 set pos_rjid=? where gl_djh in (select b.gl_djh from "
                                  "%2 b where %3)")
                       .arg(document, receipt, unsettled),
                   {number});
    for (const char16_t *receipt : {u"jxc_posxsd", u"jxc_posthd"})
        db.execute(QStringLiteral("update %1 set pos_rjid=? where pos_rjid='' or pos_rjid is null")
                       .arg(QString::fromUtf16(receipt)),
                   {number});
}

bool isAnythingOpen(Database &db) {
    for (const char16_t *receipt : {u"jxc_posxsd", u"jxc_posthd"})
        if (db.exists(QStringLiteral("select b.id from %1 b where %2 limit 1")
                          .arg(QString::fromUtf16(receipt), unsettled)))
            return true;
    return false;
}

} // namespace

Outcome settleCounter(Session &session, Prompter &prompter, QString *number) {
    return runAction(session.db(), prompter, [&](Answers &answers) {
        if (!hasRight(session, u"tjgl", 20))
            throw Refusal(noRightMessage(QStringLiteral("POS日结！")));
        if (!isAnythingOpen(session.db()))
            throw Refusal(QStringLiteral("没有需要日结的单据！"));
        *number = newDocNumber(session, QStringLiteral("jxc_rjd"), QStringLiteral("gl_djh"),
                               QStringLiteral("RJ"));
        answers.require(
            QStringLiteral("即将生成日结单：\r\n\r\n%1\r\n\r\n确定日结吗？").arg(*number));
        writeSettlement(session, *number);
        markSettled(session.db(), *number);
        writeLog(session, QStringLiteral("POS日结：") + *number);
    });
}

} // namespace jxc
