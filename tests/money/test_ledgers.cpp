// The partners' accounts, the cash journal, receipts and payments, fees and the invoice register.
#include "db/database.h"
#include "money/cash_journal.h"
#include "money/fees.h"
#include "money/partner_ledger.h"
#include "money/settlement.h"
#include "money/settlement_draft.h"
#include "stock/posting.h"
#include "support/shop.h"

#include <QTest>

using namespace jxc;
using namespace jxc::test;

namespace {

const QString g1 = QStringLiteral("G1");
const QString cash = QStringLiteral("现金");
const QString bank = QStringLiteral("工行帐号");
const Partner customer{Partner::Kind::customer, QStringLiteral("100001")};
const Partner supplier{Partner::Kind::supplier, QStringLiteral("100001")};

DraftLine lineOf(Decimal quantity, Decimal price) {
    DraftLine line{.goods = g1};
    line.quantity = quantity;
    line.price = price;
    return line;
}

qint64 enter(Shop &shop, int date, Decimal due, Decimal settled, const QString &number = {},
             const QString &linked = {}, const Partner &partner = customer) {
    PartnerEntry entry;
    entry.partner = partner;
    entry.number = number;
    entry.linkedNumber = linked;
    entry.date = day(date);
    entry.due = due;
    entry.settled = settled;
    addPartnerEntry(shop.db, entry);
    return shop.db.scalar(u"select max(id) from jxc_ysyfk"_qs).toLongLong();
}

void pay(Shop &shop, const QString &account, int date, Decimal amount, const QString &kind = {},
         const QString &note = {}) {
    CashEntry entry;
    entry.account = account;
    entry.date = day(date);
    entry.kind = kind;
    entry.amount = amount;
    entry.note = note;
    addCashEntry(shop.db, entry);
}

/// The running balances in the order of the books.
QString runningBalances(Shop &shop, const Partner &partner = customer) {
    QStringList balances;
    for (const Row &row : shop.db.rows(u"select k_ljje from jxc_ysyfk where k_type=? and "
                                       "k_ghskh=? order by k_rq,id"_qs,
                                       {partner.type(), partner.number}))
        balances << row.decimal(size_t{0}).toText();
    return balances.join(u' ');
}

QString runningCash(Shop &shop, const QString &account) {
    QStringList balances;
    for (const Row &row : shop.db.rows(
             u"select xj_ljje from jxc_xjyh where xj_kmmc=? order by xj_rq,id"_qs, {account}))
        balances << row.decimal(size_t{0}).toText();
    return balances.join(u' ');
}

QString masterBalance(Shop &shop, const Partner &partner) {
    if (partner.kind == Partner::Kind::customer)
        return shop.figures(u"select kh_lwje from jxc_khxx where kh_sn=?"_qs, {partner.number});
    return shop.figures(u"select ghs_lwje from jxc_ghsxx where ghs_sn=?"_qs, {partner.number});
}

QString saveSettled(Shop &shop, const QString &code, Decimal amount, Decimal discount = {},
                    const QString &account = cash) {
    SettlementDraft draft{code, day(20), u"100001"_qs, u"100001"_qs, amount};
    draft.discount = discount;
    draft.account = account;
    draft.note = u"备注"_qs;
    QString number;
    Shop::demand(saveSettlement(shop.session, shop.user, draft, &number));
    return number;
}

Outcome approveIt(Shop &shop, const QString &number) {
    return approveSettlement(shop.session, shop.user, number);
}

} // namespace

class TestLedgers : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void partnerBalances_data() { addEngineRows(); }
    void partnerBalances();
    void partnerRecomputedFromADay_data() { addEngineRows(); }
    void partnerRecomputedFromADay();
    void removedRowsOfLinkedPartners_data() { addEngineRows(); }
    void removedRowsOfLinkedPartners();
    void accountBalances_data() { addEngineRows(); }
    void accountBalances();
    void receiptAndPayment_data() { addEngineRows(); }
    void receiptAndPayment();
    void settledDocuments_data() { addEngineRows(); }
    void settledDocuments();
    void amountsEntered_data() { addEngineRows(); }
    void amountsEntered();
    void settlementRefusals_data() { addEngineRows(); }
    void settlementRefusals();
    void moneyOfDocuments_data() { addEngineRows(); }
    void moneyOfDocuments();
    void feesComeAndGo_data() { addEngineRows(); }
    void feesComeAndGo();
    void invoices_data() { addEngineRows(); }
    void invoices();
};

