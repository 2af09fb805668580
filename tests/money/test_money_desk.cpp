// The money desk: what is open and how it is settled, cash, expenses, invoices, statements.
#include "core/rights.h"
#include "money/accounts.h"
#include "money/cash_entry.h"
#include "money/cash_journal.h"
#include "money/expense.h"
#include "money/invoice_draft.h"
#include "money/partner_accounts.h"
#include "money/partner_opening.h"
#include "money/partner_statement.h"
#include "money/settlement.h"
#include "money/settlement_draft.h"
#include "services/verify.h"
#include "support/shop.h"

#include <QRandomGenerator>
#include <QTest>

using namespace jxc;
using namespace jxc::test;

namespace {

const QString g1 = QStringLiteral("G1");
const QString cash = QStringLiteral("现金");
const QString bank = QStringLiteral("工行帐号");
const QString clerkNo = QStringLiteral("100001");
const QString farmer = QStringLiteral("100002");

struct Desk : Shop {
    Desk() {
        addGoods(g1);
        addCustomer(farmer, QStringLiteral("王家庄"), QStringLiteral("1000"));
        post(QStringLiteral("CJ"), day(1), {line(1000, 5)});
    }

    static DraftLine line(Decimal quantity, Decimal price) {
        DraftLine l{.goods = g1};
        l.quantity = quantity;
        l.price = price;
        return l;
    }
    /// A sale or return of the farmer on account.
    QString owe(const QString &code, int date, Decimal amount) {
        return post(code, day(date), {line(1, amount)}, [](Draft &d) {
            d.partner = farmer;
            d.paid = Decimal();
        });
    }
    [[nodiscard]] static SettlementDraft receipt(Decimal amount, std::vector<Allocation> parts = {},
                                                 Decimal discount = {}) {
        SettlementDraft d{QStringLiteral("SK"), day(31), farmer, clerkNo, amount, discount};
        d.parts = std::move(parts);
        return d;
    }
    QString settle(const SettlementDraft &d) {
        QString number;
        demand(saveSettlement(session, user, d, &number));
        demand(approveSettlement(session, user, number));
        return number;
    }
    [[nodiscard]] std::vector<OpenItem> open() {
        return openItems(session, Partner::Kind::customer, farmer);
    }
    /// "number open", oldest first.
    [[nodiscard]] QStringList openTexts() {
        QStringList texts;
        for (const OpenItem &item : open())
            texts << item.number.left(2) + u' ' + item.open.toText();
        return texts;
    }
    /// What is open adds up to the balance, and the books agree with the documents.
    void checkBooks() {
        Decimal sum;
        for (const OpenItem &item : open())
            sum += item.open;
        QCOMPARE(sum, CurrentBalance(db, {Partner::Kind::customer, farmer}));
        const auto differences = verifyBooks(db);
        QVERIFY2(differences.empty(),
                 qPrintable(differences.empty() ? QString() : differences.front().text));
    }
};

/// The field of every row, parted by blanks.
QString fieldOf(const Rows &rows, QStringView field) {
    QStringList texts;
    for (const Row &row : rows)
        texts << row.text(field);
    return texts.join(u' ');
}

/// The figures of every row.
QString figuresOf(const Rows &rows, QStringView field) {
    QStringList texts;
    for (const Row &row : rows)
        texts << row.decimal(field).toText();
    return texts.join(u' ');
}

} // namespace

class TestMoneyDesk : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void settlesOldestFirst_data() { addEngineRows(); }
    void settlesOldestFirst();
    void refusesWhatIsNoLongerOpen_data() { addEngineRows(); }
    void refusesWhatIsNoLongerOpen();
    void draftsOfSettlements_data() { addEngineRows(); }
    void draftsOfSettlements();
    void randomSettlements_data() { addEngineRows(); }
    void randomSettlements();
    void accountTables_data() { addEngineRows(); }
    void accountTables();
    void cashAndAccounts_data() { addEngineRows(); }
    void cashAndAccounts();
    void expensesAndIncome_data() { addEngineRows(); }
    void expensesAndIncome();
    void invoices_data() { addEngineRows(); }
    void invoices();
    void statements_data() { addEngineRows(); }
    void statements();
    void statementsInPieces_data() { addEngineRows(); }
    void statementsInPieces();
};

