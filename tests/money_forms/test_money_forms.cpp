// The windows of the money desk by real keys: receipts and their allocation, account tables, cash,
// expenses, invoices, statements.
#include "money/cash_journal.h"
#include "money/forms/settlement_editor.h"
#include "money/forms/settlement_parts.h"
#include "money/forms/tf_fpxs.h"
#include "money/forms/tf_fyjsr.h"
#include "money/forms/tf_wlzwkh.h"
#include "money/forms/tf_xjyh.h"
#include "money/forms/tf_yhzh.h"
#include "money/forms/tf_yskdj.h"
#include "money/forms/tf_yskgl.h"
#include "money/forms/tf_ysksk.h"
#include "money/settlement.h"
#include "reports/partner_statement.h"
#include "support/windows.h"
#include "ui/date_field.h"
#include "ui/grid.h"
#include "ui/number_field.h"
#include "ui/pick_field.h"

#include <QLabel>

using namespace jxc;
using namespace jxc::test;

namespace {

const QString g1 = QStringLiteral("G1");
const QString farmer = QStringLiteral("100002");
const QString cash = QStringLiteral("现金");

/// A farmer who owes for two sales, 60 of the 3rd and 40 of the 5th.
struct MoneyDesk : Desk {
    MoneyDesk() {
        addGoods(g1);
        addCustomer(farmer, QStringLiteral("王家庄"), QStringLiteral("1000"));
        post(QStringLiteral("CJ"), day(1), {line(100, 5)});
        first = owe(3, 60);
        second = owe(5, 40);
        user.takeAsked();
    }
    static DraftLine line(Decimal quantity, Decimal price) {
        DraftLine l{.goods = g1};
        l.quantity = quantity;
        l.price = price;
        return l;
    }
    QString owe(int date, Decimal amount) {
        return post(QStringLiteral("XS"), day(date), {line(1, amount)}, [](Draft &d) {
            d.partner = farmer;
            d.paid = Decimal();
        });
    }
    [[nodiscard]] Decimal balance() {
        return CurrentBalance(db, {Partner::Kind::customer, farmer});
    }
    QString first, second;
};

QString shown(const Grid &grid, const QString &caption) {
    QStringList texts;
    const ColumnSpecs &columns = grid.model().columns();
    for (size_t c = 0; c < columns.size(); ++c)
        if (columns[c].caption == caption)
            for (int row = 0; row < grid.model().rowCount(); ++row)
                texts << grid.model().cellText(row, static_cast<int>(c));
    return texts.join(u' ');
}

/// The editor that a list has opened.
template<class Editor = QDialog>
Editor *editor() {
    auto *top = qobject_cast<Editor *>(QApplication::activeModalWidget());
    if (top == nullptr)
        qFatal("no editor");
    bringUp(top);
    return top;
}

template<class FormClass>
void open(FormClass &form) {
    form.showModal();
    bringUp(&form);
}

/// Without a window manager the window below a dialog has to be fetched.
void closed(QWidget &below) {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    bringUp(&below);
}

} // namespace

class TestMoneyForms : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void receiptIsSpreadByKeys_data() { addEngineRows(); }
    void receiptIsSpreadByKeys();
    void refusalsKeepWhatWasTyped_data() { addEngineRows(); }
    void refusalsKeepWhatWasTyped();
    void approvedIsReadOnly_data() { addEngineRows(); }
    void approvedIsReadOnly();
    void accountTables_data() { addEngineRows(); }
    void accountTables();
    void cashByKeys_data() { addEngineRows(); }
    void cashByKeys();
    void accountsByKeys_data() { addEngineRows(); }
    void accountsByKeys();
    void expensesByKeys_data() { addEngineRows(); }
    void expensesByKeys();
    void invoicesByKeys_data() { addEngineRows(); }
    void invoicesByKeys();
    void statementForTheCustomer_data() { addEngineRows(); }
    void statementForTheCustomer();
};