/// 100.005 owed and 30 paid on the 10th; then 50 of the 5th is entered late.
void TestLedgers::partnerBalances() {
    Shop shop;
    QCOMPARE(BalanceBefore(shop.db, customer, day(31)), 0_d);
    QCOMPARE(CurrentBalance(shop.db, customer), 0_d);
    const qint64 owed = enter(shop, 10, 100.005_d, 0);
    const qint64 paid = enter(shop, 10, 0, 30);
    QCOMPARE(runningBalances(shop), u"100.005 70.005"_qs);
    enter(shop, 5, 50, 0);
    QCOMPARE(runningBalances(shop), u"50 150.005 120.005"_qs);
    QCOMPARE(masterBalance(shop, customer), u"120.005"_qs);
    QCOMPARE(CurrentBalance(shop.db, customer), 120.01_d); // rounded for the eye alone
    QCOMPARE(BalanceBefore(shop.db, customer, day(4)), 0_d);
    QCOMPARE(BalanceBefore(shop.db, customer, day(9)), 50_d);
    QCOMPARE(BalanceBefore(shop.db, customer, day(10)), 120.005_d);
    QCOMPARE(BalanceBefore(shop.db, customer, day(10), paid), 150.005_d);
    // The row of the 5th was entered after this one, so its id is not before it.
    QCOMPARE(BalanceBefore(shop.db, customer, day(10), owed), 0_d);
    // The supplier of the same number is another partner.
    QCOMPARE(CurrentBalance(shop.db, supplier), 0_d);
    enter(shop, 1, 7, 0, {}, {}, supplier);
    QCOMPARE(runningBalances(shop), u"50 150.005 120.005"_qs);
    QCOMPARE(masterBalance(shop, supplier), u"7"_qs);
}

/// Rows before the day stay as they are, and the last of them is the opening balance.
void TestLedgers::partnerRecomputedFromADay() {
    Shop shop;
    enter(shop, 5, 50, 0);
    enter(shop, 10, 100, 0);
    enter(shop, 10, 0, 30);
    shop.db.execute(u"update jxc_ysyfk set k_qcje=5 where k_sfje=30"_qs);
    shop.db.execute(u"update jxc_ysyfk set k_ljje=1"_qs);
    RecomputePartnerBalance(shop.db, customer, day(10));
    QCOMPARE(runningBalances(shop), u"1 101 76"_qs); // 101 + 5 - 30
    QCOMPARE(masterBalance(shop, customer), u"76"_qs);
    RecomputePartnerBalance(shop.db, customer, day(5));
    QCOMPARE(runningBalances(shop), u"50 150 125"_qs);
    shop.db.execute(u"delete from jxc_ysyfk where k_rq>'2026-03-05'"_qs);
    RecomputePartnerBalance(shop.db, customer, day(6)); // nothing left from there on
    QCOMPARE(masterBalance(shop, customer), u"50"_qs);
    shop.db.execute(u"delete from jxc_ysyfk"_qs);
    RecomputePartnerBalance(shop.db, customer, day(1));
    QCOMPARE(masterBalance(shop, customer), u"0"_qs);
}

void TestLedgers::removedRowsOfLinkedPartners() {
    Shop shop;
    enter(shop, 5, 50, 0, u"N1"_qs);
    enter(shop, 8, 20, 0, u"N2"_qs);
    enter(shop, 9, 0, 10, u"N3"_qs, u"N1"_qs);
    enter(shop, 4, 7, 0, u"N4"_qs, u"N1"_qs, supplier);
    enter(shop, 6, 3, 0, u"N11"_qs, {}, supplier);
    removePartnerEntries(shop.db, u"N1"_qs);
    QCOMPARE(runningBalances(shop), u"20"_qs);
    QCOMPARE(masterBalance(shop, customer), u"20"_qs);
    QCOMPARE(runningBalances(shop, supplier), u"3"_qs);
    QCOMPARE(masterBalance(shop, supplier), u"3"_qs);
}

