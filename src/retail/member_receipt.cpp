#include "retail/member_receipt.h"

#include "core/operation_log.h"
#include "core/session.h"
#include "db/database.h"
#include "retail/member_sale.h"
#include "retail/receipt_copy.h"

namespace jxc {

namespace {

QString logNote(const QString &number) {
    return QStringLiteral("会员过账：") + number;
}

/// A posted receipt shows what it gave, or at least what the member had then. One that gave nothing
/// to a member who had nothing is known by the log alone.
bool isPosted(Database &db, const Row &receipt, const QString &number) {
    for (const QStringView figure : {u"pos_bcjf", u"pos_zjf", u"pos_jfye"})
        if (!receipt.decimal(figure).isZero())
            return true;
    return db.exists(QStringLiteral("select id from jxc_log where log_note=? limit 1"),
                     {logNote(number)});
}

/// Whether a document of that number posted its member when it was approved.
bool isOwnDocument(Database &db, const QString &number, bool isReturn) {
    const QString sql =
        isReturn ? QStringLiteral("select id from jxc_xsthd where gl_djh=? and th_status=1")
                 : QStringLiteral("select id from jxc_lsxsd where gl_djh=? and ls_status=1");
    return db.exists(sql, {number});
}

Row receiptOf(Database &db, const QString &number) {
    auto row = db.row(QStringLiteral("select hy_sn,pos_czk,pos_bcjf,pos_zjf,pos_jfye from "
                                     "jxc_posxsd where gl_djh=? order by id"),
                      {number});
    if (!row)
        throw Refusal(QStringLiteral("没有找到POS单据：%1！").arg(number));
    return *std::move(row);
}

void post(Session &session, const QString &number) {
    Database &db = session.db();
    const bool isReturn = number.startsWith(QLatin1String("XT"));
    if (!isReturn && !number.startsWith(QLatin1String("XS")))
        throw Refusal(QStringLiteral("没有找到POS单据：%1！").arg(number));
    if (isReturn && !hasReceipt(db, number))
        writeReturnCopy(db, number);
    const Row receipt = receiptOf(db, number);
    const QString key = receipt.text(u"hy_sn");
    if (key.isEmpty())
        throw Refusal(QStringLiteral("单据%1没有会员！").arg(number));
    if (isOwnDocument(db, number, isReturn) || isPosted(db, receipt, number))
        throw Refusal(QStringLiteral("单据%1的会员积分已经过账！").arg(number));
    PostMemberSale(session, number, key, isReturn ? MemberMode::saleReturn : MemberMode::sale);
    if (isReturn)
        payBackOntoCard(db, number, key);
    writeLog(session, logNote(number));
}

} // namespace

Outcome postReceipt(Session &session, Prompter &prompter, const QString &number) {
    return runAction(session.db(), prompter, [&](Answers &) { post(session, number); });
}

} // namespace jxc
