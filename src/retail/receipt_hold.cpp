#include "retail/receipt_hold.h"

#include "core/numbering.h"
#include "core/session.h"
#include "db/database.h"
#include "db/transaction.h"

namespace jxc {

namespace {

const QString table = QStringLiteral("jxc_lsxssptemp");
const QString held = QStringLiteral("gd");
const QString running = QStringLiteral("dq");

/// Two tills may be open under one name: the running receipt is the workstation's.
QString workstation(const Session &session) {
    return session.currentLocalIp.left(16);
}

void storeLines(Session &session, const Receipt &receipt, const QString &flag) {
    static const QStringList columns =
        QStringLiteral("gl_djh,g_sn,ls_dj,ls_sl,ls_zje,ls_je,ls_lsj,a_name,ls_dzl,ls_bz,ls_zhje,"
                       "ls_zsl,dw_name,g_sptm,g_zhxs,ls_flag,gl_djh2,ls_xsrq,ls_taxdj")
            .split(u',');
    std::vector<Values> rows;
    for (const ReceiptLine &line : receipt.lines) {
        const Decimal total = line.total(6);
        rows.push_back({receipt.number, line.goods, line.price, line.quantity, total, total,
                        line.retailPrice, session.currentOperatorName, line.discount,
                        line.isGift ? giftMark : QString(), line.labelAmount.value_or(Decimal()),
                        (line.quantity * line.factor).rounded(6), line.unit, line.barcode,
                        line.factor, flag, workstation(session), session.timeStamp(), line.price});
    }
    if (!rows.empty())
        session.db().insertRows(table, columns, rows);
}

Receipt readLines(Session &session, const QString &where, const Values &values) {
    Receipt receipt;
    for (const Row &row : session.db().rows(
             QStringLiteral(
                 "select a.*,g.g_name,g.gg_name,g.g_iscf from jxc_lsxssptemp a left join "
                 "jxc_goods g on g.g_sn=a.g_sn where ") +
                 where + QStringLiteral(" order by a.id"),
             values)) {
        receipt.number = row.text(u"gl_djh");
        ReceiptLine line;
        line.goods = row.text(u"g_sn");
        line.name = row.text(u"g_name");
        line.specification = row.text(u"gg_name");
        line.unit = row.text(u"dw_name");
        line.barcode = row.text(u"g_sptm");
        line.factor = row.decimal(u"g_zhxs");
        line.quantity = row.decimal(u"ls_sl");
        line.price = row.decimal(u"ls_dj");
        line.discount = row.decimal(u"ls_dzl");
        line.retailPrice = row.decimal(u"ls_lsj");
        line.isGift = row.text(u"ls_bz") == giftMark;
        line.restricted = row.flag(u"g_iscf");
        if (const Decimal label = row.decimal(u"ls_zhje"); !label.isZero())
            line.labelAmount = label;
        receipt.lines.push_back(std::move(line));
    }
    return receipt;
}

void dropRunning(Session &session) {
    session.db().execute(QStringLiteral("delete from jxc_lsxssptemp where ls_flag=? and a_name=? "
                                        "and coalesce(gl_djh2,'')=?"),
                         {running, session.currentOperatorName, workstation(session)});
}

void drawNumber(Session &session, Receipt &receipt) {
    if (receipt.number.isEmpty())
        receipt.number = newDocNumber(session, QStringLiteral("jxc_lsxsd"),
                                      QStringLiteral("gl_djh"), QStringLiteral("XS"));
}

} // namespace

Outcome holdReceipt(Session &session, Prompter &prompter, Receipt &receipt) {
    Receipt kept;
    const Outcome outcome = runAction(session.db(), prompter, [&](Answers &) {
        kept = receipt;
        if (kept.lines.empty())
            throw Refusal(QStringLiteral("没有商品，不能挂单！"));
        drawNumber(session, kept);
        dropKeptReceipt(session, kept.number);
        storeLines(session, kept, held);
    });
    if (outcome.isDone())
        receipt = std::move(kept);
    return outcome;
}

std::vector<HeldReceipt> heldReceipts(Session &session, const CounterSettings &settings) {
    std::vector<HeldReceipt> receipts;
    for (const Row &row : session.db().rows(
             QStringLiteral("select a.gl_djh,a.ls_xsrq,a.a_name,a.ls_zje,g.g_name from "
                            "jxc_lsxssptemp a left join jxc_goods g on g.g_sn=a.g_sn where "
                            "a.ls_flag=? and a.ls_xsrq>=? order by a.gl_djh desc,a.id"),
             {held, settings.onlyTodaysHeld ? session.today() : QString()})) {
        const QString number = row.text(u"gl_djh");
        if (receipts.empty() || receipts.back().number != number)
            receipts.push_back({number, row.text(u"ls_xsrq"), row.text(u"a_name"),
                                row.text(u"g_name"), 0, Decimal()});
        ++receipts.back().lines;
        receipts.back().total += row.decimal(u"ls_zje");
    }
    return receipts;
}

Outcome recallReceipt(Session &session, Prompter &prompter, const QString &number,
                      Receipt &receipt) {
    Receipt recalled;
    const Outcome outcome = runAction(session.db(), prompter, [&](Answers &) {
        recalled = readLines(session, QStringLiteral("a.ls_flag=? and a.gl_djh=?"), {held, number});
        if (recalled.lines.empty())
            throw Refusal(QStringLiteral("该挂单已被其他收银台取走！"));
        dropKeptReceipt(session, number);
        storeLines(session, recalled, running);
    });
    if (!outcome.isDone())
        return outcome;
    receipt.number = recalled.number;
    receipt.lines = std::move(recalled.lines);
    receipt.customer = walkInCustomer;
    receipt.member.clear();
    return outcome;
}

void keepRunningReceipt(Session &session, const Receipt &receipt) {
    Transaction transaction(session.db());
    dropRunning(session);
    storeLines(session, receipt, running);
    transaction.commit();
}

void reserveNumber(Session &session, Receipt &receipt) {
    drawNumber(session, receipt);
    dropRunning(session);
    storeLines(session, receipt, running);
}

std::optional<Receipt> runningReceipt(Session &session) {
    Receipt receipt = readLines(
        session, QStringLiteral("a.ls_flag=? and a.a_name=? and coalesce(a.gl_djh2,'')=?"),
        {running, session.currentOperatorName, workstation(session)});
    if (receipt.lines.empty())
        return std::nullopt;
    return receipt;
}

void dropKeptReceipt(Session &session, const QString &number) {
    dropRunning(session);
    if (!number.isEmpty())
        session.db().execute(
            QStringLiteral("delete from jxc_lsxssptemp where ls_flag in (?,?) and gl_djh=?"),
            {held, running, number});
}

} // namespace jxc