/// Every account set starts with an opening row of 0 on the 1st.
void TestLedgers::accountBalances() {
    Shop shop;
    QCOMPARE(AccountBalance(shop.db, u"没有的帐号"_qs), 0_d);
    QCOMPARE(AccountBalance(shop.db, cash), 0_d);
    pay(shop, cash, 10, 100);
    pay(shop, bank, 7, 7);
    pay(shop, cash, 5, -30);
    QCOMPARE(runningCash(shop, cash), u"0 -30 70"_qs);
    QCOMPARE(runningCash(shop, bank), u"0 7"_qs);
    QCOMPARE(AccountBalance(shop.db, cash), 70_d);
    // A row that is not approved does not count and is not touched.
    shop.db.insertRow(u"jxc_xjyh"_qs, {{u"xj_rq"_qs, day(6)},
                                       {u"xj_kmmc"_qs, cash},
                                       {u"xj_chk"_qs, u"0"},
                                       {u"xj_je"_qs, 1000},
                                       {u"xj_ljje"_qs, 999}});
    pay(shop, cash, 5, 1);
    QCOMPARE(runningCash(shop, cash), u"0 -30 -29 999 71"_qs);
    shop.db.execute(u"update jxc_xjyh set xj_ljje=2"_qs);
    RecomputeAccountBalance(shop.db, cash, day(6));
    QCOMPARE(runningCash(shop, cash), u"2 2 2 2 102"_qs);
    QCOMPARE(runningCash(shop, bank), u"2 2"_qs);
}

/// The customer owes 72, pays 50 and is let off 2: 20 stay, and 50 are in the till.
void TestLedgers::receiptAndPayment() {
    Shop shop;
    shop.addGoods(g1);
    shop.post(u"CJ"_qs, day(5), {lineOf(10, 5)}, onAccount);
    shop.post(u"XS"_qs, day(6), {lineOf(8, 9)}, onAccount);
    const QString receipt = saveSettled(shop, u"SK"_qs, 50, 2);
    QCOMPARE(receipt, u"SK26032010001"_qs);
    QCOMPARE(CurrentBalance(shop.db, customer), 72_d); // a draft does nothing
    Shop::demand(approveIt(shop, receipt));
    QCOMPARE(shop.lastLog(), u"审核收款，客户：普通客户，金额：50"_qs);
    QCOMPARE(shop.figures(u"select k_yfje,k_sfje,k_yhje,k_ljje from jxc_ysyfk where gl_djh=?"_qs,
                          {receipt}),
             u"-2 50 2 20"_qs);
    QCOMPARE(masterBalance(shop, customer), u"20"_qs);
    const QString cashRow = u"select xj_dlx,xj_kmmc,xj_rq,xj_chk,ghs_sn,ghs_name,xj_note from "
                            "jxc_xjyh where gl_djh=?"_qs;
    QCOMPARE(shop.texts(cashRow, {receipt}),
             QStringList(u"收款单|现金|2026-03-20|1|100001|普通客户|备注"_qs));
    QCOMPARE(AccountBalance(shop.db, cash), 50_d);
    QCOMPARE(shop.texts(u"select k_check,k_checker,k_chkrq from jxc_ysyfk_dj"_qs),
             QStringList(u"1|admin|2026-03-31"_qs));

    const QString payment = saveSettled(shop, u"FK"_qs, 30.5_d, 0, bank);
    Shop::demand(approveIt(shop, payment));
    QCOMPARE(shop.lastLog(), u"审核付款，供货商：普通供货商，金额：30.5"_qs);
    QCOMPARE(shop.texts(cashRow, {payment}),
             QStringList(u"付款单|工行帐号|2026-03-20|1|100001|普通供货商|备注"_qs));
    QCOMPARE(AccountBalance(shop.db, bank), -30.5_d); // money out is negative
    QCOMPARE(CurrentBalance(shop.db, supplier), 19.5_d);
    QCOMPARE(CurrentBalance(shop.db, customer), 20_d);

    shop.user.takeAsked();
    Shop::demand(cancelSettlement(shop.session, shop.user, receipt));
    QCOMPARE(shop.user.takeAsked(),
             QStringList(u"您的操作将取消当前选中的已审核单据：%1，确认吗？"_qs.arg(receipt)));
    Shop::demand(cancelSettlement(shop.session, shop.user, payment));
    QCOMPARE(CurrentBalance(shop.db, customer), 72_d);
    QCOMPARE(masterBalance(shop, supplier), u"50"_qs);
    QCOMPARE(AccountBalance(shop.db, cash), 0_d);
    QCOMPARE(AccountBalance(shop.db, bank), 0_d);
    // The documents stay, as drafts.
    QCOMPARE(shop.texts(u"select gl_djh,k_check,k_checker from jxc_ysyfk_dj order by id"_qs),
             (QStringList{receipt + u"|0|"_qs, payment + u"|0|"_qs}));
}

