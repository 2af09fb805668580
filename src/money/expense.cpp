#include "money/expense.h"

#include "base/sanitize.h"
#include "core/approval.h"
#include "core/numbering.h"
#include "core/operation_log.h"
#include "core/rights.h"
#include "core/session.h"
#include "db/computed_rows.h"
#include "db/database.h"
#include "money/cash_journal.h"
#include "money/entry_checks.h"
#include "money/fees.h"
#include "money/list_conditions.h"

#include <map>

namespace jxc {

namespace {

const QString table = QStringLiteral("jxc_yyfy");
const QString numberColumn = QStringLiteral("gl_djh");
constexpr int approveRight = 12; ///< of group rcgl

QString titleOf(QStringView number) {
    return number.startsWith(u"SR") ? QStringLiteral("收入单") : QStringLiteral("费用单");
}

bool isApproved(const Row &row) {
    return row.text(u"fy_chk") == QLatin1String("1");
}

/// Fees that came with a document bear no number: they come and go with it.
Row load(Database &db, const QString &number) {
    if (number.isEmpty())
        throw Refusal(QStringLiteral("该费用由单据产生，请取消审核该单据！"));
    auto row =
        db.row(QStringLiteral("select * from jxc_yyfy where gl_djh=? order by id"), {number});
    if (!row)
        throw unknownDocument(number);
    // The rent of a loan bears the number of its own income row, and a note that names the loan.
    if (row->text(u"fy_note").endsWith(QStringLiteral("的租金")) &&
        row->text(u"fy_note").startsWith(QStringLiteral("还货单")))
        throw Refusal(QStringLiteral("该费用由单据产生，请取消审核该单据！"));
    return *std::move(row);
}

/// "0" an expense, "1" an income.
QString directionOf(Database &db, const QString &type) {
    demandFilled(!type.isEmpty(), QStringLiteral("费用类型"));
    const auto row = db.row(QStringLiteral("select fy_fx from jxc_fylx where fy_lx=?"), {type});
    if (!row)
        throw Refusal(QStringLiteral("费用类型不存在！"));
    return row->integer(u"fy_fx") == 1 ? QStringLiteral("1") : QStringLiteral("0");
}

QString write(Session &session, const ExpenseDraft &d) {
    Database &db = session.db();
    QString storedDate;
    if (!d.number.isEmpty()) {
        const Row row = load(db, d.number);
        if (isApproved(row) ||
            (!d.stored.isEmpty() && d.stored != fingerprint(db, table, numberColumn, d.number)))
            throw changedMeanwhile();
        storedDate = row.text(u"fy_rq");
    }
    checkEntryDate(session, d.date, storedDate, session.rights.changeDate);
    const QString direction = directionOf(db, d.type);
    if (!d.amount.isPositive())
        throw Refusal(QStringLiteral("金额必须大于零！"));
    checkAccount(session, d.account, QStringLiteral("科目名称"));
    checkClerk(session, d.clerk);

    const QString prefix =
        direction == QLatin1String("1") ? QStringLiteral("SR") : QStringLiteral("FY");
    QString number = d.number.startsWith(prefix)
                         ? d.number
                         : newDocNumberForDate(session, table, numberColumn, prefix, d.date);
    const Assignments all = {{QStringLiteral("fy_rq"), d.date},
                             {numberColumn, number},
                             {QStringLiteral("fy_lx"), d.type},
                             {QStringLiteral("fy_je"), d.amount},
                             {QStringLiteral("fy_flag"), direction},
                             {QStringLiteral("u_sn"), d.clerk},
                             {QStringLiteral("de_sn"), d.department},
                             {QStringLiteral("fy_kmmc"), d.account},
                             {QStringLiteral("fy_chk"), u"0"},
                             {QStringLiteral("fy_note"), sanitizeSqlText(d.note)},
                             {QStringLiteral("a_name"), session.currentOperatorName},
                             {QStringLiteral("fy_sc"), u""}};
    if (d.number.isEmpty())
        db.insertRow(table, all);
    else
        db.updateRows(table, all, QStringLiteral("gl_djh=?"), {d.number});
    writeLog(session, QStringLiteral("%1%2：%3")
                          .arg(d.number.isEmpty() ? QStringLiteral("增加") : QStringLiteral("修改"),
                               titleOf(number), number));
    return number;
}

void approve(Session &session, const QString &number) {
    Database &db = session.db();
    const Row row = load(db, number);
    if (!hasRight(session, u"rcgl", approveRight))
        throw Refusal(noRightMessage(QStringLiteral("费用及收入审核！")));
    if (isApproved(row))
        throw changedMeanwhile();
    const bool isIncome = row.text(u"fy_flag") == QLatin1String("1");
    const Decimal amount = isIncome ? row.decimal(u"fy_je") : -row.decimal(u"fy_je");
    const QString account = row.text(u"fy_kmmc");
    refuseShortAccount(db, Parameters::load(db), account, amount);
    db.updateRows(table, {{QStringLiteral("fy_chk"), u"1"}}, QStringLiteral("gl_djh=?"), {number});
    CashEntry entry;
    entry.account = account;
    entry.date = row.text(u"fy_rq");
    entry.number = number;
    entry.kind = isIncome ? QStringLiteral("收入收款") : feePaymentKind;
    entry.amount = amount;
    entry.clerkName =
        db.scalar(QStringLiteral("select u_name from jxc_user where u_sn=?"), {row.text(u"u_sn")});
    entry.note = row.text(u"fy_note");
    entry.operatorName = row.text(u"a_name");
    addCashEntry(db, entry);
    writeLog(session, QStringLiteral("审核%1：%2").arg(titleOf(number), number));
}

} // namespace

std::optional<ExpenseDraft> loadExpense(const Session &session, const QString &number) {
    Database &db = session.db();
    const auto row =
        number.isEmpty()
            ? std::nullopt
            : db.row(QStringLiteral("select * from jxc_yyfy where gl_djh=?"), {number});
    if (!row)
        return std::nullopt;
    ExpenseDraft d;
    d.date = row->text(u"fy_rq");
    d.type = row->text(u"fy_lx");
    d.amount = row->decimal(u"fy_je");
    d.account = row->text(u"fy_kmmc");
    d.clerk = row->text(u"u_sn");
    d.department = row->text(u"de_sn");
    d.note = row->text(u"fy_note");
    d.number = number;
    d.stored = fingerprint(db, table, numberColumn, number);
    d.approved = isApproved(*row);
    return d;
}

Outcome saveExpense(Session &session, Prompter &prompter, const ExpenseDraft &draft,
                    QString *number) {
    return runAction(session.db(), prompter, [&](Answers &) { *number = write(session, draft); });
}

Outcome deleteExpense(Session &session, Prompter &prompter, const QString &number) {
    return runAction(session.db(), prompter, [&](Answers &answers) {
        const Row row = load(session.db(), number);
        confirmDeleting(answers, number, isApproved(row));
        session.db().execute(QStringLiteral("delete from jxc_yyfy where gl_djh=?"), {number});
        writeLog(session, QStringLiteral("删除%1：%2").arg(titleOf(number), number));
    });
}

Outcome approveExpense(Session &session, Prompter &prompter, const QString &number) {
    return runAction(session.db(), prompter, [&](Answers &) { approve(session, number); });
}

Outcome cancelExpense(Session &session, Prompter &prompter, const QString &number) {
    return runAction(session.db(), prompter, [&](Answers &answers) {
        Database &db = session.db();
        const Row row = load(db, number);
        if (!isApproved(row))
            throw notApproved(number);
        // No approver is kept.
        checkMayCancel(session, number, {}, hasRight(session, u"rcgl", approveRight));
        confirmCancelling(answers, number);
        removeCashEntries(db, number, {});
        db.updateRows(table, {{QStringLiteral("fy_chk"), u"0"}}, QStringLiteral("gl_djh=?"),
                      {number});
        writeLog(session, QStringLiteral("取消审核%1：%2").arg(titleOf(number), number));
    });
}

Rows listExpenses(const Session &session, const ApprovalQuery &query) {
    Where where;
    where.add(query.approved ? QStringLiteral("f.fy_chk='1'")
                             : QStringLiteral("coalesce(f.fy_chk,'')<>'1'"));
    addPeriod(where, QStringLiteral("f.fy_rq"), query.from, query.to);
    addSearch(where,
              {QStringLiteral("f.gl_djh"), QStringLiteral("f.fy_lx"), QStringLiteral("f.fy_note")},
              query.search);
    return session.db().rows(
        QStringLiteral("select f.id,f.fy_rq as rq,coalesce(f.gl_djh,'') as number,case when "
                       "f.fy_flag='1' then '收入' else '费用' end as direction,f.fy_lx,f.fy_je as "
                       "amount,f.fy_kmmc,u.u_name,d.de_name,f.fy_note,f.a_name from jxc_yyfy f "
                       "left join jxc_user u on u.u_sn=f.u_sn left join jxc_dept d on "
                       "d.de_sn=f.de_sn and f.de_sn<>'' where %1 order by f.fy_rq desc,f.id desc")
            .arg(where.text()),
        where.values());
}

Rows expenseTotals(const Rows &expenses) {
    std::map<std::pair<QString, QString>, std::pair<qint64, Decimal>> totals;
    for (const Row &row : expenses) {
        auto &[count, amount] = totals[{row.text(u"direction"), row.text(u"fy_lx")}];
        ++count;
        amount += row.decimal(u"amount");
    }
    ComputedRows list({}, {QStringLiteral("direction"), QStringLiteral("fy_lx"),
                           QStringLiteral("count"), QStringLiteral("amount")});
    for (const auto &[key, total] : totals)
        list.add({{u"direction", key.first},
                  {u"fy_lx", key.second},
                  {u"count", total.first},
                  {u"amount", total.second}});
    return list.take();
}

} // namespace jxc