/// 70 for both sales: 60 of the older one, 10 of the newer one; then approved from the list.
void TestMoneyForms::receiptIsSpreadByKeys() {
    MoneyDesk desk;
    TF_Ysksk form(desk.context);
    open(form);
    press(Qt::Key_Insert);
    auto *receipt = editor<SettlementEditor>();
    enter(u"王家"_qs);
    QCOMPARE(child<QLabel>(*receipt, u"balance"_qs)->text().contains(u"100.00"_qs), true);
    enter(u"70"_qs);
    auto *parts = child<SettlementParts>(*receipt, u"parts"_qs);
    press(Qt::Key_F7);
    QCOMPARE(parts->parts(), (std::vector<Allocation>{{desk.first, 60_d}, {desk.second, 10_d}}));
    // Space takes the first off; a typed figure is no more than what is open.
    press(Qt::Key_Space);
    press(Qt::Key_Return);
    type(u"999"_qs);
    press(Qt::Key_Return);
    QCOMPARE(parts->parts(), (std::vector<Allocation>{{desk.second, 40_d}}));
    QVERIFY(child<QLabel>(*receipt, u"rest"_qs)->text().contains(u"余款记为预收 30.00"_qs));
    press(Qt::Key_F7);
    press(Qt::Key_F5);
    closed(form);
    QCOMPARE(shown(form.grid(), u"收款金额"_qs), u"70.00"_qs);
    QCOMPARE(shown(*form.lowerGrid(), u"本次结算"_qs), u"60.00 10.00"_qs);
    QCOMPARE(desk.balance(), 100_d);

    const QString number = form.grid().currentText(u"number");
    press(Qt::Key_F8);
    QCOMPARE(desk.user.takeAsked(),
             QStringList(u"您的操作将审核当前选中的单据：%1，确认吗？"_qs.arg(number)));
    QCOMPARE(desk.balance(), 30_d);
    QCOMPARE(form.grid().model().rowCount(), 0);
    press(Qt::Key_Tab, Qt::ControlModifier);
    QVERIFY(form.showsApproved());
    QCOMPARE(form.grid().currentText(u"number"), number);
    press(Qt::Key_Delete);
    QCOMPARE(desk.user.told.last(), u"已审核的单据不能删除！"_qs);
    press(Qt::Key_F9);
    QCOMPARE(desk.balance(), 100_d);
    press(Qt::Key_Tab, Qt::ControlModifier);
    press(Qt::Key_Delete);
    QVERIFY(desk.texts(u"select id from jxc_ysyfk_dj"_qs).isEmpty());
    QVERIFY(desk.texts(u"select id from jxc_fkmx"_qs).isEmpty());
}

void TestMoneyForms::refusalsKeepWhatWasTyped() {
    MoneyDesk desk;
    TF_Ysksk form(desk.context);
    open(form);
    press(Qt::Key_Insert);
    auto *receipt = editor<SettlementEditor>();
    press(Qt::Key_F5);
    QCOMPARE(desk.user.told.last(), u"客户必须填写！"_qs);
    QCOMPARE(QApplication::focusWidget()->objectName(), u"k_ghskh"_qs);
    enter(u"王家"_qs);
    press(Qt::Key_F5);
    QCOMPARE(desk.user.told.last(), u"金额必须填写！"_qs);
    child<NumberField>(*receipt, u"k_sfje"_qs)->setFocus();
    enter(u"50"_qs);
    // Meanwhile another workstation settles the older sale.
    press(Qt::Key_F7);
    QString other;
    Shop::demand(saveSettlement(
        desk.session, desk.user,
        {u"SK"_qs, day(31), farmer, u"100001"_qs, 60, {}, cash, {}, {}, {{desk.first, 60}}},
        &other));
    Shop::demand(approveSettlement(desk.session, desk.user, other));
    press(Qt::Key_F5);
    QCOMPARE(desk.user.told.last(), u"单据“%1”的未结金额已变化，请重新分配！"_qs.arg(desk.first));
    QCOMPARE(child<NumberField>(*receipt, u"k_sfje"_qs)->value(), 50_d);
    // Leaving asks, and No stays.
    desk.user.takeAsked();
    desk.user.answers = {false};
    press(Qt::Key_Escape);
    QVERIFY(receipt->isVisible());
    QCOMPARE(desk.user.takeAsked(), QStringList(u"内容已修改，确认放弃吗？"_qs));
    press(Qt::Key_Escape);
    closed(form);
    QCOMPARE(form.grid().model().rowCount(), 0);
}