/// A receipt of 30 that names a sale of 72 raises what is settled of it, and takes it back.
void TestLedgers::settledDocuments() {
    Shop shop;
    shop.addGoods(g1);
    shop.post(u"CJ"_qs, day(5), {lineOf(10, 5)});
    const QString sale = shop.post(u"XS"_qs, day(6), {lineOf(8, 9)}, onAccount);
    const QString receipt = saveSettled(shop, u"SK"_qs, 30);
    shop.db.insertRow(u"jxc_fkmx"_qs,
                      {{u"fk_sn"_qs, receipt}, {u"gl_djh"_qs, sale}, {u"fk_je"_qs, 30}});
    const auto settled = [&] { return shop.figures(u"select ls_hkje from jxc_lsxsd"_qs); };
    Shop::demand(approveIt(shop, receipt));
    QCOMPARE(settled(), u"30"_qs);
    Shop::demand(cancelSettlement(shop.session, shop.user, receipt));
    QCOMPARE(settled(), u"0"_qs);
    Shop::demand(approveIt(shop, receipt));
    shop.cancel(sale); // the 30 become an advance
    QCOMPARE(settled(), u"0"_qs);
    QVERIFY(shop.texts(u"select id from jxc_fkmx"_qs).isEmpty());
    QCOMPARE(CurrentBalance(shop.db, customer), -30_d);
    shop.approve(sale);
    Shop::demand(cancelSettlement(shop.session, shop.user, receipt));
    QCOMPARE(settled(), u"0"_qs); // it names the sale no more
    QCOMPARE(CurrentBalance(shop.db, customer), 72_d);
}

/// What is entered as owed touches no account; a negative amount lowers the debt.
void TestLedgers::amountsEntered() {
    Shop shop;
    const QStringList before = shop.texts(u"select * from jxc_xjyh"_qs);
    Shop::demand(approveIt(shop, saveSettled(shop, u"YS"_qs, 80)));
    Shop::demand(approveIt(shop, saveSettled(shop, u"YF"_qs, 60)));
    const QString less = saveSettled(shop, u"YF"_qs, -15);
    QCOMPARE(less, u"YF26032010002"_qs);
    Shop::demand(approveIt(shop, less));
    QCOMPARE(CurrentBalance(shop.db, customer), 80_d);
    QCOMPARE(CurrentBalance(shop.db, supplier), 45_d);
    QCOMPARE(shop.texts(u"select k_type,k_djlx from jxc_ysyfk order by id"_qs),
             (QStringList{u"kh|YS"_qs, u"ghs|YF"_qs, u"ghs|YF"_qs}));
    Shop::demand(cancelSettlement(shop.session, shop.user, less));
    QCOMPARE(CurrentBalance(shop.db, supplier), 60_d);
    QCOMPARE(shop.texts(u"select * from jxc_xjyh"_qs), before);
}

void TestLedgers::settlementRefusals() {
    Shop shop;
    const QString receipt = saveSettled(shop, u"SK"_qs, 50);
    const QString payment = saveSettled(shop, u"FK"_qs, 50.01_d);
    const auto refuses = [&](const std::function<Outcome()> &action, const QString &text) {
        const QStringList before = shop.everything();
        const Outcome outcome = action();
        QCOMPARE(outcome.text, text);
        QCOMPARE(outcome.kind, Outcome::Kind::refused);
        QVERIFY2(shop.everything() == before, "a refusal wrote something");
    };
    Session clerk = shop.clerk(u"wlzk"_qs, {10}); // payments, no receipts
    refuses([&] { return approveSettlement(clerk, shop.user, receipt); },
            u"您没有权限进行收款单审核！\r\n\r\n或者没有可用的仓库。"_qs);
    refuses([&] { return approveIt(shop, u"SK26032019999"_qs); },
            u"单据“SK26032019999”不存在！"_qs);
    refuses([&] { return cancelSettlement(shop.session, shop.user, receipt); },
            u"单据“%1”还没有审核！"_qs.arg(receipt));
    Shop::demand(approveIt(shop, receipt));
    refuses([&] { return approveIt(shop, receipt); },
            u"单据已被其他操作员修改或审核，请刷新后重试！"_qs);
    refuses([&] { return cancelSettlement(clerk, shop.user, receipt); },
            u"单据：%1，的审核人：admin\r\n\r\n不允许其他人取消审核！"_qs.arg(receipt));
    shop.user.answers = {false};
    QCOMPARE(cancelSettlement(shop.session, shop.user, receipt).kind, Outcome::Kind::declined);
    QCOMPARE(CurrentBalance(shop.db, customer), -50_d);
    // 50.00 are in the till.
    shop.set(u"cs_xjyh"_qs, 1);
    refuses([&] { return approveIt(shop, payment); }, u"账户“现金”余额不足，不能付款！"_qs);
    shop.db.execute(u"update jxc_ysyfk_dj set k_sfje=50 where gl_djh=?"_qs, {payment});
    Shop::demand(approveSettlement(clerk, shop.user, payment));
    QCOMPARE(AccountBalance(shop.db, cash), 0_d);
    Shop::demand(cancelSettlement(clerk, shop.user, payment)); // he approved it
}

