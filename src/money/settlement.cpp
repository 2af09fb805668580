#include "money/settlement.h"

#include "base/dates.h"
#include "core/approval.h"
#include "core/operation_log.h"
#include "core/rights.h"
#include "core/session.h"
#include "db/database.h"
#include "money/cash_journal.h"
#include "money/open_items.h"
#include "money/settlement_kind.h"

#include <array>
#include <map>

namespace jxc {

namespace {

const SettlementKind &kindOf(const QString &number) {
    const SettlementKind *kind = findSettlementKind(number);
    if (kind == nullptr)
        throw unknownDocument(number);
    return *kind;
}

Row load(Database &db, const QString &number) {
    auto row =
        db.row(QStringLiteral("select * from jxc_ysyfk_dj where gl_djh=? order by id"), {number});
    if (!row)
        throw unknownDocument(number);
    return *std::move(row);
}

QString orElse(const QString &text, QStringView otherwise) {
    return text.isEmpty() ? otherwise.toString() : text;
}

QString accountOf(const Row &document) {
    return orElse(document.text(u"k_fkfs"), u"现金");
}

PartnerEntry ledgerEntry(const SettlementKind &kind, const QString &number, const Row &d) {
    PartnerEntry entry;
    entry.partner = {kind.partner, d.text(u"k_ghskh")};
    entry.number = number;
    entry.linkedNumber = d.text(u"gl_djh2");
    entry.date = d.text(u"k_rq");
    entry.account = d.text(u"k_fkfs");
    entry.opening = d.decimal(u"k_qcje");
    entry.due = d.decimal(u"k_yfje");
    entry.settled = d.decimal(u"k_sfje");
    entry.discount = d.decimal(u"k_yhje");
    entry.kindCode = orElse(d.text(u"k_djlx"), kind.code);
    entry.kindText = orElse(d.text(u"k_djtxt"), kind.title);
    entry.note = d.text(u"k_note");
    entry.clerkNo = d.text(u"u_sn");
    entry.operatorName = d.text(u"a_name");
    entry.flag = d.integer(u"k_flag");
    return entry;
}

void postCash(Session &session, const SettlementKind &kind, const QString &number, const Row &d,
              const QString &partnerName) {
    const Decimal settled = d.decimal(u"k_sfje");
    const Decimal amount = kind.cashSign < 0 ? -settled : settled;
    if (kind.cashSign == 0 || amount.isZero())
        return;
    Database &db = session.db();
    const QString account = accountOf(d);
    refuseShortAccount(db, Parameters::load(db), account, amount);
    const QString clerk =
        db.scalar(QStringLiteral("select u_name from jxc_user where u_sn=?"), {d.text(u"u_sn")});
    addCashEntry(db, {account,
                      d.text(u"k_rq"),
                      number,
                      kind.title.toString(),
                      amount,
                      d.text(u"k_ghskh"),
                      partnerName,
                      clerk,
                      {},
                      d.text(u"k_note"),
                      d.text(u"a_name")});
}

/// Adds what the document settles to the settled amounts of the documents it names, or takes it
/// off.
void settleDocuments(Database &db, const QString &number, bool approving) {
    struct Target {
        QStringView prefix;
        QString table, numberColumn, column;
    };
    static const std::array<Target, 4> targets = {
        {{u"CJ", QStringLiteral("jxc_jhd"), QStringLiteral("j_sn"), QStringLiteral("j_hkje")},
         {u"CT", QStringLiteral("jxc_thd"), QStringLiteral("gl_djh"), QStringLiteral("th_hkje")},
         {u"XS", QStringLiteral("jxc_lsxsd"), QStringLiteral("gl_djh"), QStringLiteral("ls_hkje")},
         {u"XT", QStringLiteral("jxc_xsthd"), QStringLiteral("gl_djh"),
          QStringLiteral("th_hkje")}}};
    for (const Row &part :
         db.rows(QStringLiteral("select gl_djh,fk_je from jxc_fkmx where fk_sn=? order by id"),
                 {number})) {
        const QString document = part.text(u"gl_djh");
        for (const Target &target : targets) {
            if (document.left(2) != target.prefix)
                continue;
            const auto row = db.row(QStringLiteral("select %1 from %2 where %3=?")
                                        .arg(target.column, target.table, target.numberColumn),
                                    {document});
            if (!row)
                continue;
            // A return is lowered with whatever sign the part was stored.
            const Decimal amount = part.decimal(u"fk_je").abs();
            db.execute(QStringLiteral("update %1 set %2=? where %3=?")
                           .arg(target.table, target.column, target.numberColumn),
                       {row->decimal(size_t{0}) + (approving ? amount : -amount), document});
        }
    }
}

/// What the document puts on others must still be open there.
void checkParts(Session &session, const Partner &partner, const QString &number) {
    const Rows parts = session.db().rows(
        QStringLiteral("select gl_djh,fk_je from jxc_fkmx where fk_sn=? order by id"), {number});
    if (parts.empty())
        return;
    std::map<QString, Decimal> open;
    for (const OpenItem &item : openItems(session, partner.kind, partner.number))
        open[item.number] += item.open;
    for (const Row &part : parts) {
        const QString document = part.text(u"gl_djh");
        Decimal amount = part.decimal(u"fk_je");
        if (document.startsWith(QLatin1String("CT")) || document.startsWith(QLatin1String("XT")))
            amount = -amount.abs();
        if (!takeFrom(open[document], amount))
            throw Refusal(QStringLiteral("单据“%1”的未结金额已变化，请重新分配！").arg(document));
    }
}

void approve(Session &session, const SettlementKind &kind, const QString &number) {
    Database &db = session.db();
    const Row d = load(db, number);
    if (d.flag(u"k_check"))
        throw changedMeanwhile();
    if (!isDate(d.text(u"k_rq")))
        throw Refusal(QStringLiteral("单据日期“%1”无效，不能审核！").arg(d.text(u"k_rq")));
    const Partner partner{kind.partner, d.text(u"k_ghskh")};
    const auto name = partnerName(db, partner);
    if (!name)
        throw Refusal(QStringLiteral("单据的往来单位“%1”不存在，不能审核！").arg(partner.number));
    checkParts(session, partner, number);

    addPartnerEntry(db, ledgerEntry(kind, number, d));
    db.updateRows(QStringLiteral("jxc_ysyfk_dj"),
                  {{QStringLiteral("k_check"), true},
                   {QStringLiteral("k_checker"), session.currentOperatorName},
                   {QStringLiteral("k_chkrq"), session.today()}},
                  QStringLiteral("gl_djh=?"), {number});
    postCash(session, kind, number, d, *name);
    settleDocuments(db, number, true);
    writeLog(session, QStringLiteral("%1%2，金额：%3")
                          .arg(kind.logOpening, *name, d.decimal(kind.amountColumn).toText()));
}

void cancel(Session &session, Answers &answers, const SettlementKind &kind, const QString &number) {
    Database &db = session.db();
    const Row d = load(db, number);
    if (!d.flag(u"k_check"))
        throw notApproved(number);
    checkMayCancel(session, number, d.text(u"k_checker"),
                   hasRight(session, u"wlzk", kind.approveRight));
    confirmCancelling(answers, number);

    settleDocuments(db, number, false);
    // What others had put on this document becomes an advance of theirs.
    db.execute(QStringLiteral("delete from jxc_fkmx where gl_djh=?"), {number});
    removeCashEntries(db, number, {});
    removePartnerEntries(db, number);
    db.updateRows(QStringLiteral("jxc_ysyfk_dj"),
                  {{QStringLiteral("k_check"), false},
                   {QStringLiteral("k_checker"), u""},
                   {QStringLiteral("k_chkrq"), u""}},
                  QStringLiteral("gl_djh=?"), {number});
    writeLog(session, QStringLiteral("取消审核%1：%2").arg(kind.title, number));
}

} // namespace

bool isSettlementNumber(QStringView number) {
    return findSettlementKind(number) != nullptr;
}

void ApproveReceipt(Session &session, const QString &number) {
    approve(session, settlementKinds()[0], number);
}

void ApprovePayment(Session &session, const QString &number) {
    approve(session, settlementKinds()[1], number);
}

Outcome approveSettlement(Session &session, Prompter &prompter, const QString &number) {
    return runAction(session.db(), prompter, [&](Answers &) {
        const SettlementKind &kind = kindOf(number);
        if (!hasRight(session, u"wlzk", kind.approveRight))
            throw Refusal(noRightMessage(kind.title.toString() + QStringLiteral("审核！")));
        approve(session, kind, number);
    });
}

Outcome cancelSettlement(Session &session, Prompter &prompter, const QString &number) {
    return runAction(session.db(), prompter,
                     [&](Answers &answers) { cancel(session, answers, kindOf(number), number); });
}

} // namespace jxc
