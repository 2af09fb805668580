#include "retail/receipt_return.h"

#include "core/rights.h"
#include "core/session.h"
#include "retail/receipt_copy.h"
#include "retail/receipt_rows.h"
#include "stock/amounts.h"
#include "stock/document_kind.h"
#include "stock/draft.h"
#include "stock/posting.h"
#include "stock/return_book.h"

#include <algorithm>

namespace jxc {

namespace {

/// Lines that agree in goods, unit and batch were sold as one.
ReturnLine *lineLike(CounterReturn &r, const Row &row, const Batch &batch) {
    for (ReturnLine &l : r.lines)
        if (l.line.goods == row.text(u"g_sn") && l.line.unit == row.text(u"dw_name") &&
            l.batch == batch)
            return &l;
    return nullptr;
}

void addSoldLine(CounterReturn &r, const Row &row) {
    const Batch batch =
        Batch{row.text(u"t_ph"), row.text(u"t_yxq"), row.text(u"t_scrq")}.normalised();
    ReturnLine *line = lineLike(r, row, batch);
    if (line == nullptr) {
        line = &r.lines.emplace_back();
        line->line.goods = row.text(u"g_sn");
        line->line.name = row.text(u"g_name");
        line->line.specification = row.text(u"gg_name");
        line->line.unit = row.text(u"dw_name");
        line->line.barcode = row.text(u"g_sptm");
        line->line.factor = row.decimal(u"g_zhxs");
        line->line.retailPrice = row.decimal(u"ls_lsj");
        line->line.quantity = 0;
        line->batch = batch;
        line->taxRate = row.decimal(u"ls_tax");
    }
    line->sold += row.decimal(u"ls_cksl");
    line->paid += row.decimal(u"ls_zje");
}

/// What was taken off the whole is spread over the lines so that they come to what was due.
void spreadDue(CounterReturn &r, Decimal due, int decimals) {
    Decimal lines;
    for (const ReturnLine &l : r.lines)
        lines += l.paid;
    if (lines == due)
        return;
    Decimal soFar, given;
    for (ReturnLine &l : r.lines) {
        soFar += l.paid;
        const Decimal upTo = (soFar * due / lines).rounded(decimals);
        l.paid = upTo - given;
        given = upTo;
    }
}

void takeReturned(Session &session, CounterReturn &r) {
    ReturnBook book(session.db(), returnSide(QStringLiteral("XT")), r.customer, {});
    for (ReturnLine &l : r.lines) {
        l.returned = l.sold - book.returnable({r.receipt, l.line.goods, l.line.unit, l.batch});
        l.line.price = (l.paid / l.sold).rounded(6);
    }
    if (std::none_of(r.lines.begin(), r.lines.end(),
                     [](const ReturnLine &l) { return l.returnable().isPositive(); }))
        throw Refusal(QStringLiteral("小票%1的商品已全部退货！").arg(r.receipt));
}

void checkReturn(const Session &session, const CounterReturn &r) {
    if (!mayReturn(session) &&
        (r.authorisedBy.isEmpty() || !userHasRight(session, r.authorisedBy, u"xsgl", 2)))
        throw Refusal(noRightMessage(QStringLiteral("退货！")));
    for (const ReturnLine &l : r.lines)
        if (!r.receipt.isEmpty() && l.line.quantity > l.returnable())
            throw Refusal(QStringLiteral("商品“%1”的退货数量大于可退数量%2！")
                              .arg(l.line.name, l.returnable().toText()));
}

TenderOutcome checkRefund(const CounterReturn &r, const Tender &refund, Decimal total) {
    for (const Decimal &part : {refund.cash, refund.other.bankCard, refund.other.storedValue,
                                refund.other.voucher, refund.other.weChat, refund.other.aliPay})
        if (part.isNegative())
            throw Refusal(QStringLiteral("退款金额不能小于零！"));
    if (refund.sum() > total)
        throw Refusal(QStringLiteral("退款金额不能大于应退金额！"));
    if (refund.sum() < total && r.customer == walkInCustomer)
        throw Refusal(QStringLiteral("退款金额不足！"));
    if (refund.other.storedValue.isPositive() && r.member.isEmpty())
        throw Refusal(QStringLiteral("请先刷会员卡！"));
    TenderOutcome o;
    o.total = o.due = total;
    o.tendered = refund.sum();
    o.owing = o.tendered < o.due;
    o.method = tenderMethod(refund);
    return o;
}

DraftLine draftLine(const Parameters &parameters, const CounterReturn &r, const ReturnLine &l,
                    int decimals) {
    DraftLine d{.goods = l.line.goods};
    d.unit = l.line.unit;
    d.factor = l.line.factor;
    d.quantity = l.line.quantity;
    d.total = l.total(decimals);
    d.taxRate = r.receipt.isEmpty() ? parameters.taxRate : l.taxRate;
    d.price = priceOfTotal(parameters, *d.total, d.quantity, *d.taxRate, 1);
    d.batch = l.batch;
    d.barcode = l.line.barcode;
    d.sourceNumber = r.receipt;
    return d;
}

Draft draftOf(Session &session, const CounterReturn &r, const Tender &refund,
              const TenderOutcome &outcome, int decimals) {
    const Parameters parameters = Parameters::load(session.db());
    Draft draft;
    draft.code = QStringLiteral("XT");
    draft.date = session.today();
    draft.partner = r.customer;
    draft.warehouse = r.warehouse;
    draft.clerk = r.clerk;
    draft.member = r.member;
    draft.paid = outcome.tendered;
    draft.tenders = {outcome.method, refund.cash, refund.other.storedValue, refund.other.bankCard,
                     refund.other.voucher};
    draft.atCounter = true;
    for (const ReturnLine &l : r.lines)
        if (!l.line.quantity.isZero())
            draft.lines.push_back(draftLine(parameters, r, l, decimals));
    if (draft.lines.empty())
        throw Refusal(QStringLiteral("请先输入退货数量！"));
    return draft;
}

void postInTransaction(Session &session, Answers &answers, const CounterReturn &r,
                       const Tender &refund, QString *number) {
    const CounterSettings settings = CounterSettings::load(session);
    checkReturn(session, r);
    const Decimal total = r.total(settings.amountDecimals);
    const TenderOutcome outcome = checkRefund(r, refund, total);
    Draft draft = draftOf(session, r, refund, outcome, settings.amountDecimals);
    saveDraftInTransaction(session, answers, draft);
    SoldQuantities sold;
    for (const ReturnLine &l : r.lines)
        if (!l.line.quantity.isZero())
            sold.push_back(l.sold);
    const QString note = r.receipt.isEmpty() ? QString() : QStringLiteral("原单") + r.receipt;
    writeReturn(session, {draft.number, note, refund, outcome}, sold);
    if (!r.member.isEmpty()) // before the approval, which posts the member by this copy
        writeReturnCopy(session.db(), draft.number);
    approveAtCounter(session, answers, draft.number);
    moveReceiptTenders(session, draft.number, refund.other, -1);
    *number = draft.number;
}

} // namespace

Decimal ReturnLine::total(int decimals) const {
    if (sold.isZero())
        return line.total(decimals);
    const auto upTo = [&](Decimal quantity) { return (paid * quantity / sold).rounded(decimals); };
    return upTo(returned + line.quantity) - upTo(returned);
}

Decimal CounterReturn::total(int decimals) const {
    Decimal sum;
    for (const ReturnLine &l : lines)
        sum += l.total(decimals);
    return sum;
}

CounterReturn returnOf(Session &session, const QString &receipt) {
    Database &db = session.db();
    const auto header =
        db.row(QStringLiteral("select a.kh_sn,a.ck_sn,a.u_sn,a.hy_sn,a.ls_yfje,a.ls_yhje from "
                              "jxc_lsxsd a,jxc_posxsd b where a.gl_djh=b.gl_djh and a.ls_status=1 "
                              "and a.gl_djh=?"),
               {receipt});
    if (!header)
        throw Refusal(QStringLiteral("没有找到小票“%1”！").arg(receipt));
    CounterReturn r;
    r.receipt = receipt;
    r.customer = header->text(u"kh_sn");
    r.warehouse = header->text(u"ck_sn");
    r.clerk = header->text(u"u_sn");
    r.member = header->text(u"hy_sn");
    for (const Row &row : db.rows(
             QStringLiteral("select b.*,g.g_name,g.gg_name from jxc_lsxssp b left join jxc_goods g "
                            "on g.g_sn=b.g_sn where b.gl_djh=? and b.g_sn<>? order by b.id"),
             {receipt, discountGoods}))
        addSoldLine(r, row);
    std::erase_if(r.lines, [](const ReturnLine &l) { return !l.sold.isPositive(); });
    spreadDue(r, header->decimal(u"ls_yfje") - header->decimal(u"ls_yhje"),
              CounterSettings::load(session).amountDecimals);
    takeReturned(session, r);
    return r;
}

Rows batchesToReturnTo(const Session &session, const QString &goods, const QString &warehouse) {
    return session.db().rows(
        QStringLiteral("select t_ph,t_scrq,t_yxq,t_sl from jxc_tkc where g_sn=? and ck_sn=? and "
                       "t_ph<>'' order by id desc"),
        {goods, warehouse});
}

bool mayReturn(const Session &session) {
    return hasRight(session, u"xsgl", 2);
}

Outcome postReturn(Session &session, Prompter &prompter, const CounterReturn &goodsBack,
                   const Tender &refund, QString *number) {
    return runAction(session.db(), prompter, [&](Answers &answers) {
        postInTransaction(session, answers, goodsBack, refund, number);
    });
}

} // namespace jxc