/// What is due, paid and let off, and which way the money goes.
void TestLedgers::moneyOfDocuments() {
    Shop shop;
    shop.addGoods(g1);
    const auto ledger = [&](const QString &number) {
        return shop.figures(u"select k_yfje,k_sfje,k_yhje,k_ljje from jxc_ysyfk where gl_djh=?"_qs,
                            {number});
    };
    const auto inCash = [&](const QString &number) {
        return shop.texts(u"select xj_dlx from jxc_xjyh where gl_djh=?"_qs, {number}).value(0) +
               u' ' + shop.figures(u"select xj_je from jxc_xjyh where gl_djh=?"_qs, {number});
    };
    const auto paying = [](Decimal paid, bool forgiven) {
        return [paid, forgiven](Draft &d) {
            d.paid = paid;
            d.restForgiven = forgiven;
        };
    };
    // 100.00: 60 paid, the rest a debt
    const QString bought = shop.post(u"CJ"_qs, day(5), {lineOf(20, 5)}, paying(60, false));
    QCOMPARE(ledger(bought), u"100 60 0 40"_qs);
    QCOMPARE(inCash(bought), u"采购进货 -60"_qs);
    // 90.00: 88 paid, 2 let off
    const QString sold = shop.post(u"XS"_qs, day(6), {lineOf(10, 9)}, paying(88, true));
    QCOMPARE(ledger(sold), u"88 88 2 0"_qs);
    QCOMPARE(inCash(sold), u"商品销售 88"_qs);
    const QString sentBack = shop.post(u"CT"_qs, day(7), {lineOf(2, 5)});
    QCOMPARE(ledger(sentBack), u"-10 -10 0 40"_qs);
    QCOMPARE(inCash(sentBack), u"采购退货 10"_qs);
    const QString cameBack = shop.post(u"XT"_qs, day(8), {lineOf(3, 9)}, paying(20, false));
    QCOMPARE(ledger(cameBack), u"-27 -20 0 -7"_qs);
    QCOMPARE(inCash(cameBack), u"顾客退货 -20"_qs);
    QCOMPARE(AccountBalance(shop.db, cash), 18_d); // -60 + 88 + 10 - 20
    // Nothing paid: the partner's row alone.
    const QString credit = shop.post(u"XS"_qs, day(9), {lineOf(1, 9)}, onAccount);
    QCOMPARE(ledger(credit), u"9 0 0 2"_qs);
    QCOMPARE(inCash(credit), u" "_qs);

    shop.cancel(bought); // the balances after it follow
    QCOMPARE(runningBalances(shop, supplier), u"0"_qs);
    QCOMPARE(AccountBalance(shop.db, cash), 78_d);
    shop.cancel(sold);
    QCOMPARE(runningBalances(shop), u"-7 2"_qs);
    QCOMPARE(runningCash(shop, cash), u"0 10 -10"_qs);
}