/// F8 in the editor stores and approves; what is approved opens to read.
void TestMoneyForms::approvedIsReadOnly() {
    MoneyDesk desk;
    TF_Yskdj form(desk.context);
    open(form);
    press(Qt::Key_Insert);
    editor();
    enter(u"王家"_qs);
    type(u"-15"_qs);
    press(Qt::Key_F8);
    closed(form);
    QCOMPARE(desk.balance(), 85_d);
    form.showApproved(true);
    QCOMPARE(shown(form.grid(), u"应收金额"_qs), u"-15.00"_qs);
    press(Qt::Key_F4);
    auto *entry = editor();
    QVERIFY(!child<NumberField>(*entry, u"k_yfje"_qs)->isEnabled());
    press(Qt::Key_F5);
    QVERIFY(entry->isVisible());
    press(Qt::Key_Escape);
    closed(form);
    // Without the right to enter, nothing opens.
    Session clerk = desk.clerk(u"wlzk"_qs, {7});
    FormContext context{clerk, desk.user, desk.stage, desk.finder, desk.home.path()};
    TF_Yskdj other(context);
    open(other);
    press(Qt::Key_Insert);
    QVERIFY(desk.user.told.last().startsWith(u"您没有权限进行应收登记！"_qs));
}

void TestMoneyForms::accountTables() {
    MoneyDesk desk;
    TF_Yskgl form(desk.context);
    open(form);
    QCOMPARE(shown(form.gridOf(0), u"期末余额"_qs), u"100.00"_qs);
    press(Qt::Key_Return); // his ledger
    QCOMPARE(shown(form.gridOf(1), u"余额"_qs), u"0.00 60.00 100.00"_qs);
    form.gridOf(1).goToLine(1);
    press(Qt::Key_Return);
    QCOMPARE(desk.stage.opened, QStringList(desk.first));
    press(Qt::Key_Tab, Qt::ControlModifier);
    QCOMPARE(shown(form.gridOf(2), u"天数"_qs), u"28 26"_qs);
    press(Qt::Key_F6); // he pays
    editor<SettlementEditor>();
    type(u"100"_qs);
    press(Qt::Key_F7);
    press(Qt::Key_F8);
    closed(form);
    QCOMPARE(desk.user.told.join(u'|'), QString());
    QCOMPARE(form.gridOf(2).model().rowCount(), 0);
    press(Qt::Key_Tab, Qt::ControlModifier);
    QCOMPARE(form.gridOf(3).model().rowCount(), 0);
    desk.db.execute(u"update jxc_khxx set kh_lwje=7"_qs);
    press(Qt::Key_R, Qt::ControlModifier);
    QCOMPARE(desk.figures(u"select kh_lwje from jxc_khxx where kh_sn=?"_qs, {farmer}), u"0"_qs);
}

void TestMoneyForms::cashByKeys() {
    MoneyDesk desk;
    TF_Xjyh form(desk.context);
    open(form);
    press(Qt::Key_F7);
    editor();
    enter(u"现金"_qs);
    enter(u"现金"_qs);
    enter(u"250"_qs);
    press(Qt::Key_F5);
    QCOMPARE(desk.user.told.last(), u"转出账户与转入账户不能相同！"_qs);
    child<PickField>(*editor(), u"xj_kmmc2"_qs)->setFocus();
    enter(u"工行"_qs);
    press(Qt::Key_F5);
    closed(form);
    QCOMPARE(AccountBalance(desk.db, cash), -500_d);
    form.grid().goTo(u"xj_dlx", u"转账"_qs);
    press(Qt::Key_F8);
    QCOMPARE(AccountBalance(desk.db, cash), -750_d);
    QCOMPARE(AccountBalance(desk.db, u"工行帐号"_qs), 250_d);
    form.grid().goTo(u"xj_dlx", u"采购进货"_qs);
    press(Qt::Key_Delete);
    QCOMPARE(desk.user.told.last(), u"该记录由单据产生，不能修改或删除！"_qs);
    press(Qt::Key_F4);
    QVERIFY(desk.stage.opened.last().startsWith(u"CJ"_qs));
    // One account alone has its own running balance.
    form.accounts().goTo(u"key", u"工行帐号"_qs);
    QCOMPARE(shown(form.grid(), u"期末余额"_qs), u"0.00 0.00 250.00"_qs);
    form.grid().setFocus();
    form.grid().goTo(u"xj_dlx", u"转账"_qs);
    press(Qt::Key_F9);
    QCOMPARE(AccountBalance(desk.db, cash), -500_d);
    press(Qt::Key_Delete);
    QVERIFY(desk.texts(u"select id from jxc_xjyh where xj_dlx='转账'"_qs).isEmpty());
}