/// An opening balance, an entry, a sale, a return and an advance; then one receipt for them all.
void TestMoneyDesk::settlesOldestFirst() {
    Desk desk;
    const Partner partner{Partner::Kind::customer, farmer};
    PartnerEntry opening;
    opening.partner = partner;
    opening.date = day(1);
    opening.opening = 100;
    opening.kindCode = u"QC"_qs;
    addPartnerEntry(desk.db, opening);
    SettlementDraft entry{u"YS"_qs, day(2), farmer, clerkNo, 40};
    const QString owed = desk.settle(entry);
    const QString sale = desk.owe(u"XS"_qs, 3, 60);
    const QString back = desk.owe(u"XT"_qs, 4, 25);
    desk.settle(desk.receipt(10)); // nothing named: an advance
    QCOMPARE(desk.openTexts(),
             QStringList({u"QC 100"_qs, u"YS 40"_qs, u"XS 60"_qs, u"XT -25"_qs, u"SK -10"_qs}));
    desk.checkBooks();

    const auto parts = spreadOldestFirst(desk.open(), 120);
    QCOMPARE(parts.size(), size_t(5));
    QCOMPARE(parts[0], (Allocation{u"QC100002"_qs, 100_d}));
    QCOMPARE(parts[2], (Allocation{sale, 15_d})); // 120 + 25 + 10 - 100 - 40
    const QString receipt = desk.settle(desk.receipt(115, parts, 5));
    QCOMPARE(desk.openTexts(), QStringList({u"XS 45"_qs}));
    QCOMPARE(desk.figures(u"select th_hkje from jxc_xsthd where gl_djh=?"_qs, {back}), u"25"_qs);
    QCOMPARE(AccountBalance(desk.db, cash), Decimal(-5000 + 10 + 115)); // the discount is no cash
    desk.checkBooks();

    // Taking the entry back frees its 40 as an advance of the receipt.
    Shop::demand(cancelSettlement(desk.session, desk.user, owed));
    QCOMPARE(desk.openTexts(), QStringList({u"XS 45"_qs, u"SK -40"_qs}));
    desk.checkBooks();
    Shop::demand(cancelSettlement(desk.session, desk.user, receipt));
    QCOMPARE(desk.openTexts(),
             QStringList({u"QC 100"_qs, u"XS 60"_qs, u"XT -25"_qs, u"SK -10"_qs}));
    desk.checkBooks();

    // Two debts and their returns can be set off without any money.
    const QString off = desk.settle(desk.receipt(0, {{sale, 25}, {back, -25}}));
    QCOMPARE(desk.figures(u"select count(*) from jxc_xjyh where gl_djh=?"_qs, {off}), u"0"_qs);
    QCOMPARE(desk.openTexts(), QStringList({u"QC 100"_qs, u"XS 35"_qs, u"SK -10"_qs}));
    desk.checkBooks();
    // Money that is left over stays with the partner; a debt beyond it is not touched.
    QCOMPARE(spreadOldestFirst(desk.open(), 1000).size(), size_t(2));
    QCOMPARE(spreadOldestFirst(desk.open(), -10).size(), size_t(1)); // paid back from the advance
}

void TestMoneyDesk::refusesWhatIsNoLongerOpen() {
    Desk desk;
    const QString sale = desk.owe(u"XS"_qs, 3, 60);
    QString first, second;
    Shop::demand(saveSettlement(desk.session, desk.user, desk.receipt(50, {{sale, 50}}), &first));
    Shop::demand(saveSettlement(desk.session, desk.user, desk.receipt(20, {{sale, 20}}), &second));
    Shop::demand(approveSettlement(desk.session, desk.user, first));
    const QStringList before = desk.everything();
    const QString changed = u"单据“%1”的未结金额已变化，请重新分配！"_qs.arg(sale);
    QCOMPARE(approveSettlement(desk.session, desk.user, second).text, changed);
    QVERIFY(desk.everything() == before);
    const auto saved = [&](const SettlementDraft &d) {
        QString number;
        return saveSettlement(desk.session, desk.user, d, &number).text;
    };
    QCOMPARE(saved(desk.receipt(60, {{sale, 11}})), changed);
    QCOMPARE(saved(desk.receipt(60, {{sale, -1}})), changed);
    QCOMPARE(saved(desk.receipt(5, {{sale, 6}})), u"结算金额合计不能大于付款与优惠之和！"_qs);
    QCOMPARE(saved(desk.receipt(0)), u"金额必须填写！"_qs);
    QVERIFY(desk.everything() == before);
    // The debt of another partner is none of this one's.
    SettlementDraft other = desk.receipt(10, {{sale, 10}});
    other.partner = u"100001"_qs;
    QCOMPARE(saved(other), changed);
}