void TestLedgers::feesComeAndGo() {
    Shop shop;
    shop.addGoods(g1);
    const auto carried = [](const QString &terms) {
        return [terms](Draft &d) {
            d.freight = 12;
            d.packing = 3.5_d;
            d.freightTerms = terms;
        };
    };
    const QString fees = u"select fy_lx,fy_note,fy_kmmc,fy_rq,fy_chk from jxc_yyfy order by id"_qs;
    shop.post(u"CJ"_qs, day(5), {lineOf(10, 5)}, carried(u"对方付运费"_qs));
    QVERIFY(shop.texts(fees).isEmpty());
    const QString sale = shop.post(u"XS"_qs, day(6), {lineOf(2, 9)}, carried(shopPaysFreight));
    const QString freight = u"销售单%1产生的运费"_qs.arg(sale);
    const QString packing = u"销售单%1产生的包装费"_qs.arg(sale);
    QCOMPARE(shop.texts(fees), (QStringList{u"运费|%1|现金|2026-03-06|1"_qs.arg(freight),
                                            u"包装费|%1|现金|2026-03-06|1"_qs.arg(packing)}));
    QCOMPARE(shop.texts(u"select xj_note from jxc_xjyh where xj_dlx='费用付款' order by id"_qs),
             (QStringList{freight, packing}));
    QCOMPARE(runningCash(shop, cash), u"0 -50 -32 -44 -47.5"_qs);
    QCOMPARE(CurrentBalance(shop.db, customer), 0_d); // no matter of the customer's

    // What clerks type about the sale is theirs, and so are the fees of a longer number.
    pay(shop, cash, 6, -1, feePaymentKind, u"补付"_qs + freight);
    pay(shop, cash, 7, -2, u"其他支出"_qs, freight);
    pay(shop, bank, 7, -4, feePaymentKind, u"销售单%1产生的运费"_qs.arg(sale + u'1'));
    const auto typeFee = [&](const QString &kind, const QString &note) {
        shop.db.insertRow(u"jxc_yyfy"_qs, {{u"fy_lx"_qs, kind}, {u"fy_note"_qs, note}});
    };
    typeFee(u"运费"_qs, u"补付"_qs + freight);
    typeFee(u"餐费"_qs, freight);
    shop.cancel(sale);
    QCOMPARE(shop.texts(u"select fy_lx,fy_note from jxc_yyfy order by id"_qs),
             (QStringList{u"运费|补付"_qs + freight, u"餐费|"_qs + freight}));
    QCOMPARE(runningCash(shop, cash), u"0 -50 -51 -53"_qs);
    QCOMPARE(runningCash(shop, bank), u"0 -4"_qs);

    const QString receipt = shop.post(u"CJ"_qs, day(8), {lineOf(1, 5)}, carried(shopPaysFreight));
    QCOMPARE(shop.texts(u"select fy_note from jxc_yyfy where fy_rq='2026-03-08' order by id"_qs),
             (QStringList{u"采购单%1产生的运费"_qs.arg(receipt),
                          u"采购单%1产生的包装费"_qs.arg(receipt)}));
    shop.cancel(receipt);
    QCOMPARE(AccountBalance(shop.db, cash), -53_d);
}

void TestLedgers::invoices() {
    Shop shop;
    shop.addGoods(g1);
    const auto invoiced = [](Decimal amount) {
        return [amount](Draft &d) {
            d.invoiceNo = u"P1"_qs;
            d.invoiced = amount;
        };
    };
    shop.set(u"cs_kp"_qs, 0);
    shop.post(u"CJ"_qs, day(1), {lineOf(1, 5)}, invoiced(5));
    QVERIFY(shop.texts(u"select id from jxc_fpdjb"_qs).isEmpty());
    shop.set(u"cs_kp"_qs, 1);
    const QString first = shop.post(u"CJ"_qs, day(5), {lineOf(10, 5)}, invoiced(30));
    shop.post(u"CJ"_qs, day(6), {lineOf(4, 5)});
    shop.post(u"CT"_qs, day(7), {lineOf(1, 5)}, invoiced(5));
    shop.post(u"XS"_qs, day(7), {lineOf(2, 9)});
    const QString back = shop.post(u"CJ"_qs, day(4), {lineOf(2, 5)}, invoiced(10));
    const auto rows = [&](const QString &type) {
        QStringList all;
        for (const Row &row : shop.db.rows(
                 u"select fp_djlx,fp_yfje,fp_kpje,fp_ljje from jxc_fpdjb where fp_type=? order "
                 "by fp_rq,id"_qs,
                 {type}))
            all << row.text(size_t{0}) + u' ' + row.decimal(1).toText() + u' ' +
                       row.decimal(2).toText() + u' ' + row.decimal(3).toText();
        return all.join(u',');
    };
    QCOMPARE(rows(u"ghs"_qs), u"CJ 10 10 0,CJ 50 30 20,CJ 20 0 40,CT -5 -5 40"_qs);
    QCOMPARE(rows(u"kh"_qs), u"XS 18 0 18"_qs);
    shop.cancel(first);
    shop.cancel(back);
    QCOMPARE(rows(u"ghs"_qs), u"CJ 20 0 20,CT -5 -5 20"_qs);
}

QTEST_GUILESS_MAIN(TestLedgers)
#include "test_ledgers.moc"
