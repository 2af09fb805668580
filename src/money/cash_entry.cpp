#include "money/cash_entry.h"

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
#include "money/list_conditions.h"

namespace jxc {

namespace {

const QString table = QStringLiteral("jxc_xjyh");
const QString numberColumn = QStringLiteral("gl_djh");
constexpr int approveRight = 13; ///< of group rcgl

bool isTransfer(const CashDraft &d) {
    return d.code == QLatin1String("XZ");
}

Refusal belongsToDocument() {
    return Refusal(QStringLiteral("该记录由单据产生，不能修改或删除！"));
}

/// The rows of a typed entry; one, or two of a transfer.
Rows rowsOf(Database &db, const QString &number) {
    Rows rows =
        db.rows(QStringLiteral("select * from jxc_xjyh where gl_djh=? order by id"), {number});
    if (number.isEmpty() || (!rows.empty() && !isTypedCash(number, rows.front().text(u"xj_dlx"))))
        throw belongsToDocument();
    if (rows.empty())
        throw unknownDocument(number);
    return rows;
}

bool isApproved(const Rows &rows) {
    return rows.front().text(u"xj_chk") == QLatin1String("1");
}

void check(const Session &session, const CashDraft &d, const QString &storedDate) {
    if (cashEntryTitle(d.code).isEmpty())
        throw Refusal(QStringLiteral("不支持的单据类型：%1").arg(d.code));
    checkEntryDate(session, d.date, storedDate, session.rights.changeDate);
    checkAccount(session, d.account,
                 isTransfer(d) ? QStringLiteral("转出账户") : QStringLiteral("账户"));
    if (isTransfer(d)) {
        checkAccount(session, d.target, QStringLiteral("转入账户"));
        if (d.account == d.target)
            throw Refusal(QStringLiteral("转出账户与转入账户不能相同！"));
    }
    if (!d.amount.isPositive())
        throw Refusal(QStringLiteral("金额必须大于零！"));
}

void writeRow(Session &session, const CashDraft &d, const QString &number, const QString &account,
              Decimal amount) {
    session.db().insertRow(table, {{QStringLiteral("xj_rq"), d.date},
                                   {numberColumn, number},
                                   {QStringLiteral("xj_dlx"), cashEntryTitle(d.code)},
                                   {QStringLiteral("xj_je"), amount},
                                   {QStringLiteral("xj_ljje"), Decimal()},
                                   {QStringLiteral("xj_chk"), u"0"},
                                   {QStringLiteral("u_name"), d.clerk},
                                   {QStringLiteral("ghs_name"), u""},
                                   {QStringLiteral("ghs_sn"), u""},
                                   {QStringLiteral("ck_name"), u""},
                                   {QStringLiteral("xj_kmmc"), account},
                                   {QStringLiteral("xj_note"), sanitizeSqlText(d.note)},
                                   {QStringLiteral("a_name"), session.currentOperatorName}});
}

QString write(Session &session, const CashDraft &d) {
    Database &db = session.db();
    const bool isNew = d.number.isEmpty();
    QString storedDate;
    if (!isNew) {
        const Rows rows = rowsOf(db, d.number);
        if (isApproved(rows) ||
            (!d.stored.isEmpty() && d.stored != fingerprint(db, table, numberColumn, d.number)))
            throw changedMeanwhile();
        storedDate = rows.front().text(u"xj_rq");
    }
    check(session, d, storedDate);
    QString number =
        isNew ? newDocNumberForDate(session, table, numberColumn, d.code, d.date) : d.number;
    db.execute(QStringLiteral("delete from jxc_xjyh where gl_djh=?"), {number});
    writeRow(session, d, number, d.account, d.code == QLatin1String("XC") ? d.amount : -d.amount);
    if (isTransfer(d))
        writeRow(session, d, number, d.target, d.amount);
    writeLog(session, QStringLiteral("%1%2：%3")
                          .arg(isNew ? QStringLiteral("增加") : QStringLiteral("修改"),
                               cashEntryTitle(d.code), number));
    return number;
}

void setApproved(Session &session, const Rows &rows, const QString &number, bool approved) {
    Database &db = session.db();
    db.updateRows(table, {{QStringLiteral("xj_chk"), approved ? u"1" : u"0"}},
                  QStringLiteral("gl_djh=?"), {number});
    for (const Row &row : rows)
        RecomputeAccountBalance(db, row.text(u"xj_kmmc"), row.text(u"xj_rq"));
    writeLog(session, QStringLiteral("%1%2：%3")
                          .arg(approved ? QStringLiteral("审核") : QStringLiteral("取消审核"),
                               rows.front().text(u"xj_dlx"), number));
}

} // namespace

QString cashEntryTitle(QStringView code) {
    if (code.left(2) == u"XC")
        return QStringLiteral("存款");
    if (code.left(2) == u"XJ")
        return QStringLiteral("取款");
    return code.left(2) == u"XZ" ? QStringLiteral("转账") : QString();
}

bool isTypedCash(const QString &number, const QString &kind) {
    return !kind.isEmpty() && cashEntryTitle(number) == kind;
}

std::optional<CashDraft> loadCashEntry(const Session &session, const QString &number) {
    Database &db = session.db();
    const Rows rows =
        db.rows(QStringLiteral("select * from jxc_xjyh where gl_djh=? order by id"), {number});
    if (rows.empty() || !isTypedCash(number, rows.front().text(u"xj_dlx")))
        return std::nullopt;
    const Row &row = rows.front();
    CashDraft d;
    d.code = number.left(2);
    d.date = row.text(u"xj_rq");
    d.account = row.text(u"xj_kmmc");
    d.target = rows.size() > 1 ? rows[1].text(u"xj_kmmc") : QString();
    d.amount = row.decimal(u"xj_je").abs();
    d.clerk = row.text(u"u_name");
    d.note = row.text(u"xj_note");
    d.number = number;
    d.stored = fingerprint(db, table, numberColumn, number);
    d.approved = isApproved(rows);
    return d;
}

Outcome saveCashEntry(Session &session, Prompter &prompter, const CashDraft &draft,
                      QString *number) {
    return runAction(session.db(), prompter, [&](Answers &) { *number = write(session, draft); });
}

Outcome deleteCashEntry(Session &session, Prompter &prompter, const QString &number) {
    return runAction(session.db(), prompter, [&](Answers &answers) {
        const Rows rows = rowsOf(session.db(), number);
        confirmDeleting(answers, number, isApproved(rows));
        session.db().execute(QStringLiteral("delete from jxc_xjyh where gl_djh=?"), {number});
        writeLog(session, QStringLiteral("删除%1：%2").arg(rows.front().text(u"xj_dlx"), number));
    });
}

Outcome approveCashEntry(Session &session, Prompter &prompter, const QString &number) {
    return runAction(session.db(), prompter, [&](Answers &) {
        const Rows rows = rowsOf(session.db(), number);
        if (!hasRight(session, u"rcgl", approveRight))
            throw Refusal(noRightMessage(QStringLiteral("现金银行审核！")));
        if (isApproved(rows))
            throw changedMeanwhile();
        const Parameters parameters = Parameters::load(session.db());
        for (const Row &row : rows)
            refuseShortAccount(session.db(), parameters, row.text(u"xj_kmmc"),
                               row.decimal(u"xj_je"));
        setApproved(session, rows, number, true);
    });
}

Outcome cancelCashEntry(Session &session, Prompter &prompter, const QString &number) {
    return runAction(session.db(), prompter, [&](Answers &answers) {
        const Rows rows = rowsOf(session.db(), number);
        if (!isApproved(rows))
            throw notApproved(number);
        // The journal keeps no approver.
        checkMayCancel(session, number, {}, hasRight(session, u"rcgl", approveRight));
        confirmCancelling(answers, number);
        setApproved(session, rows, number, false);
    });
}

Rows listCash(const Session &session, const CashQuery &query) {
    Where where;
    where.addEqual(QStringLiteral("xj_kmmc"), query.account);
    addPeriod(where, QStringLiteral("xj_rq"), query.from, query.to);
    addSearch(where,
              {QStringLiteral("gl_djh"), QStringLiteral("ghs_name"), QStringLiteral("xj_note")},
              query.search);
    const Rows rows = session.db().rows(
        QStringLiteral("select id,xj_rq,gl_djh as number,xj_dlx,xj_kmmc,xj_je,xj_ljje,ghs_name,"
                       "ck_name,u_name,xj_note,a_name,xj_chk from jxc_xjyh where %1 order by "
                       "xj_rq,id")
            .arg(where.text()),
        where.values());
    if (rows.empty())
        return {};
    ComputedRows list(rows.front().columns().names(),
                      {QStringLiteral("income"), QStringLiteral("expense")});
    for (const Row &row : rows) {
        const Decimal amount = row.decimal(u"xj_je");
        list.add(row, {cellOf(amount.isNegative() ? Decimal() : amount),
                       cellOf(amount.isNegative() ? -amount : Decimal())});
    }
    return list.take();
}

Decimal cashBefore(const Session &session, const QString &account, const QString &date) {
    Where where;
    where.add(QStringLiteral("xj_chk='1' and xj_rq<?"), {date});
    where.addEqual(QStringLiteral("xj_kmmc"), account);
    const auto row = session.db().row(
        QStringLiteral("select %1 as held from jxc_xjyh where %2")
            .arg(session.db().dialect().exactSum(QStringLiteral("xj_je")), where.text()),
        where.values());
    return row ? row->decimal(u"held") : Decimal();
}

} // namespace jxc