void TestMoneyDesk::draftsOfSettlements() {
    Desk desk;
    const auto saved = [&](Session &session, const SettlementDraft &d) {
        QString number;
        const Outcome outcome = saveSettlement(session, desk.user, d, &number);
        return outcome.isDone() ? number.left(2) : outcome.text;
    };
    SettlementDraft d = desk.receipt(30);
    d.date = day(30);
    d.date.replace(u"03"_qs, u"04"_qs);
    QCOMPARE(saved(desk.session, d), u"单据日期不能大于当前日期！"_qs);
    d.date = u"2026-3-1"_qs;
    QCOMPARE(saved(desk.session, d), u"开单日期必须填写！"_qs);
    d = desk.receipt(30);
    d.account = u"没有"_qs;
    QCOMPARE(saved(desk.session, d), u"收款方式不存在！"_qs);
    d.account.clear();
    QCOMPARE(saved(desk.session, d), u"收款方式必须填写！"_qs);
    d = desk.receipt(30);
    d.clerk.clear();
    QCOMPARE(saved(desk.session, d), u"经手人必须填写！"_qs);
    Session clerk = desk.clerk(u"wlzk"_qs, {2, 8});
    d = desk.receipt(30);
    d.date = day(12);
    QVERIFY(saved(clerk, d).startsWith(u"您没有权限进行修改单据日期！"_qs));
    QCOMPARE(saved(clerk, desk.receipt(30)), u"SK"_qs);

    const QString number = desk.db.scalar(u"select gl_djh from jxc_ysyfk_dj"_qs);
    QCOMPARE(desk.lastLog(), u"增加收款单："_qs + number);
    auto mine = loadSettlement(desk.session, number);
    auto yours = mine;
    mine->amount = 35;
    QCOMPARE(saved(desk.session, *mine), u"SK"_qs);
    QCOMPARE(saved(desk.session, *yours), u"单据已被其他操作员修改或审核，请刷新后重试！"_qs);
    QCOMPARE(figuresOf(listSettlements(desk.session, u"SK"_qs, {.search = u"王家"_qs}), u"amount"),
             u"35"_qs);
    QVERIFY(listSettlements(desk.session, u"SK"_qs, {.approved = true}).empty());

    // Whoever may approve may take back, be it another's.
    Shop::demand(approveSettlement(desk.session, desk.user, number));
    QCOMPARE(deleteSettlement(desk.session, desk.user, number).text, u"已审核的单据不能删除！"_qs);
    Shop::demand(cancelSettlement(clerk, desk.user, number));
    desk.user.takeAsked();
    Shop::demand(deleteSettlement(desk.session, desk.user, number));
    QCOMPARE(desk.user.takeAsked(),
             QStringList(u"您的操作将删除单据：%1，确认吗？"_qs.arg(number)));
    QCOMPARE(desk.lastLog(), u"删除收款单："_qs + number);
    QVERIFY(!loadSettlement(desk.session, number));
}

