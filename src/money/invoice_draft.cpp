#include "money/invoice_draft.h"

#include "base/dates.h"
#include "base/sanitize.h"
#include "core/approval.h"
#include "core/numbering.h"
#include "core/operation_log.h"
#include "core/rights.h"
#include "core/session.h"
#include "db/database.h"
#include "money/entry_checks.h"
#include "money/invoice_register.h"
#include "money/list_conditions.h"

namespace jxc {

namespace {

const QString table = QStringLiteral("jxc_fpdjb");
const QString numberColumn = QStringLiteral("gl_djh");
constexpr int mayChooseDate = 11; ///< of group wlzk

QString prefixOf(Partner::Kind kind) {
    return kind == Partner::Kind::supplier ? QStringLiteral("CP") : QStringLiteral("XP");
}

int approveRightOf(Partner::Kind kind) {
    return kind == Partner::Kind::supplier ? 14 : 15;
}

/// A typed invoice; rows of stock documents come and go with these.
Row load(Database &db, const QString &number) {
    auto row =
        db.row(QStringLiteral("select * from jxc_fpdjb where gl_djh=? order by id"), {number});
    if (!row)
        throw unknownDocument(number);
    const QString code = row->text(u"fp_djlx");
    if (code != QLatin1String("CP") && code != QLatin1String("XP"))
        throw Refusal(QStringLiteral("该记录由单据产生，不能修改或删除！"));
    return *std::move(row);
}

Partner partnerOfRow(const Row &row) {
    return partnerOf(row.text(u"fp_type"), row.text(u"fp_ghskh"));
}

QString titleOfRow(const Row &row) {
    return invoiceTitle(partnerOfRow(row).kind);
}

void check(const Session &session, const InvoiceDraft &d, const QString &storedDate) {
    Database &db = session.db();
    checkEntryDate(session, d.date, storedDate, hasRight(session, u"wlzk", mayChooseDate));
    demandFilled(partnerName(db, d.partner).has_value(), d.partner.kind == Partner::Kind::customer
                                                             ? QStringLiteral("客户")
                                                             : QStringLiteral("供货商"));
    demandFilled(!d.invoiced.isZero() || !d.opening.isZero(), QStringLiteral("已开票金额"));
    demandFilled(!d.invoiceNo.isEmpty(), QStringLiteral("发票号码"));
    if (db.exists(QStringLiteral("select id from jxc_fpdjb where fp_type=? and fp_ghskh=? and "
                                 "fp_no=? and coalesce(gl_djh,'')<>?"),
                  {d.partner.type(), d.partner.number, d.invoiceNo, d.number}))
        throw Refusal(QStringLiteral("发票号码不能重复！"));
    if (!d.invoiceDate.isEmpty() && !isDate(d.invoiceDate))
        throw Refusal(QStringLiteral("开票日期格式不正确！"));
    checkClerk(session, d.clerk);
}

QString write(Session &session, InvoiceDraft d) {
    Database &db = session.db();
    const bool isNew = d.number.isEmpty();
    QString storedDate;
    if (!isNew) {
        const Row row = load(db, d.number);
        if (row.flag(u"fp_check") ||
            (!d.stored.isEmpty() && d.stored != fingerprint(db, table, numberColumn, d.number)))
            throw changedMeanwhile();
        storedDate = row.text(u"fp_rq");
    }
    d.invoiceNo = sanitizeSqlTextLight(d.invoiceNo.trimmed());
    check(session, d, storedDate);
    const QString code = prefixOf(d.partner.kind);
    QString number =
        isNew ? newDocNumberForDate(session, table, numberColumn, code, d.date) : d.number;
    const Assignments all = {{numberColumn, number},
                             {QStringLiteral("fp_rq"), d.date},
                             {QStringLiteral("fp_no"), d.invoiceNo},
                             {QStringLiteral("fp_yfje"), 0},
                             {QStringLiteral("fp_sfje"), 0},
                             {QStringLiteral("fp_kpje"), d.invoiced},
                             {QStringLiteral("fp_qcje"), d.opening},
                             {QStringLiteral("fp_ljje"), 0},
                             {QStringLiteral("fp_flag"), 0},
                             {QStringLiteral("fp_type"), d.partner.type()},
                             {QStringLiteral("fp_djlx"), code},
                             {QStringLiteral("fp_djtxt"), invoiceTitle(d.partner.kind)},
                             {QStringLiteral("fp_note"), sanitizeSqlText(d.note)},
                             {QStringLiteral("fp_ghskh"), d.partner.number},
                             {QStringLiteral("fp_check"), false},
                             {QStringLiteral("fp_checker"), u""},
                             {QStringLiteral("fp_chkrq"), u""},
                             {QStringLiteral("fp_kprq"), d.invoiceDate},
                             {QStringLiteral("u_sn"), d.clerk},
                             {QStringLiteral("a_name"), session.currentOperatorName}};
    if (isNew)
        db.insertRow(table, all);
    else
        db.updateRows(table, all, QStringLiteral("gl_djh=?"), {number});
    writeLog(session, QStringLiteral("%1%2：%3")
                          .arg(isNew ? QStringLiteral("增加") : QStringLiteral("修改"),
                               invoiceTitle(d.partner.kind), number));
    return number;
}

void setApproved(Session &session, const Row &row, const QString &number, bool approved) {
    Database &db = session.db();
    db.updateRows(
        table,
        {{QStringLiteral("fp_check"), approved},
         {QStringLiteral("fp_checker"), approved ? session.currentOperatorName : QString()},
         {QStringLiteral("fp_chkrq"), approved ? session.today() : QString()}},
        QStringLiteral("gl_djh=?"), {number});
    recomputeInvoiceBalance(db, partnerOfRow(row), row.text(u"fp_rq"));
    writeLog(session, QStringLiteral("%1%2：%3")
                          .arg(approved ? QStringLiteral("审核") : QStringLiteral("取消审核"),
                               titleOfRow(row), number));
}

} // namespace

QString invoiceTitle(Partner::Kind kind) {
    return kind == Partner::Kind::supplier ? QStringLiteral("进货发票")
                                           : QStringLiteral("销售发票");
}

std::optional<InvoiceDraft> loadInvoice(const Session &session, const QString &number) {
    Database &db = session.db();
    const auto row =
        db.row(QStringLiteral("select * from jxc_fpdjb where gl_djh=? order by id"), {number});
    if (!row)
        return std::nullopt;
    InvoiceDraft d;
    d.partner = partnerOfRow(*row);
    d.date = row->text(u"fp_rq");
    d.invoiced = row->decimal(u"fp_kpje");
    d.opening = row->decimal(u"fp_qcje");
    d.invoiceNo = row->text(u"fp_no");
    d.invoiceDate = row->text(u"fp_kprq");
    d.clerk = row->text(u"u_sn");
    d.note = row->text(u"fp_note");
    d.number = number;
    d.stored = fingerprint(db, table, numberColumn, number);
    d.approved = row->flag(u"fp_check");
    return d;
}

Outcome saveInvoice(Session &session, Prompter &prompter, const InvoiceDraft &draft,
                    QString *number) {
    return runAction(session.db(), prompter, [&](Answers &) { *number = write(session, draft); });
}

Outcome deleteInvoice(Session &session, Prompter &prompter, const QString &number) {
    return runAction(session.db(), prompter, [&](Answers &answers) {
        const Row row = load(session.db(), number);
        confirmDeleting(answers, number, row.flag(u"fp_check"));
        session.db().execute(QStringLiteral("delete from jxc_fpdjb where gl_djh=?"), {number});
        writeLog(session, QStringLiteral("删除%1：%2").arg(titleOfRow(row), number));
    });
}

Outcome approveInvoice(Session &session, Prompter &prompter, const QString &number) {
    return runAction(session.db(), prompter, [&](Answers &) {
        const Row row = load(session.db(), number);
        if (!hasRight(session, u"wlzk", approveRightOf(partnerOfRow(row).kind)))
            throw Refusal(noRightMessage(titleOfRow(row) + QStringLiteral("审核！")));
        if (row.flag(u"fp_check"))
            throw changedMeanwhile();
        setApproved(session, row, number, true);
    });
}

Outcome cancelInvoice(Session &session, Prompter &prompter, const QString &number) {
    return runAction(session.db(), prompter, [&](Answers &answers) {
        const Row row = load(session.db(), number);
        if (!row.flag(u"fp_check"))
            throw notApproved(number);
        checkMayCancel(session, number, row.text(u"fp_checker"),
                       hasRight(session, u"wlzk", approveRightOf(partnerOfRow(row).kind)));
        confirmCancelling(answers, number);
        setApproved(session, row, number, false);
    });
}

Rows listInvoices(const Session &session, Partner::Kind kind, const ApprovalQuery &query) {
    const bool ofCustomer = kind == Partner::Kind::customer;
    const QString prefix = ofCustomer ? QStringLiteral("kh") : QStringLiteral("ghs");
    const QString name = QStringLiteral("p.%1_name").arg(prefix);
    Where where;
    where.add(QStringLiteral("f.fp_type=?"), {Partner{kind, {}}.type()});
    where.add(query.approved ? QStringLiteral("f.fp_check<>0")
                             : QStringLiteral("coalesce(f.fp_check,0)=0"));
    addPeriod(where, QStringLiteral("f.fp_rq"), query.from, query.to);
    addSearch(
        where,
        {QStringLiteral("f.gl_djh"), name, QStringLiteral("f.fp_no"), QStringLiteral("f.fp_note")},
        query.search);
    return session.db().rows(
        QStringLiteral("select f.id,f.fp_rq as rq,f.gl_djh as number,f.fp_djtxt,f.fp_ghskh as "
                       "partner,%1 as partner_name,f.fp_qcje,f.fp_yfje,f.fp_kpje,f.fp_ljje,"
                       "f.fp_no,f.fp_kprq,u.u_name,f.fp_note,f.a_name,f.fp_checker,f.fp_chkrq "
                       "from jxc_fpdjb f left join jxc_%2xx p on p.%2_sn=f.fp_ghskh left join "
                       "jxc_user u on u.u_sn=f.u_sn where %3 order by f.fp_rq desc,f.id desc")
            .arg(name, prefix, where.text()),
        where.values());
}

} // namespace jxc
