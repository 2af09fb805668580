#include "retail/wallet_book.h"

#include "core/operation_log.h"
#include "core/session.h"
#include "db/fitted.h"
#include "db/like.h"
#include "db/where.h"

#include <QRegularExpression>

namespace jxc {

namespace {

const QString table = QStringLiteral("jxc_wxfk");
const QString payFlag = QStringLiteral("fk");
const QString queryFlag = QStringLiteral("fkcx");

WalletMerchant merchantOf(Database &db) {
    const auto row =
        db.row(QStringLiteral("select cs_mchid,cs_key from jxc_xtcs order by id limit 1"));
    WalletMerchant merchant;
    if (row)
        merchant = {row->text(u"cs_mchid").trimmed(), row->text(u"cs_key").trimmed()};
    if (merchant.number.isEmpty() || merchant.key.isEmpty())
        throw Refusal(QStringLiteral("您还没有定义移动支付参数！"));
    return merchant;
}

/// The number also names a file, so nothing but what numbers are made of.
void checkNumber(const QString &number) {
    static const QRegularExpression shape(QStringLiteral("^[0-9A-Za-z_-]{1,32}$"));
    if (number.isEmpty())
        throw Refusal(QStringLiteral("商户订单号必须填写！"));
    if (!shape.match(number).hasMatch())
        throw Refusal(QStringLiteral("商户订单号格式不正确！"));
}

void checkOrder(const WalletOrder &order) {
    static const QRegularExpression digits(QStringLiteral("^[0-9]{10,32}$"));
    checkNumber(order.number);
    if (order.authCode.isEmpty())
        throw Refusal(QStringLiteral("付款码必须填写！"));
    if (!digits.match(order.authCode).hasMatch())
        throw Refusal(QStringLiteral("付款码格式不正确！"));
    (void)totalFee(order.amount);
}

/// Two workstations, or two clicks, must not take a document's money twice, nor one code serve two
/// documents.
void refuseSecond(Database &db, const WalletOrder &order) {
    for (const Row &row :
         db.rows(QStringLiteral("select err_code from jxc_wxfk where out_trade_no=? and wx_flag=?"),
                 {order.number, payFlag})) {
        const QString code = row.text(u"err_code");
        if (code.isEmpty())
            throw Refusal(QStringLiteral("该单据已经支付成功，不能重复付款！"));
        if (code == walletOpenCode)
            throw Refusal(QStringLiteral("该单据有一笔付款还不知道结果，请先查询！"));
    }
    if (db.exists(QStringLiteral("select id from jxc_wxfk where auth_code=? and wx_flag=? and "
                                 "(coalesce(err_code,'')='' or err_code=?)"),
                  {order.authCode, payFlag, walletOpenCode}))
        throw Refusal(QStringLiteral("该付款码已经使用过，请顾客刷新付款码！"));
}

Assignments newRow(const Session &session, const QString &flag, const QString &service,
                   const WalletAttempt &attempt) {
    return {
        // A receipt may be charged more than once, "number-1", "number-2": it stands under its own.
        {QStringLiteral("gl_djh"), fitted(table, u"gl_djh", attempt.number.section(u'-', 0, 0))},
        {QStringLiteral("out_trade_no"), attempt.number},
        {QStringLiteral("total_fee"), attempt.amount},
        {QStringLiteral("mch_id"), fitted(table, u"mch_id", attempt.merchant.number)},
        {QStringLiteral("mch_create_ip"), fitted(table, u"mch_create_ip", session.currentLocalIp)},
        {QStringLiteral("service"), service},
        {QStringLiteral("err_code"), walletOpenCode},
        {QStringLiteral("err_msg"), QStringLiteral("等待应答")},
        {QStringLiteral("wx_flag"), flag},
        {QStringLiteral("wx_time"), session.timeStamp()},
        {QStringLiteral("a_name"), session.currentOperatorName}};
}

/// What a row gets from an answer.
Assignments outcomeOf(const WalletVerdict &verdict, const WalletAnswer *answer) {
    Assignments columns{{QStringLiteral("err_code"), fitted(table, u"err_code", verdict.code)},
                        {QStringLiteral("err_msg"), fitted(table, u"err_msg", verdict.note)}};
    if (answer != nullptr)
        for (const QString &name :
             {QStringLiteral("trade_type"), QStringLiteral("transaction_id"),
              QStringLiteral("out_transaction_id"), QStringLiteral("time_end")})
            columns.push_back({name, fitted(table, name, answer->text(name))});
    return columns;
}

/// The records were cleared while the gateway worked.
Refusal paymentGone(const WalletVerdict &verdict) {
    return Refusal(verdict.words +
                   QStringLiteral("\r\n\r\n移动支付的记录已被删除，请与支付平台核对！"));
}

void updateRow(Database &db, qint64 id, const Assignments &columns) {
    db.updateRows(table, columns, QStringLiteral("id=?"), {id});
}

/// A document's payments, the newest first.
struct Payments {
    explicit Payments(Database &db, const QString &number)
        : rows(db.rows(QStringLiteral("select id,err_code,total_fee,transaction_id,trade_type,"
                                      "wx_time from jxc_wxfk where out_trade_no=? and wx_flag=? "
                                      "order by id desc"),
                       {number, payFlag})) {}