/// Sales, returns, entries, receipts and cancellings as they come; the plain reference is that what
/// is open adds up to the balance, item by item never beyond its own total.
void TestMoneyDesk::randomSettlements() {
    Desk desk;
    QRandomGenerator chance(20260331);
    QStringList settlements, trades;
    const auto figure = [&] {
        return Decimal::fromMicros(qint64(1 + chance.bounded(20'000)) * 10'000);
    };
    for (int step = 0; step < 120; ++step) {
        const int action = chance.bounded(100);
        const int date = 2 + chance.bounded(28);
        if (action < 30) {
            trades << desk.owe(u"XS"_qs, date, figure());
        } else if (action < 40) {
            trades << desk.owe(u"XT"_qs, date, figure());
        } else if (action < 50) {
            SettlementDraft entry{u"YS"_qs, day(date), farmer, clerkNo, figure()};
            if (chance.bounded(4) == 0)
                entry.amount = -entry.amount;
            settlements << desk.settle(entry);
        } else if (action < 75) {
            SettlementDraft d = desk.receipt(figure());
            if (chance.bounded(3) == 0)
                d.discount = Decimal::fromText(u"0.5");
            if (chance.bounded(5) > 0)
                d.parts = spreadOldestFirst(desk.open(), d.amount + d.discount);
            settlements << desk.settle(d);
        } else {
            QStringList &list = chance.bounded(2) == 0 ? settlements : trades;
            if (list.isEmpty())
                continue;
            const QString number = list.takeAt(chance.bounded(int(list.size())));
            Shop::demand(isSettlementNumber(number)
                             ? cancelSettlement(desk.session, desk.user, number)
                             : desk.tryCancel(number));
        }
        Decimal sum;
        for (const OpenItem &item : desk.open()) {
            sum += item.open;
            if (!item.number.startsWith(u"SK"_qs))
                QVERIFY2(item.open.abs() <= item.total.abs(), qPrintable(item.number));
        }
        QCOMPARE(sum, CurrentBalance(desk.db, {Partner::Kind::customer, farmer}));
    }
    desk.checkBooks();
}

void TestMoneyDesk::accountTables() {
    Desk desk;
    desk.owe(u"XS"_qs, 3, 60);
    const QString sale = desk.owe(u"XS"_qs, 20, 100);
    desk.owe(u"XT"_qs, 21, 30);
    SettlementDraft d = desk.receipt(50, {}, 2);
    d.date = day(22);
    desk.settle(d);
    AccountQuery query{Partner::Kind::customer, {}, day(10), day(31), u"王家"_qs};
    const Rows summary = partnerSummary(desk.session, query);
    QCOMPARE(summary.size(), size_t(1));
    const auto figure = [&](QStringView field) { return summary.front().decimal(field); };
    QCOMPARE(figure(u"opening"), 60_d);
    QCOMPARE(figure(u"due"), 70_d);
    QCOMPARE(figure(u"settled"), 50_d);
    QCOMPARE(figure(u"discount"), 2_d);
    QCOMPARE(figure(u"closing"), CurrentBalance(desk.db, {Partner::Kind::customer, farmer}));

    query.partner = farmer;
    QCOMPARE(figuresOf(partnerDetail(desk.session, query), u"k_ljje"), u"60 160 130 78"_qs);
    QCOMPARE(figuresOf(openDocumentRows(desk.session, query), u"days"), u"28 11 10 9"_qs);
    desk.clock.set(QDateTime(QDate(2026, 5, 1), QTime(9, 0)));
    const Rows ages = partnerAgeing(desk.session, query);
    QCOMPARE(ages.front().decimal(u"age60"), 160_d);
    QCOMPARE(ages.front().decimal(u"credit"), -82_d);
    QCOMPARE(ages.front().decimal(u"total"), 78_d);

    desk.db.execute(u"update jxc_ysyfk set k_ljje=1"_qs);
    Shop::demand(recomputePartner(desk.session, desk.user, {Partner::Kind::customer, farmer}));
    QCOMPARE(figuresOf(partnerDetail(desk.session, query), u"k_ljje"), u"60 160 130 78"_qs);
}

void TestMoneyDesk::cashAndAccounts() {
    Desk desk;
    CashDraft d{u"XC"_qs, day(31), cash, {}, 8000, u"管理员"_qs, u"投入"_qs};
    const auto saved = [&](const CashDraft &draft) {
        QString number;
        const Outcome outcome = saveCashEntry(desk.session, desk.user, draft, &number);
        return outcome.isDone() ? number : outcome.text;
    };
    const QString in = saved(d);
    QCOMPARE(AccountBalance(desk.db, cash), -5000_d); // a draft does not count
    Shop::demand(approveCashEntry(desk.session, desk.user, in));
    QCOMPARE(AccountBalance(desk.db, cash), 3000_d);

    CashDraft move{u"XZ"_qs, day(31), cash, cash, 3001, {}, {}};
    QCOMPARE(saved(move), u"转出账户与转入账户不能相同！"_qs);
    move.target = bank;
    const QString moved = saved(move);
    desk.set(u"cs_xjyh"_qs, 1);
    QCOMPARE(approveCashEntry(desk.session, desk.user, moved).text,
             u"账户“现金”余额不足，不能付款！"_qs);
    auto again = loadCashEntry(desk.session, moved);
    again->amount = 3000;
    QCOMPARE(saved(*again), moved);
    Shop::demand(approveCashEntry(desk.session, desk.user, moved));
    QCOMPARE(AccountBalance(desk.db, bank), 3000_d);
    QCOMPARE(saved(*again), u"单据已被其他操作员修改或审核，请刷新后重试！"_qs);
    QCOMPARE(deleteCashEntry(desk.session, desk.user, moved).text, u"已审核的单据不能删除！"_qs);
    QCOMPARE(cashBefore(desk.session, {}, day(31)), -5000_d);
    const Rows journal = listCash(desk.session, {.account = cash, .from = day(31)});
    QCOMPARE(figuresOf(journal, u"xj_ljje"), u"3000 0"_qs);
    const QString receipt =
        desk.db.scalar(u"select gl_djh from jxc_xjyh where xj_dlx='采购进货'"_qs);
    const QString owned = u"该记录由单据产生，不能修改或删除！"_qs;
    QCOMPARE(deleteCashEntry(desk.session, desk.user, receipt).text, owned);
    QCOMPARE(deleteCashEntry(desk.session, desk.user, {}).text, owned);
    Shop::demand(cancelCashEntry(desk.session, desk.user, moved));
    QCOMPARE(AccountBalance(desk.db, cash), 3000_d);
    QCOMPARE(AccountBalance(desk.db, bank), 0_d);
    Shop::demand(deleteCashEntry(desk.session, desk.user, moved));

    AccountDraft account{0, {}, u"银行"_qs, u"农信社"_qs, {}, 500};
    Shop::demand(saveAccount(desk.session, desk.user, account));
    QCOMPARE(saveAccount(desk.session, desk.user, account).text, u"账户名称不能重复！"_qs);
    QCOMPARE(AccountBalance(desk.db, u"农信社"_qs), 500_d);
    account.id = desk.db.scalar(u"select max(id) from jxc_yhzh"_qs).toLongLong();
    account.name = u"信用社"_qs;
    Shop::demand(saveAccount(desk.session, desk.user, account));
    Shop::demand(setAccountOpening(desk.session, desk.user, account.id, 700));
    QCOMPARE(AccountBalance(desk.db, u"信用社"_qs), 700_d);
    d.account = u"信用社"_qs;
    Shop::demand(approveCashEntry(desk.session, desk.user, saved(d)));
    account.name = u"农行"_qs;
    const QString used = u"该账户已有业务，不能改名或删除！"_qs;
    QCOMPARE(saveAccount(desk.session, desk.user, account).text, used);
    QCOMPARE(deleteAccount(desk.session, desk.user, account.id).text, used);
    desk.checkBooks();
}

void TestMoneyDesk::expensesAndIncome() {
    Desk desk;
    ExpenseDraft d{day(31), u"费用"_qs, 120};
    d.clerk = clerkNo;
    QString fee, income;
    Shop::demand(saveExpense(desk.session, desk.user, d, &fee));
    d.type = u"收入"_qs;
    d.amount = 50;
    Shop::demand(saveExpense(desk.session, desk.user, d, &income));
    QVERIFY(fee.startsWith(u"FY"_qs) && income.startsWith(u"SR"_qs));
    Shop::demand(approveExpense(desk.session, desk.user, fee));
    Shop::demand(approveExpense(desk.session, desk.user, income));
    QCOMPARE(AccountBalance(desk.db, cash), -5070_d);
    QCOMPARE(desk.texts(u"select xj_dlx from jxc_xjyh where gl_djh in (?,?) order by id"_qs,
                        {fee, income}),
             QStringList({u"费用付款"_qs, u"收入收款"_qs}));
    desk.checkBooks();
    const Rows rows = listExpenses(desk.session, {.approved = true});
    QCOMPARE(figuresOf(expenseTotals(rows), u"amount"), u"50 120"_qs);
    Shop::demand(cancelExpense(desk.session, desk.user, fee));
    QCOMPARE(AccountBalance(desk.db, cash), -4950_d);
    // A type of the other direction draws a number of its own.
    auto again = loadExpense(desk.session, fee);
    again->type = u"收入"_qs;
    QString renumbered;
    Shop::demand(saveExpense(desk.session, desk.user, *again, &renumbered));
    QVERIFY(renumbered.startsWith(u"SR"_qs));
    QVERIFY(!loadExpense(desk.session, fee));
    again->amount = -1;
    again->number.clear();
    QCOMPARE(saveExpense(desk.session, desk.user, *again, &fee).text, u"金额必须大于零！"_qs);
    QCOMPARE(cancelExpense(desk.session, desk.user, {}).text,
             u"该费用由单据产生，请取消审核该单据！"_qs);
    desk.checkBooks();
}

void TestMoneyDesk::invoices() {
    Desk desk;
    const QString sale = desk.owe(u"XS"_qs, 3, 60);
    InvoiceDraft d{{Partner::Kind::customer, farmer}, day(31), 45, {}, u"NO.1"_qs};
    d.clerk = clerkNo;
    QString number, other;
    Shop::demand(saveInvoice(desk.session, desk.user, d, &number));
    QCOMPARE(saveInvoice(desk.session, desk.user, d, &other).text, u"发票号码不能重复！"_qs);
    QCOMPARE(listInvoices(desk.session, Partner::Kind::customer, {}).size(), size_t(1));
    Shop::demand(approveInvoice(desk.session, desk.user, number));
    const Rows register_ = listInvoices(desk.session, Partner::Kind::customer, {.approved = true});
    QCOMPARE(figuresOf(register_, u"fp_ljje"), u"15 60"_qs); // newest first
    QCOMPARE(cancelInvoice(desk.session, desk.user, sale).text,
             u"该记录由单据产生，不能修改或删除！"_qs);
    Shop::demand(cancelInvoice(desk.session, desk.user, number));
    d.number = number;
    d.invoiced = 0;
    QCOMPARE(saveInvoice(desk.session, desk.user, d, &other).text, u"已开票金额必须填写！"_qs);
    Shop::demand(deleteInvoice(desk.session, desk.user, number));
    desk.checkBooks();
}

void TestMoneyDesk::statements() {
    Desk desk;
    const QString sale = desk.post(u"XS"_qs, day(6), {desk.line(8, 9)}, [](Draft &draft) {
        draft.partner = farmer;
        draft.paid = 2;
        draft.freight = 7;
        draft.freightTerms = u"我方付运费"_qs;
    });
    const QString back = desk.owe(u"XT"_qs, 6, 20);
    desk.settle(desk.receipt(70, {{sale, 70}}));
    StatementQuery query{Partner::Kind::customer, farmer, day(1), day(31)};
    Rows rows = statementDocuments(desk.session, query);
    QCOMPARE(fieldOf(rows, u"djh"), sale + u' ' + back);
    QCOMPARE(figuresOf(rows, u"wfje"), u"0 20"_qs);
    QCOMPARE(figuresOf(rows, u"hkje"), u"70 0"_qs);
    QCOMPARE(figuresOf(rows, u"yf"), u"7 0"_qs);
    query.newestFirst = true;
    // On one day debts stand before returns in either order.
    QCOMPARE(fieldOf(statementDocuments(desk.session, query), u"djh"), sale + u' ' + back);
    QCOMPARE(figuresOf(statementGoods(desk.session, query), u"gl_sl"), u"7"_qs);
    QCOMPARE(figuresOf(statementMonths(desk.session, query), u"gl_zje"), u"52"_qs);
    desk.db.execute(u"update jxc_goodslist set gl_je=0 where gl_djh=?"_qs, {back});
    QCOMPARE(figuresOf(statementLines(desk.session, query), u"lrl"), u"0 44.44"_qs); // 32 of 72
    rows = statementFreight(desk.session, query);
    QCOMPARE(figuresOf(rows, u"sl"), u"8"_qs);
    QCOMPARE(figuresOf(rows, u"yf"), u"7"_qs);
    // The supplier's side by the same rules.
    query.kind = Partner::Kind::supplier;
    query.partner = u"100001"_qs;
    QCOMPARE(figuresOf(statementDocuments(desk.session, query), u"yfje"), u"5000"_qs);
    QCOMPARE(figuresOf(statementGoods(desk.session, query), u"gl_sl"), u"1000"_qs);
}

/// A long statement is read in pieces of any size and comes to the same.
void TestMoneyDesk::statementsInPieces() {
    Desk desk;
    for (const int date : {6, 6, 7, 7, 7, 9}) {
        desk.owe(u"XS"_qs, date, 20);
        desk.owe(u"XT"_qs, date, 20);
    }
    for (const bool newestFirst : {false, true})
        for (const int most : {1, 2, 5, 12}) {
            StatementQuery query{Partner::Kind::customer, farmer, day(1), day(31)};
            query.newestFirst = newestFirst;
            const QString whole = fieldOf(statementDocuments(desk.session, query), u"djh");
            const QString lines = fieldOf(statementLines(desk.session, query), u"id");
            QCOMPARE(whole.count(u' '), 11);
            query.most = most;
            const auto inPieces = [&](auto read, QStringView field) {
                QStringList all;
                query.after.reset();
                for (Rows rows = read(desk.session, query); !rows.empty();
                     rows = read(desk.session, query)) {
                    all << fieldOf(rows, field);
                    query.after = rows.back();
                }
                return all.join(u' ');
            };
            QCOMPARE(inPieces(statementDocuments, u"djh"), whole);
            QCOMPARE(inPieces(statementLines, u"id"), lines);
        }
}

QTEST_GUILESS_MAIN(TestMoneyDesk)
#include "test_money_desk.moc"