void TestMoneyForms::accountsByKeys() {
    MoneyDesk desk;
    TF_Yhzh form(desk.context);
    open(form);
    press(Qt::Key_Insert);
    editor();
    enter(u"信用社"_qs);
    enter(u"农信社"_qs);
    enter(u"500"_qs);
    press(Qt::Key_F5);
    closed(form);
    form.grid().goTo(u"yh_name", u"农信社"_qs);
    press(Qt::Key_F6);
    editor();
    press(Qt::Key_A, Qt::ControlModifier);
    type(u"800"_qs);
    press(Qt::Key_F5);
    closed(form);
    QCOMPARE(AccountBalance(desk.db, u"农信社"_qs), 800_d);
    press(Qt::Key_Delete);
    QCOMPARE(desk.user.takeAsked(), QStringList(u"您的操作将删除银行账户：农信社，确认吗？"_qs));
    form.grid().goTo(u"yh_name", cash);
    press(Qt::Key_Delete);
    QCOMPARE(desk.user.told.last(), u"系统默认数据，不能删除！"_qs);
}

void TestMoneyForms::expensesByKeys() {
    MoneyDesk desk;
    TF_Fyjsr form(desk.context);
    open(form);
    press(Qt::Key_Insert);
    auto *expense = editor();
    enter(u"费用"_qs);
    enter(u"120"_qs);
    press(Qt::Key_F6); // and another one, an income
    QCOMPARE(child<QLabel>(*expense, u"number"_qs)->text(), u"自动编号"_qs);
    enter(u"收入"_qs);
    enter(u"30"_qs);
    press(Qt::Key_F8);
    closed(form);
    QCOMPARE(AccountBalance(desk.db, cash), -470_d);
    QCOMPARE(shown(form.grid(), u"费用类型"_qs), u"费用"_qs);
    form.showApproved(true);
    QCOMPARE(shown(*form.lowerGrid(), u"金额合计"_qs), u"30.00"_qs);
}

void TestMoneyForms::invoicesByKeys() {
    MoneyDesk desk;
    TF_Fpxs form(desk.context);
    open(form);
    press(Qt::Key_Insert);
    editor();
    enter(u"王家"_qs);
    enter(u"45"_qs);
    enter();
    enter(u"NO8"_qs);
    press(Qt::Key_F8);
    closed(form);
    form.showApproved(true);
    QCOMPARE(shown(form.grid(), u"期末应开金额"_qs), u"55.00 100.00 60.00"_qs);
    form.grid().goTo(u"number", desk.first);
    press(Qt::Key_F4); // leads to the sale
    QCOMPARE(desk.stage.opened, QStringList(desk.first));
    press(Qt::Key_F9);
    QCOMPARE(desk.user.told.last(), u"该记录由单据产生，不能修改或删除！"_qs);
}

void TestMoneyForms::statementForTheCustomer() {
    MoneyDesk desk;
    TF_WlzwKh form(desk.context);
    open(form);
    QCOMPARE(shown(form.gridOf(0), u"未收金额"_qs), u"60.00 40.00"_qs);
    for (int page = 1; page < form.pageCount(); ++page)
        press(Qt::Key_Tab, Qt::ControlModifier);
    QCOMPARE(shown(form.gridOf(1), u"价税合计"_qs), u"100.00"_qs);
    QCOMPARE(shown(form.gridOf(2), u"毛利率%"_qs), u"91.67 87.50"_qs);
    QCOMPARE(shown(form.gridOf(3), u"月份"_qs), u"2026-03"_qs);

    const Pages pages = statementPages(desk.session, desk.home.path(),
                                       {Partner::Kind::customer, farmer}, day(4), day(31));
    QStringList texts;
    for (const PlacedText &text : pages.front().texts)
        texts << text.text;
    QVERIFY(texts.contains(u"客户：王家庄"_qs));
    QVERIFY(texts.contains(u"上期余额：60.00"_qs));
    QVERIFY(texts.contains(u"期末余额：100.00　大写：壹佰元整"_qs));
    QVERIFY(texts.contains(desk.second) && !texts.contains(desk.first));
    QVERIFY(texts.contains(u"其中未结单据 2 张，最早一张 %1（28天）"_qs.arg(day(3))));
}

JXC_GUI_MAIN(TestMoneyForms, QApplication)
#include "test_money_forms.moc"