    [[nodiscard]] const Row *withCode(const QString &code) const {
        for (const Row &row : rows)
            if (row.text(u"err_code") == code)
                return &row;
        return nullptr;
    }
    /// Money is known under a transaction already; where one side names none, it is the same.
    [[nodiscard]] const Row *paidAs(const QString &transaction) const {
        for (const Row &row : rows) {
            const QString known = row.text(u"transaction_id");
            if (row.text(u"err_code").isEmpty() &&
                (transaction.isEmpty() || known.isEmpty() || known == transaction))
                return &row;
        }
        return nullptr;
    }
    [[nodiscard]] bool areTwo() const {
        QStringList transactions;
        for (const Row &row : rows)
            if (row.text(u"err_code").isEmpty())
                transactions << row.text(u"transaction_id");
        transactions.removeDuplicates();
        return transactions.size() > 1;
    }
    Rows rows;
};

/// Fills in what a window shows, and says aloud when a document's money came twice.
void finish(Session &session, const WalletVerdict &verdict, const WalletAnswer *answer,
            const QString &number, WalletResult &result) {
    result.number = number;
    result.words = verdict.words;
    result.state = verdict.state;
    if (answer != nullptr) {
        result.transactionId = answer->text(u"transaction_id");
        result.tradeType = answer->text(u"trade_type");
    }
    if (result.state != WalletState::paid)
        return;
    if (Payments(session.db(), number).areTwo())
        result.isTakenTwice = true;
    if (!result.isTakenTwice)
        return;
    result.words = QStringLiteral("单据%1收款两次，请退还顾客一次！").arg(number);
    if (result.isChanged)
        writeLog(session,
                 QStringLiteral("移动支付重复收款：%1，%2").arg(number, result.transactionId));
}

void setPaid(Session &session, qint64 id, const WalletVerdict &verdict, const WalletAnswer *answer,
             const QString &number, Decimal amount, WalletResult &result) {
    updateRow(session.db(), id, outcomeOf(verdict, answer));
    result.isChanged = true;
    writeLog(session, QStringLiteral("移动支付收款：%1，%2").arg(number, amount.toText(2)));
}

/// "Paid" for a payment that was not known as such. The gateway may name a transaction that stands
/// at a later payment of the document already; the money came once then.
void applyLatePaid(Session &session, const WalletAttempt &attempt, const WalletVerdict &verdict,
                   const WalletAnswer *answer, WalletResult &result) {
    const QString transaction = answer->text(u"transaction_id");
    const Payments payments(session.db(), attempt.number);
    const Row *known = payments.paidAs(transaction);
    if (known == nullptr || transaction.isEmpty() ||
        known->text(u"transaction_id") != transaction) {
        setPaid(session, attempt.id, verdict, answer, attempt.number, attempt.amount, result);
        return;
    }
    WalletVerdict repeated = verdict;
    repeated.code = QStringLiteral("REPEATED");
    repeated.note = QStringLiteral("与另一笔付款为同一交易");
    updateRow(session.db(), attempt.id, outcomeOf(repeated, nullptr));
}

/// A request may still be on its way; a clock that was set back counts as such.
bool mayBeUnderWay(const Session &session, const Row &payment) {
    const QDateTime sent =
        QDateTime::fromString(payment.text(u"wx_time"), QStringLiteral("yyyy-MM-dd hh:mm:ss"));
    return sent.isValid() && sent.secsTo(session.now()) < walletRequestLife;
}

/// The answer to a query says the money is there: notes it at the payment it belongs to.
void applyPaid(Session &session, const WalletAttempt &query, const WalletVerdict &verdict,
               const WalletAnswer *answer, WalletResult &result) {
    const Payments payments(session.db(), query.number);
    const QString transaction = answer == nullptr ? QString() : answer->text(u"transaction_id");
    if (const Row *known = payments.paidAs(transaction)) {
        result.amount = known->decimal(u"total_fee");
        return;
    }
    const Row *target = payments.withCode(walletOpenCode);
    for (const Row &row : payments.rows)
        if (target == nullptr && !row.text(u"err_code").isEmpty())
            target = &row;
    if (target == nullptr) { // another transaction than the one that stands here, or none here
        result.isTakenTwice = !payments.rows.empty();
        result.isChanged = result.isTakenTwice;
        return;
    }
    result.amount = target->decimal(u"total_fee");
    setPaid(session, target->integer(u"id"), verdict, answer, query.number, result.amount, result);
}

/// The answer says that there is no money: ends the open payment, unless it is too early to say.
void applyUnpaid(Session &session, const WalletAttempt &query, const WalletVerdict &verdict,
                 WalletResult &result) {
    const Payments payments(session.db(), query.number);
    const Row *open = payments.withCode(walletOpenCode);
    if (open == nullptr)
        return;
    if (verdict.isTooEarlyToSay && mayBeUnderWay(session, *open)) {
        result.state = WalletState::open;
        result.words += QStringLiteral("\r\n\r\n付款请求可能还在途中，请稍后再查询！");
        return;
    }
    updateRow(session.db(), open->integer(u"id"), outcomeOf(verdict, nullptr));
    result.isChanged = true;
}

} // namespace

Outcome beginPayment(Session &session, Prompter &prompter, const WalletOrder &order,
                     WalletAttempt *attempt) {
    return runAction(session.db(), prompter, [&](Answers &) {
        checkOrder(order);
        if (!session.db().exists(QStringLiteral("select id from jxc_xtcs where cs_wxzf=1")))
            throw Refusal(QStringLiteral("移动支付没有启用，请在系统设置中启用！"));
        *attempt = {0, merchantOf(session.db()), order.number, order.amount};
        refuseSecond(session.db(), order);
        Assignments row =
            newRow(session, payFlag, QStringLiteral("unified.trade.micropay"), *attempt);
        row.push_back({QStringLiteral("auth_code"), order.authCode});
        attempt->id = session.db().insertRow(table, row);
    });
}

Outcome beginQuery(Session &session, Prompter &prompter, const QString &number,
                   WalletAttempt *attempt) {
    return runAction(session.db(), prompter, [&](Answers &) {
        checkNumber(number);
        *attempt = {0, merchantOf(session.db()), number, {}};
        const Payments payments(session.db(), number);
        const Row *asked = payments.withCode(walletOpenCode);
        if (asked == nullptr && !payments.rows.empty())
            asked = &payments.rows.front();
        if (asked != nullptr)
            attempt->amount = asked->decimal(u"total_fee");
        attempt->id = session.db().insertRow(
            table, newRow(session, queryFlag, QStringLiteral("unified.trade.query"), *attempt));
    });
}

Outcome recordPayment(Session &session, Prompter &prompter, const WalletAttempt &attempt,
                      const WalletVerdict &verdict, const WalletAnswer *answer,
                      WalletResult *result) {
    return runAction(session.db(), prompter, [&](Answers &) {
        *result = {};
        result->amount = attempt.amount;
        const auto row = session.db().row(
            QStringLiteral("select err_code,transaction_id,trade_type from jxc_wxfk where id=?"),
            {attempt.id});
        if (!row)
            throw paymentGone(verdict);
        const bool wasPaid = row->text(u"err_code").isEmpty();
        if (verdict.state == WalletState::paid && !wasPaid)
            applyLatePaid(session, attempt, verdict, answer, *result);
        else if (verdict.state != WalletState::paid && row->text(u"err_code") == walletOpenCode)
            updateRow(session.db(), attempt.id, outcomeOf(verdict, answer));
        finish(session, verdict, answer, attempt.number, *result);
        if (wasPaid && verdict.state != WalletState::paid) { // a query was faster
            result->state = WalletState::paid;
            result->words = QStringLiteral("支付成功");
            result->transactionId = row->text(u"transaction_id");
            result->tradeType = row->text(u"trade_type");
        }
    });
}

Outcome recordQuery(Session &session, Prompter &prompter, const WalletAttempt &attempt,
                    const WalletVerdict &verdict, const WalletAnswer *answer,
                    WalletResult *result) {
    return runAction(session.db(), prompter, [&](Answers &) {
        *result = {};
        result->amount = attempt.amount;
        updateRow(session.db(), attempt.id, outcomeOf(verdict, answer));
        if (verdict.state == WalletState::paid)
            applyPaid(session, attempt, verdict, answer, *result);
        finish(session, verdict, answer, attempt.number, *result);
        if (verdict.state == WalletState::unpaid)
            applyUnpaid(session, attempt, verdict, *result);
    });
}

QStringList openPayments(const Session &session) {
    QStringList numbers;
    for (const Row &row : session.db().rows(
             QStringLiteral("select out_trade_no from jxc_wxfk where wx_flag=? and err_code=? "
                            "order by id"),
             {payFlag, walletOpenCode}))
        if (const QString number = row.text(u"out_trade_no"); !numbers.contains(number))
            numbers << number;
    return numbers;
}

Outcome closePaymentByHand(Session &session, Prompter &prompter, qint64 id) {
    return runAction(session.db(), prompter, [&](Answers &answers) {
        const auto row = session.db().row(
            QStringLiteral("select out_trade_no,err_code,wx_flag from jxc_wxfk where id=?"), {id});
        if (!row || row->text(u"wx_flag") != payFlag || row->text(u"err_code") != walletOpenCode)
            throw Refusal(QStringLiteral("该笔付款的结果已经知道，不能修改！"));
        const QString number = row->text(u"out_trade_no");
        answers.require(QStringLiteral("请先在支付平台核对该笔付款确实没有收到。\r\n\r\n"
                                       "您的操作将把单据：%1的付款记为未支付，确认吗？")
                            .arg(number));
        updateRow(session.db(), id,
                  {{QStringLiteral("err_code"), QStringLiteral("NOTPAY")},
                   {QStringLiteral("err_msg"), QStringLiteral("核对后记为未支付")}});
        writeLog(session, QStringLiteral("移动支付记为未支付：") + number);
    });
}

Rows walletRecords(const Session &session, const QString &from, const QString &to,
                   const QString &search) {
    Where where;
    where.add(QStringLiteral("((wx_time>=? and wx_time<=?) or (wx_flag=? and err_code=?))"),
              {from, to + QStringLiteral(" 23:59:59"), payFlag, walletOpenCode});
    if (!search.isEmpty())
        where.add(QStringLiteral("(%1 or %2 or %3)")
                      .arg(contains(QStringLiteral("gl_djh")),
                           contains(QStringLiteral("transaction_id")),
                           contains(QStringLiteral("out_transaction_id"))),
                  Values(3, containsPattern(search)));
    return session.db().rows(
        QStringLiteral("select id,wx_time,gl_djh,out_trade_no,wx_flag,trade_type,total_fee,"
                       "transaction_id,out_transaction_id,err_code,err_msg,a_name from jxc_wxfk "
                       "where %1 order by id desc")
            .arg(where.text()),
        where.values());
}

} // namespace jxc
