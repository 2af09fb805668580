#include "money/settlement_draft.h"

#include "base/sanitize.h"
#include "core/approval.h"
#include "core/numbering.h"
#include "core/operation_log.h"
#include "core/rights.h"
#include "core/session.h"
#include "db/database.h"
#include "db/where.h"
#include "money/entry_checks.h"
#include "money/list_conditions.h"
#include "money/settlement_kind.h"

#include <map>

namespace jxc {

namespace {

const QString table = QStringLiteral("jxc_ysyfk_dj");
const QString numberColumn = QStringLiteral("gl_djh");
constexpr int mayChooseDate = 11; ///< of group wlzk

const SettlementKind &kindOf(const SettlementDraft &d) {
    const SettlementKind *kind = findSettlementKind(d.code);
    if (kind == nullptr)
        throw Refusal(QStringLiteral("不支持的单据类型：%1").arg(d.code));
    return *kind;
}

Decimal sumOf(const std::vector<Allocation> &parts) {
    Decimal sum;
    for (const Allocation &part : parts)
        sum += part.amount;
    return sum;
}

/// What is paid or granted must cover what it is spread over; a payment back the other way round.
void checkParts(const Session &session, const SettlementDraft &d, const Partner &partner) {
    if (d.parts.empty())
        return;
    const Decimal total = d.amount + d.discount;
    const Decimal rest = total - sumOf(d.parts);
    if (total.isNegative() ? rest.isPositive() : rest.isNegative())
        throw Refusal(QStringLiteral("结算金额合计不能大于付款与优惠之和！"));
    std::map<QString, Decimal> open;
    for (const OpenItem &item : openItems(session, partner.kind, partner.number))
        open[item.number] += item.open;
    for (const Allocation &part : d.parts)
        if (!takeFrom(open[part.number], part.amount))
            throw Refusal(
                QStringLiteral("单据“%1”的未结金额已变化，请重新分配！").arg(part.number));
}

void check(const Session &session, const SettlementKind &kind, const SettlementDraft &d,
           const QString &storedDate) {
    checkEntryDate(session, d.date, storedDate, hasRight(session, u"wlzk", mayChooseDate));
    const bool ofCustomer = kind.partner == Partner::Kind::customer;
    const Partner partner{kind.partner, d.partner};
    demandFilled(partnerName(session.db(), partner).has_value(),
                 ofCustomer ? QStringLiteral("客户") : QStringLiteral("供货商"));
    const bool setsOff = !d.parts.empty() && sumOf(d.parts).isZero();
    if (d.amount.isZero() && d.discount.isZero() && !setsOff)
        throw Refusal(QStringLiteral("金额必须填写！"));
    if (kind.settles())
        checkAccount(session, d.account,
                     ofCustomer ? QStringLiteral("收款方式") : QStringLiteral("付款方式"));
    checkClerk(session, d.clerk);
    checkParts(session, d, partner);
}

/// The stored draft that is being saved again; its date.
QString checkStored(Database &db, const SettlementDraft &d) {
    if (d.number.isEmpty())
        return {};
    const auto row =
        db.row(QStringLiteral("select k_check,k_rq from jxc_ysyfk_dj where gl_djh=?"), {d.number});
    if (!row || row->flag(u"k_check") ||
        (!d.stored.isEmpty() && d.stored != fingerprint(db, table, numberColumn, d.number)))
        throw changedMeanwhile();
    return row->text(u"k_rq");
}

Assignments headerOf(const Session &session, const SettlementKind &kind, const SettlementDraft &d) {
    const bool pays = kind.settles();
    return {{QStringLiteral("gl_djh2"), u""},
            {QStringLiteral("k_rq"), d.date},
            {QStringLiteral("k_fkfs"), pays ? d.account : QString()},
            // A discount lowers what is owed, not the cash.
            {QStringLiteral("k_yfje"), pays ? -d.discount : d.amount},
            {QStringLiteral("k_sfje"), pays ? d.amount : Decimal()},
            {QStringLiteral("k_qcje"), 0},
            {QStringLiteral("k_yhje"), d.discount},
            {QStringLiteral("k_ljje"), 0},
            {QStringLiteral("k_flag"), 0},
            {QStringLiteral("k_type"), Partner{kind.partner, {}}.type()},
            {QStringLiteral("k_ghskh"), d.partner},
            {QStringLiteral("k_djlx"), d.code},
            {QStringLiteral("k_djtxt"), kind.title.toString()},
            {QStringLiteral("k_note"), sanitizeSqlText(d.note)},
            {QStringLiteral("k_check"), false},
            {QStringLiteral("k_checker"), u""},
            {QStringLiteral("k_chkrq"), u""},
            {QStringLiteral("u_sn"), d.clerk},
            {QStringLiteral("a_name"), session.currentOperatorName}};
}

void storeParts(Database &db, const SettlementKind &kind, const QString &number,
                const std::vector<Allocation> &parts) {
    db.execute(QStringLiteral("delete from jxc_fkmx where fk_sn=?"), {number});
    std::vector<Values> rows;
    for (const Allocation &part : parts)
        if (!part.amount.isZero())
            rows.push_back(
                {number, part.number, part.amount, kind.partner == Partner::Kind::supplier});
    if (!rows.empty())
        db.insertRows(QStringLiteral("jxc_fkmx"),
                      {QStringLiteral("fk_sn"), QStringLiteral("gl_djh"), QStringLiteral("fk_je"),
                       QStringLiteral("fk_lx")},
                      rows);
}

QString write(Session &session, const SettlementDraft &d) {
    const SettlementKind &kind = kindOf(d);
    Database &db = session.db();
    const QString storedDate = checkStored(db, d);
    check(session, kind, d, storedDate);
    const bool isNew = d.number.isEmpty();
    QString number = isNew ? newDocNumberForDate(session, QStringLiteral("jxc_ysyfk"), numberColumn,
                                                 d.code, d.date)
                           : d.number;
    Assignments header = headerOf(session, kind, d);
    if (isNew) {
        header.push_back({numberColumn, number});
        db.insertRow(table, header);
    } else {
        db.updateRows(table, header, QStringLiteral("gl_djh=?"), {number});
    }
    storeParts(db, kind, number, kind.settles() ? d.parts : std::vector<Allocation>());
    writeLog(session,
             QStringLiteral("%1%2：%3")
                 .arg(isNew ? QStringLiteral("增加") : QStringLiteral("修改"), kind.title, number));
    return number;
}

} // namespace

std::optional<SettlementDraft> loadSettlement(const Session &session, const QString &number) {
    Database &db = session.db();
    const SettlementKind *kind = findSettlementKind(number);
    const auto row =
        db.row(QStringLiteral("select * from jxc_ysyfk_dj where gl_djh=? order by id"), {number});
    if (!row || kind == nullptr)
        return std::nullopt;
    SettlementDraft d;
    d.code = kind->code.toString();
    d.date = row->text(u"k_rq");
    d.partner = row->text(u"k_ghskh");
    d.clerk = row->text(u"u_sn");
    d.amount = row->decimal(kind->amountColumn);
    d.discount = row->decimal(u"k_yhje");
    d.account = row->text(u"k_fkfs");
    d.note = row->text(u"k_note");
    d.number = number;
    d.approved = row->flag(u"k_check");
    d.stored = fingerprint(db, table, numberColumn, number);
    for (const Row &part :
         db.rows(QStringLiteral("select gl_djh,fk_je from jxc_fkmx where fk_sn=? order by id"),
                 {number}))
        d.parts.push_back({part.text(u"gl_djh"), part.decimal(u"fk_je")});
    return d;
}

Outcome saveSettlement(Session &session, Prompter &prompter, const SettlementDraft &draft,
                       QString *number) {
    return runAction(session.db(), prompter, [&](Answers &) { *number = write(session, draft); });
}

Outcome deleteSettlement(Session &session, Prompter &prompter, const QString &number) {
    return runAction(session.db(), prompter, [&](Answers &answers) {
        Database &db = session.db();
        const auto row = db.row(
            QStringLiteral("select k_check,k_djtxt from jxc_ysyfk_dj where gl_djh=?"), {number});
        if (!row)
            throw unknownDocument(number);
        confirmDeleting(answers, number, row->flag(u"k_check"));
        db.execute(QStringLiteral("delete from jxc_ysyfk_dj where gl_djh=?"), {number});
        db.execute(QStringLiteral("delete from jxc_fkmx where fk_sn=?"), {number});
        writeLog(session, QStringLiteral("删除%1：%2").arg(row->text(u"k_djtxt"), number));
    });
}

Rows listSettlements(const Session &session, const QString &code, const ApprovalQuery &query) {
    const SettlementKind *kind = findSettlementKind(code);
    if (kind == nullptr)
        return {};
    const bool ofCustomer = kind->partner == Partner::Kind::customer;
    Where where;
    where.add(QStringLiteral("substr(d.gl_djh,1,2)=?"), {code});
    where.add(query.approved ? QStringLiteral("d.k_check<>0")
                             : QStringLiteral("coalesce(d.k_check,0)=0"));
    addPeriod(where, QStringLiteral("d.k_rq"), query.from, query.to);
    const QString name = ofCustomer ? QStringLiteral("p.kh_name") : QStringLiteral("p.ghs_name");
    addSearch(where, {QStringLiteral("d.gl_djh"), name, QStringLiteral("d.k_note")}, query.search);
    return session.db().rows(
        QStringLiteral("select d.id,d.gl_djh as number,d.k_rq as rq,d.k_ghskh as partner,"
                       "%1 as partner_name,d.%2 as amount,d.k_yhje,d.k_fkfs,u.u_name,d.k_note,"
                       "d.a_name,d.k_checker,d.k_chkrq from jxc_ysyfk_dj d left join %3 p on "
                       "p.%4=d.k_ghskh left join jxc_user u on u.u_sn=d.u_sn where %5 order by "
                       "d.k_rq desc,d.id desc")
            .arg(name, kind->amountColumn,
                 ofCustomer ? QStringLiteral("jxc_khxx") : QStringLiteral("jxc_ghsxx"),
                 ofCustomer ? QStringLiteral("kh_sn") : QStringLiteral("ghs_sn"), where.text()),
        where.values());
}

Rows settlementParts(const Session &session, const QString &number) {
    return session.db().rows(
        QStringLiteral("select gl_djh as number,fk_je as part from jxc_fkmx where fk_sn=? order "
                       "by id"),
        {number});
}

} // namespace jxc
